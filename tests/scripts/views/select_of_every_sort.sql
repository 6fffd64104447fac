create table track (id number, artist varchar2(40), secs number, year number(4));
create view long_track as select id, artist, secs from track where secs > 600;
create or replace view track_list (no, who) as select t.id, t.artist from track t;
create or replace noforce view recent as select id from track where year >= 2020 with check option;
create view named as select id "Id", artist as "The Artist", secs seconds from track;
