-- every constraint here goes without a name: the database makes one up
CREATE TABLE depot (
  id NUMBER PRIMARY KEY,
  code CHAR(4) NOT NULL UNIQUE,
  opened DATE CHECK (opened > DATE '1990-01-01')
);
CREATE TABLE bus (
  id NUMBER PRIMARY KEY,
  depot_id NUMBER REFERENCES depot,
  seats NUMBER(3) NOT NULL CHECK (seats BETWEEN 8 AND 180),
  plate VARCHAR2(12),
  UNIQUE (plate),
  FOREIGN KEY (depot_id) REFERENCES depot (id)
);
CREATE TABLE line (
  no NUMBER(3) PRIMARY KEY,
  from_stop VARCHAR2(40) NOT NULL,
  to_stop   VARCHAR2(40) NOT NULL,
  CHECK (from_stop <> to_stop)
);
CREATE TABLE trip (
  line_no NUMBER(3) NOT NULL REFERENCES line ON DELETE CASCADE,
  bus_id  NUMBER    REFERENCES bus ON DELETE SET NULL,
  at      DATE      NOT NULL,
  PRIMARY KEY (line_no, at)
);
ALTER TABLE trip ADD UNIQUE (bus_id, at);
ALTER TABLE trip ADD (delay NUMBER(3) DEFAULT 0 NOT NULL);
ALTER TABLE bus ADD CHECK (LENGTH(plate) > 3);
CREATE INDEX trip_at ON trip (at DESC);
