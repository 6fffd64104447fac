CREATE TABLE tap (id NUMBER(4), litres NUMBER(7,1));
ALTER TABLE tap ADD CONSTRAINT tap_pk PRIMARY KEY (id);
-- the last statement has neither a semicolon nor the end of a line
CREATE INDEX tap_litres ON tap
  (litres)