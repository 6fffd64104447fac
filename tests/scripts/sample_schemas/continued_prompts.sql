PROMPT this prompt goes on -
  in a second line; CREATE TABLE not_this (a DATE); -
  and a third
PROMPT ----------------------------------------
PROMPT -- rules of dashes continue nothing: ---
CREATE TABLE apples (kind VARCHAR2(30), weight NUMBER(5,1));
COLUMN kind FORMAT A30 -
  HEADING 'The kind'
TTITLE LEFT 'Apples;' -
  RIGHT 'page' SQL.PNO
SET -
  ECHO OFF
REM a remark is not continued by a hyphen -
CREATE TABLE pears (kind VARCHAR2(30), weight NUMBER(5,1));
PROMPT
PRO short for prompt: CREATE TABLE nor_this (a DATE);
SHO ERR
DESC apples
DESCRIBE pears;
HOST ls -l; rm nothing
! echo "CREATE TABLE nor_that (a DATE);"
EXEC dbms_stats.gather_table_stats(user, 'APPLES');
EXECUTE p('it''s; done')
VARIABLE n NUMBER
PRINT n
PAUSE press a key, don't wait
CLEAR SCREEN
BREAK ON kind
CREATE TABLE plums (kind VARCHAR2(30), weight NUMBER(5,1));
TIMING STOP
