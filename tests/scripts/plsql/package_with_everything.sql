CREATE OR REPLACE PACKAGE booking AUTHID CURRENT_USER AS
  -- the state; public
  TYPE t_rec IS RECORD (id NUMBER, name VARCHAR2(30) := 'n;a');
  TYPE t_tab IS TABLE OF t_rec INDEX BY PLS_INTEGER;
  c_max CONSTANT NUMBER := 10;
  e_full EXCEPTION;
  PRAGMA EXCEPTION_INIT(e_full, -20001);
  CURSOR c_all RETURN t_rec;
  PROCEDURE book(p_id IN NUMBER, p_when DATE DEFAULT SYSDATE);
  FUNCTION free(p_id NUMBER) RETURN BOOLEAN DETERMINISTIC;
END booking;
/
CREATE OR REPLACE PACKAGE BODY booking AS
  CURSOR c_all RETURN t_rec IS SELECT 1, 'x' FROM dual;
  FUNCTION free(p_id NUMBER) RETURN BOOLEAN DETERMINISTIC IS
    FUNCTION inner_one RETURN NUMBER IS BEGIN RETURN 1; END;
  BEGIN
    RETURN CASE WHEN inner_one = 1 THEN TRUE ELSE FALSE END;
  END free;
  PROCEDURE book(p_id IN NUMBER, p_when DATE DEFAULT SYSDATE) IS
    l_end DATE; -- not an end;
  BEGIN
    IF NOT free(p_id) THEN
      RAISE e_full;
    ELSIF p_when IS NULL THEN
      l_end := SYSDATE;
    END IF;
    <<days>>
    WHILE l_end < SYSDATE + 3 LOOP
      l_end := l_end + 1;
      EXIT days WHEN l_end IS NULL;
      CONTINUE WHEN 1 = 2;
    END LOOP days;
    FOR r IN c_all LOOP NULL; END LOOP;
    CASE p_id
      WHEN 1 THEN dbms_output.put_line('one; it''s');
      ELSE NULL;
    END CASE;
    $IF $$debug $THEN
    dbms_output.put_line(q'#don't; end;#');
    $END
    EXECUTE IMMEDIATE '
CREATE TABLE not_here (a DATE);
';
  EXCEPTION
    WHEN OTHERS THEN ROLLBACK; RAISE;
  END book;
BEGIN
  NULL;
END booking;
/
SHOW ERRORS PACKAGE BODY booking
CREATE SEQUENCE booking_seq;
