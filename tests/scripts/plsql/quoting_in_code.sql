CREATE OR REPLACE PROCEDURE say(p_what VARCHAR2) IS
  l VARCHAR2(4000);
BEGIN
  l := 'it''s';
  l := '';
  l := '''';
  l := q'[it's; a 'test']';
  l := Q'!don't!';
  l := nq'{N'x}';
  l := 'line one
/
line three; /* no comment */ -- none';
  l := "Mixed.Name;"('x');
  l := 'a' /* don't */ || 'b' -- can't
       || 'c';
  IF l LIKE '%;%' ESCAPE '\' THEN
    NULL;
  END IF;
END say;
/
CREATE TABLE said (words VARCHAR2(4000));
DECLARE
  x VARCHAR2(10) := q'<;'>>';
BEGIN
  say('>' || x || q'(')');
END;
/
CREATE SEQUENCE said_seq;
