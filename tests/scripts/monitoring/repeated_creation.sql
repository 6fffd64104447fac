-- run twice by accident: the second half repeats the first
drop table thresholds;
create table thresholds (
  metric varchar2(40) primary key,
  warn_at number,
  crit_at number,
  constraint warn_below_crit check (warn_at < crit_at)
);
create sequence threshold_seq;
grant select on thresholds to monitor;
-- second run
drop table thresholds;
create table thresholds (
  metric varchar2(40) primary key,
  warn_at number,
  crit_at number
);
create sequence threshold_seq;
alter table thresholds add (note varchar2(100));
comment on column thresholds.note is 'why so low';
