CREATE TABLE poem (id NUMBER, text CLOB);
CREATE SEQUENCE poem_seq;
INSERT INTO poem VALUES (1, 'roses are red;
violets are blue');
INSERT INTO poem VALUES (2, 'the fog comes
on little cat fe