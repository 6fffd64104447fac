CREATE TABLE type (key NUMBER PRIMARY KEY, value VARCHAR2(10), name VARCHAR2(10), status NUMBER, date_ DATE);
CREATE TABLE role (password VARCHAR2(20), system NUMBER, timestamp TIMESTAMP, interval NUMBER, year NUMBER, month NUMBER, day NUMBER);
CREATE TABLE storage (tablespace NUMBER, initrans NUMBER, cache NUMBER, logging NUMBER, partition NUMBER, row_ NUMBER, constraints NUMBER);
CREATE TABLE job (primary NUMBER, foreign NUMBER, references_ NUMBER, enable NUMBER, disable NUMBER, using_ NUMBER, lob NUMBER, begin NUMBER, end NUMBER, "TABLE" NUMBER);
CREATE INDEX sequence ON type (value, name);
CREATE SEQUENCE cycle CYCLE MAXVALUE 9 CACHE 5;
CREATE VIEW body AS SELECT key, value FROM type;
ALTER TABLE role ADD (function VARCHAR2(5), package VARCHAR2(5), trigger_ NUMBER);
COMMENT ON COLUMN type.value IS 'value';
