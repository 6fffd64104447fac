REM
REM  library_loans.sql - tables of the library of a small town
REM
REM  NOTES
REM    Don't run it as SYS; it's meant for the owner's own schema.
REM
SET FEEDBACK 1
SET NUMWIDTH 10
SET LINESIZE 80
SET TRIMSPOOL ON
SET PAGESIZE 100
PROMPT
PROMPT ******  Creating BRANCHES table ....

CREATE TABLE branches
    ( branch_id      NUMBER
       CONSTRAINT  branch_id_nn NOT NULL
    , branch_name    VARCHAR2(25)
    );

CREATE UNIQUE INDEX branch_id_pk
ON branches (branch_id);

ALTER TABLE branches
ADD ( CONSTRAINT branch_pk
       		 PRIMARY KEY (branch_id)
    ) ;

REM ********************************************************************
PROMPT ******  Creating MEMBERS table (a member's branch is optional) ....

CREATE TABLE members
    ( member_id      NUMBER(6)
    , last_name      VARCHAR2(25)
	 CONSTRAINT     memb_last_name_nn  NOT NULL
    , email          VARCHAR2(25)
	CONSTRAINT     memb_email_nn  NOT NULL
    , joined         DATE DEFAULT SYSDATE
    , branch_id      NUMBER
    , CONSTRAINT     memb_email_uk UNIQUE (email)
    ) ;

ALTER TABLE members
ADD ( CONSTRAINT     memb_pk PRIMARY KEY (member_id)
    , CONSTRAINT     memb_branch_fk FOREIGN KEY (branch_id)
        REFERENCES branches
    ) ;

COMMENT ON TABLE members
IS 'People who may borrow books';

CREATE SEQUENCE members_seq
 START WITH     207
 INCREMENT BY   1
 NOCACHE
 NOCYCLE;

CREATE OR REPLACE VIEW branch_members
  ( member_id, last_name, branch_name )
AS SELECT m.member_id, m.last_name, b.branch_name
  FROM members m, branches b
 WHERE m.branch_id = b.branch_id
WITH READ ONLY;

INSERT INTO branches VALUES (1, 'Harbour');
INSERT INTO branches VALUES (2, 'King''s Road');
INSERT INTO branches VALUES (3, 'R;D --not a comment');
COMMIT;

CREATE OR REPLACE PROCEDURE check_open IS
BEGIN
  IF TO_CHAR (SYSDATE, 'HH24') NOT BETWEEN '08' AND '18' THEN
	RAISE_APPLICATION_ERROR (-20205, 'The library is closed; come back tomorrow');
  END IF;
END check_open;
/

CREATE OR REPLACE TRIGGER secure_members
  BEFORE INSERT OR UPDATE OR DELETE ON members
BEGIN
  check_open;
END secure_members;
/

ALTER TRIGGER secure_members DISABLE;
GRANT SELECT ON members TO PUBLIC;
