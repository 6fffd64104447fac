create table kpi (id number(6) primary key, name varchar2(60), target number, "year" number(4));
create table kpi_value (kpi_id number(6) references kpi, month date, value number);
create or replace view kpi_best as
with ranked as (
  select v.kpi_id, v.value, row_number() over (partition by v.kpi_id order by v.value desc nulls last) rn
  from kpi_value v
)
select r.kpi_id, r.value from ranked r where r.rn = 1;
create or replace force view kpi_names (id, label) as
select id, name || ' (target: ' || target || ');' from kpi
with check option constraint kpi_names_co;
create view kpi_codes as select id, name from kpi where name like 'a''b;%' order by 1;
comment on table kpi_names is 'labels; for the report''s legend';
select count(*) from kpi_value group by rollup (kpi_id, month);
with x as (select 1 a from dual) select a from x
/
