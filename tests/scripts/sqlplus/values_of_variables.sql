DEFINE ts = 'USERS'
DEFINE owner=depot
DEFINE size = 64K
define prefix = "WH"
DEFINE digits = 8
CREATE TABLE &owner..&prefix._item (id NUMBER(&&digits)) TABLESPACE &ts STORAGE (INITIAL &size);
ALTER TABLE &owner..&prefix._item ADD CONSTRAINT &prefix._item_pk PRIMARY KEY (id);
SET DEFINE ^
CREATE INDEX ^prefix._ix ON ^owner..^prefix._item (id) TABLESPACE ^ts;
COMMENT ON TABLE ^owner..^prefix._item IS 'R&D; 50^';
SET DEFINE &
CREATE SEQUENCE &prefix.&prefix;
