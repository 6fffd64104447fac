-- Tabelle der Gemüsesorten; für "Größe" siehe unten - nein: siehe Handbuch
CREATE TABLE gemuese (nr NUMBER(4), name VARCHAR2(40), größe NUMBER(4,1));
COMMENT ON COLUMN gemuese.name IS 'z. B. Möhre; Rübe';
/* Où est l'été ? */
CREATE INDEX gemuese_größe ON gemuese (größe);
PROMPT Übersicht über Gemüse wird angelegt; bitte warten
INSERT INTO gemuese VALUES (1, 'Möhre', 17.5);
CREATE VIEW übersicht AS SELECT nr, größe FROM gemuese;
