-- --------------------------------------------------------
-- sensors.sql
-- DB definition for the sensor daemon
--
-- Requires ts names in sensor_defs.sql, see README; don't edit here
-- --------------------------------------------------------
set sqlprompt "&&_USER@&&_CONNECT_IDENTIFIER SQL>"
set pagesize 200;
set linesize 200;
set escape \
DEFINE DATATBS=SENSOR_DATA
DEFINE IXTBS = 'SENSOR_IX'
define APPUSER=sensord
whenever sqlerror exit failure
-- -----------------------------------------
-- set current schema
-- -----------------------------------------
alter session set current_schema=&&APPUSER;

CREATE TABLE acks (
id number(11),
entry_time TIMESTAMP(0) WITH LOCAL TIME ZONE DEFAULT TO_TIMESTAMP_TZ('01.01.1970 UTC','DD.MM.YYYY TZR'),
ack_type number(6) default 0,
author_name varchar2(64),
comment_data varchar2(2048)
) tablespace &&DATATBS;
alter table acks add constraint acks_pk PRIMARY KEY  (id) using index tablespace &&IXTBS;

CREATE TABLE checks (
id number(11) ,
object_id number(11) default 0,
command_line varchar2(1024),
perfdata CLOB default EMPTY_CLOB()
)
lob (perfdata) store as checks_perf(tablespace &DATATBS)
tablespace &DATATBS;
alter table checks add constraint checks_pk PRIMARY KEY
	(id)
	using index tablespace &IXTBS;
CREATE INDEX checks_obj_i ON checks(object_id) tablespace &&IXTBS;

CREATE SEQUENCE seq_acks
   start with 1
   increment by 1
   nocache nomaxvalue;
create or replace synonym &APPUSER..acknowledgements for &APPUSER..acks;
grant select on acks to &&APPUSER;
comment on table checks is 'who''s checked; by what';
CREATE OR REPLACE PROCEDURE log_check(p_id IN NUMBER) AS
v VARCHAR2(20):='&DATATBS';
BEGIN
  NULL; -- it's nothing yet
END;
/
UNDEFINE IXTBS
spool off
