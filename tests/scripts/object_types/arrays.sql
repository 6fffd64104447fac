create or replace type number_array as varray(100) of number
/
create or replace type num.name_list force is table of varchar2(4000)
/
grant execute on number_array to public
/
create table curve (id number, label varchar2(20))
/
select column_value from table(number_array(1, 2, 3))
/
create or replace procedure draw(a number_array) is begin null; end;
/
