CREATE TABLE quiz (
  a NUMBER CHECK (a > 0 AND (a < 10 OR a = 99) AND NOT a = 5),
  b VARCHAR2(20) CHECK (b IS NULL OR b LIKE 'x\_%' ESCAPE '\'),
  c DATE CHECK (c >= DATE '2000-01-01' AND TO_CHAR(c, 'D') NOT IN ('1', '7')),
  d NUMBER CHECK (MOD(d, 2) = 0),
  e VARCHAR2(5) CHECK (e IN ('a', 'b') OR LENGTH(TRIM(e)) >= 3),
  f NUMBER, g NUMBER,
  CONSTRAINT quiz_ck1 CHECK ((f IS NULL AND g IS NULL) OR (f IS NOT NULL AND g IS NOT NULL)),
  CONSTRAINT quiz_ck2 CHECK (CASE WHEN f > 1 THEN 1 ELSE 0 END + NVL(g, 0) * 2 <= 5),
  CONSTRAINT quiz_ck3 CHECK (REGEXP_LIKE(b, '^[a-z;]+$'))
);
