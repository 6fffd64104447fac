REM written under DOS - it's old
SET ECHO ON
CREATE TABLE floppy (
  id NUMBER,  -- the id
  label VARCHAR2(11) DEFAULT 'NO NAME'
);
CREATE INDEX floppy_label
  ON floppy (label)
/
CREATE OR REPLACE TRIGGER floppy_tr BEFORE INSERT ON floppy FOR EACH ROW
BEGIN
  :NEW.label := UPPER(:NEW.label); -- up
END;
/
INSERT INTO floppy VALUES (1, 'two
lines;');
ALTER TABLE floppy MODIFY;
PROMPT -
 continued; CREATE TABLE no1 (a DATE);
CREATE SEQUENCE floppy_seq;
