/*
 * check_results.sql -- what's stored of every check; "quotes" and 'quotes' and ; in here
 */
create table hosts(host_id number(10) not null, name1 varchar2(128), constraint hosts_pk primary key(host_id));
/* one line */ create table services /* inside; */ (
  service_id number(10) not null, -- the id; as in "services"
  host_id /* fk' */ number(10) not null,
  -- display_name varchar2(64),
  check_period varchar2(24) default '24x7' -- it's around the clock
    not null,
  constraint services_pk primary key(service_id) /* ; */
) -- end of services;
;
create index services_host on services(host_id)--no blank before this
/
alter table services add constraint services_hosts_fk foreign key(host_id)/*
  over two lines */references hosts(host_id);
create or replace function service_count(p_host number) return number is
  n number; -- don't count twice
begin
  /* end; */
  select count(*) into n from services where host_id = p_host; -- end;
  return n;
exception
  when others then
    return q'[-1; end;]';
end service_count;
/
-- trailing; comment
create sequence check_seq--1
  start with--2
  10--3
  ;
create sequence /**/ notify_seq /***/ cycle maxvalue 100 cache 5 /*--*/;
-- /* an open comment in a line comment is none
