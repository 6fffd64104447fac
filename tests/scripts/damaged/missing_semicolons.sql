CREATE TABLE boat (
  id NUMBER PRIMARY KEY,
  sail NUMBER(5,1)
)

CREATE TABLE crew (
  boat_id NUMBER REFERENCES boat,
  name VARCHAR2(40)
)
ALTER TABLE crew ADD (since DATE)

COMMENT ON TABLE crew IS 'who sails'
COMMENT ON COLUMN crew.name IS 'family name; first name' -- as in the book
INSERT INTO boat (id) VALUES (1)
CREATE SEQUENCE boat_seq
  START WITH 5
create unique index crew_name on crew (name)
