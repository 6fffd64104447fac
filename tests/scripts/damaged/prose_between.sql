Hi Jo,

here is what you asked for. First you need a table:

CREATE TABLE lamp (id NUMBER, watt NUMBER(4));

That one's easy, isn't it? Then an index (you'll thank me):

CREATE INDEX lamp_watt ON lamp (watt);
...and that's it. 73% faster; promised!
Greetings & all the best,
Kim

CREATE SEQUENCE lamp_seq;
