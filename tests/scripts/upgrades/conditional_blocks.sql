SET SERVEROUTPUT ON
DECLARE
  n NUMBER;
BEGIN
  SELECT COUNT(*) INTO n FROM user_tab_columns WHERE table_name = 'RIDER' AND column_name = 'SHIRT';
  IF n = 0 THEN
    EXECUTE IMMEDIATE 'ALTER TABLE rider ADD (shirt VARCHAR2(10))';
  END IF;
  CASE n WHEN 1 THEN NULL; ELSE NULL; END CASE;
END;
/
<<second_step>>
DECLARE
  e EXCEPTION;
  PRAGMA EXCEPTION_INIT(e, -955);
BEGIN
  <<inner>>
  FOR r IN (SELECT table_name FROM user_tables) LOOP
    BEGIN
      EXECUTE IMMEDIATE q'{CREATE INDEX rider_x ON rider (CASE WHEN name = 'x;' THEN 1 END)}';
    EXCEPTION
      WHEN e THEN NULL;
    END;
  END LOOP inner;
END second_step;
/
CREATE TABLE stage (no NUMBER(2) PRIMARY KEY, km NUMBER(4,1));
BEGIN dbms_output.put_line('a block in one line; done'); END;
/
CREATE TABLE rider (no NUMBER(3) PRIMARY KEY, name VARCHAR2(60), shirt VARCHAR2(10));
begin
  for i in 1..21 loop
    insert into stage values (i, i * 10);
  end loop;
  commit;
end;
.
/
CREATE SEQUENCE stage_seq;
