CREATE TABLE hr_app . staff ( id NUMBER , boss NUMBER ) ;
CREATE TABLE "hr_app" . "Staff List" ( id NUMBER ) ;
CREATE UNIQUE INDEX hr_app.staff_ix ON hr_app.staff(id);
ALTER TABLE hr_app.staff ADD CONSTRAINT staff_pk PRIMARY KEY(id)USING INDEX hr_app.staff_ix;
ALTER TABLE hr_app.staff ADD CONSTRAINT staff_fk FOREIGN KEY(boss)REFERENCES hr_app.staff(id);
CREATE SEQUENCE hr_app/* the owner */./* the name */staff_seq;
COMMENT ON COLUMN hr_app . staff . boss IS 'boss';
CREATE OR REPLACE VIEW hr_app.bosses AS SELECT s.boss FROM hr_app.staff s;
