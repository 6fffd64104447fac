CREATE TABLE v$copy (a$ NUMBER, b# NUMBER, c_ NUMBER, d1$#_ NUMBER);
CREATE TABLE x$# (id NUMBER, "a'b" NUMBER, "a;b" NUMBER, "a--b" NUMBER, "/" NUMBER, "a/*b" NUMBER, " lead" NUMBER);
CREATE INDEX i#1 ON v$copy (a$, b#);
CREATE SYNONYM "Ops$Joe".s FOR x$#;
COMMENT ON COLUMN x$#."a'b" IS '"''"';
CREATE VIEW "my view" ("c d") AS SELECT "a;b" FROM x$#;
