--  *********************************************************************
--  Update Database Script
--  *********************************************************************
--  Change Log: changes/master.xml
--  Ran at: 02/03/24 10:11
--  Against: APP@jdbc:thin:@//dbhost:1521/APP
--  *********************************************************************

SET DEFINE OFF;

--  Create Log Table
CREATE TABLE CHANGELOG (ID VARCHAR2(255) NOT NULL, AUTHOR VARCHAR2(255) NOT NULL, EXECUTED TIMESTAMP NOT NULL, MD5 VARCHAR2(35), DESCRIPTION VARCHAR2(255));

CREATE TABLE CHANGELOG_LOCK (ID INTEGER NOT NULL, LOCKED NUMBER(1) NOT NULL, CONSTRAINT PK_CHANGELOG_LOCK PRIMARY KEY (ID));

--  Initialize it
INSERT INTO CHANGELOG_LOCK (ID, LOCKED) VALUES (1, 0);

--  Changeset changes/001.xml::1::ann & bob
CREATE TABLE person (id NUMBER(38, 0) NOT NULL, name VARCHAR2(50 CHAR), CONSTRAINT pk_person PRIMARY KEY (id));

INSERT INTO CHANGELOG (ID, AUTHOR, EXECUTED, DESCRIPTION) VALUES ('1', 'ann & bob', SYSTIMESTAMP, 'createTable tableName=person; ');

--  Changeset changes/002.xml::2::bob
ALTER TABLE person ADD born date;

ALTER TABLE person MODIFY (name VARCHAR2(80 CHAR));

ALTER TABLE person RENAME COLUMN born TO birth_date;

COMMENT ON COLUMN person.birth_date IS 'as in the passport';

UPDATE CHANGELOG SET DESCRIPTION = 'done' WHERE ID = '2';
