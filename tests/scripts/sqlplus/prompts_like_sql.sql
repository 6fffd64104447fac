SET ECHO OFF VERIFY OFF
SET DEFINE ON
PROMPT CREATE TABLE no1 (a NUMBER);
PROMPT Drop the user first? (it's safe; really)
prompt "unbalanced
prompt /* no comment
CREATE TABLE yes1 (a NUMBER);
PROMPT */
REM /* no comment either
CREATE TABLE yes2 (a NUMBER);
REM 'unbalanced
rem; REM(nothing)
SPOOL "a file; with blanks.log"
TTITLE 'it''s; a title'
SHOW PARAMETER "x"
SET SQLPROMPT "_USER> "
CREATE TABLE yes3 (a NUMBER);
SPOOL OFF
QUIT
