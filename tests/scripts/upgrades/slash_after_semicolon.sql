CREATE TABLE ticket (id NUMBER PRIMARY KEY, opened DATE);
/
ALTER TABLE ticket ADD (closed DATE);
/

CREATE SEQUENCE ticket_seq;

/
INSERT INTO ticket (id) VALUES (1);
/
CREATE OR REPLACE VIEW open_tickets AS SELECT id FROM ticket WHERE closed IS NULL;
   /
COMMENT ON TABLE ticket IS 'a / b';
	/	
COMMIT
/
/
;
