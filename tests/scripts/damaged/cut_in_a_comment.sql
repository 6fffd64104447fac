CREATE TABLE note (id NUMBER, text CLOB);
CREATE SEQUENCE note_seq;
/* What follows is for later: it's not ready
CREATE TABLE later (id NUMBER);
CREATE TABLE even_later (id NU