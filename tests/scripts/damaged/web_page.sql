<!DOCTYPE html>
<html>
<head><title>How to create a table</title>
<style>td { color: red; }</style></head>
<body onload="it's('loaded')">
<p>Here's how (and why):</p>
<pre>
CREATE TABLE recipe (
  id NUMBER,
  title VARCHAR2(100)
);
</pre>
<p>Don't forget the key!</p>
<pre class="sql">
ALTER TABLE recipe ADD CONSTRAINT recipe_pk PRIMARY KEY (id);
