SELECT * FROM dual;
select a, b -- c; d
from t where x = ';' /* ; */ and y = 'it''s'
/
(SELECT 1 FROM dual) UNION (SELECT 2 FROM dual);
WITH a AS (SELECT 1 x FROM dual), b AS (SELECT 2 y FROM dual)
SELECT x, y FROM a, b;
SELECT CASE WHEN a = 1 THEN 'CREATE TABLE no1 (a NUMBER);' END
FROM t
WHERE EXISTS
(SELECT 1
 FROM u);
SELECT LEVEL FROM dual CONNECT BY LEVEL < 5;
COLUMN a FORMAT A5
