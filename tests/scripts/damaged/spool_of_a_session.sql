SQL> create table glass (id number, size_ml number);

Table created.

SQL> insert into glass values (1, 200);

1 row created.

SQL> desc glass
 Name                                      Null?    Type
 ----------------------------------------- -------- ----------------------------
 ID                                                 NUMBER

SQL> SQL> 
create table bottle (id number, cork char(1));
Table created.

Elapsed: 00:00:00.04
create index bottle_cork on bottle (cork);
create index bottle_x on bottle (nothing)
                                *
ERROR at line 1:
ORA-00904: "NOTHING": invalid identifier

insert into bottle values (1, 'Y');
create sequence bottle_seq;
Sequence created.

Disconnected from the database - don't worry
