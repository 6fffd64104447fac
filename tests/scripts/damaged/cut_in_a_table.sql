CREATE TABLE atlas (id NUMBER PRIMARY KEY, title VARCHAR2(80));
CREATE INDEX atlas_title ON atlas (title);
CREATE TABLE atlas_page (
  atlas_id NUMBER NOT NULL,
  page NUMBER(4) NOT NULL,
  scale VARC