CREATE TABLE river (
  id serial PRIMARY KEY,
  name text NOT NULL
);
CREATE TABLE lake (id integer PRIMARY KEY, depth numeric(6,2), name varchar(40));
CREATE TABLE pond (id integer, is_deep boolean);
CREATE INDEX lake_name ON lake USING btree (name);
CREATE SEQUENCE lake_id_seq START WITH 1 INCREMENT BY 1 NO MINVALUE NO MAXVALUE CACHE 1;
