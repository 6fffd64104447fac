CREATE TABLE tray (id NUMBER
, colour VARCHAR2(10)
)
;
ALTER TABLE tray ADD CONSTRAINT tray_pk
PRIMARY KEY (id)

;
CREATE INDEX tray_colour ON tray (colour) -- an index
;

;
CREATE VIEW red_trays AS
SELECT id FROM tray
WHERE colour = 'red'

-- the end
;
SELECT *
FROM tray

WHERE id = 1
;
CREATE SEQUENCE tray_seq /* ; */ ;
