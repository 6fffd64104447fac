CREATE OR REPLACE LIBRARY geo_lib AS '/opt/geo/libgeo.so';
/
CREATE OR REPLACE FUNCTION distance(a NUMBER, b NUMBER) RETURN NUMBER
AS LANGUAGE C NAME "distance" LIBRARY geo_lib;
/
CREATE OR REPLACE AND COMPILE JAVA SOURCE NAMED "Geo" AS
public class Geo {
  // it's Java; "quotes" and 'c'
  public static double half(double x) { return x / 2; }
  /* CREATE TABLE no1 (a NUMBER);
  */
}
/
CREATE OR REPLACE FUNCTION half(x NUMBER) RETURN NUMBER
AS LANGUAGE JAVA NAME 'Geo.half(double) return double';
/
CREATE OR REPLACE JAVA CLASS USING BFILE (java_dir, 'Geo.class');
/
CREATE PROCEDURE noop IS BEGIN NULL; END;
/
