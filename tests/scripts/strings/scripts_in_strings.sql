CREATE TABLE template (name VARCHAR2(30), body CLOB);
INSERT INTO template VALUES ('table', '
CREATE TABLE #NAME# (
  id NUMBER
);
COMMENT ON TABLE #NAME# IS ''made by us'';
');
INSERT INTO template VALUES ('package', q'[
CREATE OR REPLACE PACKAGE #NAME# IS
  PROCEDURE run;
END;
/
CREATE SEQUENCE #NAME#_seq;
]');
CREATE SEQUENCE template_seq;
