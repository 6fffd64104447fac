create table job_instance  (
	job_instance_id number(19,0)  not null primary key ,
	version number(19,0) ,
	job_name varchar2(100 char) not null,
	job_key varchar2(32 char) not null,
	constraint job_inst_un unique (job_name, job_key)
) segment creation immediate
/

create table job_run  (
	job_run_id number(19,0)  not null primary key ,
	job_instance_id number(19,0) not null,
	started timestamp(9) default null ,
	exit_message varchar2(2500 char) ,
	constraint job_inst_run_fk foreign key (job_instance_id)
	references job_instance(job_instance_id)
)
/
create sequence job_seq start with 0 minvalue 0 maxvalue 9223372036854775807 nocache nocycle
/
create index job_run_ix on job_run (job_instance_id)
/
alter table job_run add (params clob)
/
grant select, insert on job_run to batch_user
/
grant select on job_seq to batch_user
/
drop table old_job_run cascade constraints
/
comment on table job_run is 'one row per start'
/
