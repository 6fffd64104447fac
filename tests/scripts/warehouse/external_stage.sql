CREATE OR REPLACE DIRECTORY stage_dir AS '/data/stage';
CREATE TABLE stage_fill (
  day_key   VARCHAR2(8),
  pump      VARCHAR2(40),
  litres    VARCHAR2(20)
)
ORGANIZATION EXTERNAL (
  TYPE ORACLE_LOADER
  DEFAULT DIRECTORY stage_dir
  ACCESS PARAMETERS (
    RECORDS DELIMITED BY NEWLINE
    BADFILE stage_dir:'fill%a_%p.bad'
    NOLOGFILE
    FIELDS TERMINATED BY ';' OPTIONALLY ENCLOSED BY '"' LDRTRIM
    MISSING FIELD VALUES ARE NULL
    (day_key CHAR(8), pump, litres)
  )
  LOCATION ('fill1.csv', 'fill2.csv')
)
REJECT LIMIT UNLIMITED PARALLEL 4;
CREATE TABLE fill AS SELECT * FROM stage_fill;
MERGE INTO fill f USING stage_fill s ON (f.day_key = s.day_key)
WHEN MATCHED THEN UPDATE SET f.litres = s.litres
WHEN NOT MATCHED THEN
INSERT (day_key, pump, litres)
VALUES (s.day_key, s.pump, s.litres);
INSERT /*+ APPEND */ ALL
  WHEN litres > 100 THEN
    INTO big_fill VALUES (day_key, litres)
  ELSE
    INTO small_fill VALUES (day_key, litres)
SELECT day_key, litres FROM fill;
