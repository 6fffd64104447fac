REM Weather stations. The tables carry their storage.
DEFINE keep_years = 10
CREATE TABLE station
   ( station_no   NUMBER(5) NOT NULL
   , name         VARCHAR2(40)
   , latitude     NUMBER(8,5)
   , longitude    NUMBER(8,5)
   , height_m     NUMBER(4)
   ) PCTFREE 5 STORAGE (INITIAL 64K NEXT 64K PCTINCREASE 0);
ALTER TABLE station ADD CONSTRAINT station_pk PRIMARY KEY (station_no) USING INDEX STORAGE (INITIAL 16K);
CREATE TABLE quantity
   ( code         CHAR(2) CONSTRAINT quantity_pk PRIMARY KEY
   , unit         VARCHAR2(10) DEFAULT '°C' NOT NULL
   , lowest       NUMBER DEFAULT -273.15
   , highest      NUMBER DEFAULT 1e3
   );
CREATE TABLE reading
   ( station_no   NUMBER(5)
   , code         CHAR(2)
   , read_at      TIMESTAMP WITH TIME ZONE
   , value        BINARY_DOUBLE
   , quality      VARCHAR2(1) DEFAULT 'U' CONSTRAINT quality_ck CHECK (quality IN ('U', 'G', 'B'))
   , CONSTRAINT reading_pk PRIMARY KEY (station_no, code, read_at)
   ) ORGANIZATION INDEX COMPRESS 2;
ALTER TABLE reading ADD CONSTRAINT reading_station_fk FOREIGN KEY (station_no)
   REFERENCES station (station_no) DEFERRABLE INITIALLY DEFERRED;
ALTER TABLE reading ADD CONSTRAINT reading_quantity_fk FOREIGN KEY (code)
   REFERENCES quantity (code) RELY DISABLE NOVALIDATE;
CREATE VIEW warm_stations AS
   SELECT s.station_no, s.name FROM station s
   WHERE EXISTS (SELECT 1 FROM reading r WHERE r.station_no = s.station_no AND r.value > 25);
COMMENT ON COLUMN reading.quality IS 'U unknown, G good, B bad';
COMMENT ON COLUMN station.height_m IS 'Metres; above the sea';
CREATE SYNONYM readings FOR reading;
CREATE INDEX reading_value_ix ON reading (value) COMPUTE STATISTICS;
DELETE FROM reading WHERE read_at < ADD_MONTHS(SYSDATE, -12 * &keep_years);
