CREATE TABLE config (id NUMBER PRIMARY KEY, doc CLOB DEFAULT '{"a": [1, 2; 3], "b": {"c": null} }', xml VARCHAR2(4000));
INSERT INTO config VALUES (1, '{
  "name": "it''s",
  "sql": "CREATE TABLE no1 (a NUMBER);",
  "path": "/",
  "list": [
/
  ]
}', NULL);
INSERT INTO config VALUES (2, q'{ {"x": 'y;'} }', q'[<a href='x.html'>--no comment</a>]');
INSERT INTO config (id, xml) VALUES (3, '<?xml version="1.0"?>
<root>
  <!-- it''s a comment; -->
  <item price="&#8364; 5"/>
</root>');
COMMENT ON COLUMN config.doc IS 'JSON such as {"key": "value;"}';
ALTER TABLE config ADD CONSTRAINT config_ck CHECK (doc LIKE '{%}' AND xml NOT LIKE '%;%''%');
UPDATE config SET doc = '/* no hint */' WHERE id = 1;
CREATE VIEW config_names AS SELECT id, doc FROM config WHERE xml <> '<none/>;';
