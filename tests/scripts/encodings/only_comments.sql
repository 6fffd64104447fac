-- This script was emptied; see the other one.
/* CREATE TABLE a (b NUMBER);
 * don't
 */
REM CREATE TABLE c (d NUMBER);
PROMPT nothing to do

;
/
--
