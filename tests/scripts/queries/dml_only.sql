INSERT INTO t SELECT * FROM u;
INSERT INTO t (a, b)
VALUES (1, 'x'
);
UPDATE t SET a = 1, b = (SELECT MAX(b) FROM u) WHERE a IS NULL;
DELETE t;
merge into t using (select 1 a from dual) s on (t.a = s.a)
when not matched then insert (a) values (s.a);
CALL refresh_all('x;');
COMMIT WORK;
ROLLBACK TO SAVEPOINT x;
INSERT ALL INTO t VALUES (1) INTO t VALUES (2) SELECT * FROM dual;
