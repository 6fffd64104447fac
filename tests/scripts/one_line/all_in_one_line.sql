CREATE TABLE a (x NUMBER); CREATE TABLE b (y NUMBER, z DATE); INSERT INTO a VALUES (1); INSERT INTO a VALUES (2);COMMIT;CREATE SEQUENCE s;ALTER TABLE a ADD (w DATE);
-- the same again with blanks and comments between
 ; ; /* nothing */ ; -- nothing;
