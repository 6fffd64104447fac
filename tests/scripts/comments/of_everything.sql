CREATE TABLE door (id NUMBER, colour VARCHAR2(10));
CREATE VIEW red_door AS SELECT id FROM door;
COMMENT ON TABLE door IS 'a door; not a gate';
COMMENT ON COLUMN door.id IS '';
COMMENT ON COLUMN door.colour IS 'two
lines';
COMMENT ON TABLE red_door IS 'a view';
COMMENT ON COLUMN red_door.id IS q'[don't]';
