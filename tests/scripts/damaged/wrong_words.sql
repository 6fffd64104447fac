-- typing errors of every sort: each costs its statement and nothing else
CRATE TABLE cloud1 (id NUMBER, comment VARCHAR2(10), start DATE);
CREATE TABEL cloud2 (id NUMBER);
CREATE TABLE cloud3 (id NUMBER);
CREATE TABLE cloud4 (id NUMBER,, name VARCHAR2(10));
CREATE TABLE cloud5 (id NUMBER, kind VARCHAR2(10);
CREATE INDEX cloud_ix OF cloud3 (id);
CREATE SEQUENCE cloud_seq;
ALTER TABLE cloud3 APPEND (kind VARCHAR2(10));
DELETE FORM cloud3;
COMMENT ON TABLE cloud3 IS 'seen from below';
