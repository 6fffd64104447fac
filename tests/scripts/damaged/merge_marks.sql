CREATE TABLE ferry (
  id NUMBER PRIMARY KEY,
  name VARCHAR2(40)
);
<<<<<<< HEAD
CREATE SEQUENCE ferry_seq START WITH 10;
=======
CREATE SEQUENCE ferry_sq START WITH 20;
>>>>>>> feature/ferries
CREATE TABLE crossing (
  id NUMBER PRIMARY KEY,
<<<<<<< HEAD
  at DATE,
=======
  at TIMESTAMP,
>>>>>>> feature/ferries
  ferry_id NUMBER
);
CREATE INDEX ferry_name ON ferry (name);
||||||| merged common ancestors
=======
