CREATE TYPE phone_t AS OBJECT (kind VARCHAR2(10), no VARCHAR2(30));
/
CREATE OR REPLACE TYPE phones_t AS TABLE OF phone_t;
/
CREATE OR REPLACE TYPE person_t AS OBJECT (
  name VARCHAR2(60),
  phones phones_t,
  MEMBER FUNCTION first_phone RETURN VARCHAR2,
  MAP MEMBER FUNCTION sort_key RETURN VARCHAR2
) NOT FINAL;
/
CREATE OR REPLACE TYPE BODY person_t AS
  MEMBER FUNCTION first_phone RETURN VARCHAR2 IS
  BEGIN
    IF phones IS NULL THEN RETURN 'none;'; END IF;
    RETURN phones(1).no;
  END;
  MAP MEMBER FUNCTION sort_key RETURN VARCHAR2 IS
  BEGIN
    RETURN UPPER(name);
  END;
END;
/
CREATE TABLE book (id NUMBER PRIMARY KEY, owner person_t, colour VARCHAR2(10));
CREATE INDEX book_colour ON book (colour);
ALTER TYPE person_t ADD ATTRIBUTE (born DATE) CASCADE;
DROP TYPE old_person_t FORCE;
COMMENT ON COLUMN book.owner IS 'an object; not a table';
