CREATE TABLE bird (id NUMBER, name VARCHAR2(40));
COMMENT ON TABLE bird IS 'what's seen from the hide';
CREATE SEQUENCE bird_seq;
INSERT INTO bird VALUES (1, 'tit');
COMMENT ON COLUMN bird.name IS 'the name';
INSERT INTO bird VALUES (2, 'swan);
CREATE INDEX bird_name ON bird (name);
CREATE TABLE "nest (id NUMBER);
