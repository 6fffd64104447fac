CREATE TABLE	café (	id	NUMBER,	"名前"	VARCHAR2(40)	);
	CREATE TABLE	茶 (	id NUMBER,	"値段"	NUMBER(6,2)	);
	CREATE INDEX 索引 ON	茶	id;
-- 絵文字 😀 ' 😀
CREATE INDEX "😀" ON	茶 (	id, , "値段");
