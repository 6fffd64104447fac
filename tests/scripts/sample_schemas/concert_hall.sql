rem concert_hall.sql
rem
rem    MODIFIED   (MM/DD/YY)
rem    sly         05/04/04 - first version; nothing to see
rem
spool concert_hall.log
whenever sqlerror exit sql.sqlcode
set echo off feedback off

prompt creating the halls...
create table halls (
  hall_no   number(3)     constraint hall_pk primary key,
  name      varchar2(60)  not null,
  seats     number(5)     constraint hall_seats_ck check (seats > 0 and seats < 20000)
);

prompt creating the concerts...
create table concerts (
  concert_no  number(8),
  hall_no     number(3) not null references halls (hall_no) on delete cascade,
  starts_at   timestamp(0) not null,
  title       varchar2(200 char),
  price       number(7,2) default 0,
  constraint concert_pk primary key (concert_no),
  constraint concert_price_ck check (price >= 0)
);

create index concert_hall_ix on concerts (hall_no);
create index concert_title_ix on concerts (upper(title));

create table artists (
  artist_no number(8) primary key,
  name      varchar2(100) not null unique
);

create table plays_at (
  artist_no  number(8) not null,
  concert_no number(8) not null,
  constraint plays_pk primary key (artist_no, concert_no),
  constraint plays_artist_fk foreign key (artist_no) references artists (artist_no),
  constraint plays_concert_fk foreign key (concert_no) references concerts (concert_no)
) ;

comment on table plays_at is 'Who plays when';
comment on column plays_at.artist_no is 'see artists';
create sequence concert_seq start with 1000;

prompt loading - this takes a while
set scan off
insert into halls (hall_no, name, seats) values (1, 'Rock & Roll Hall', 900);
commit;
spool off
exit
