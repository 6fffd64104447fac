prompt installing the watchdog
@common/settings
@@sub/tables.sql
create table watchdog (id number(9) primary key, last_bark date);
START views.sql some "argument two"
create or replace view silent_dogs as select id from watchdog where last_bark is null;
@bodies.pkb;
create synonym dogs for watchdog;
@@../end
