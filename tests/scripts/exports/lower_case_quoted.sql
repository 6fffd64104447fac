CREATE TABLE "shop"."Kunde" ("Kd-Nr" NUMBER(8) NOT NULL, "Straße" VARCHAR2(60), "PLZ / Ort" VARCHAR2(60), "e.mail" VARCHAR2(99))
/
ALTER TABLE "shop"."Kunde" ADD CONSTRAINT "PK Kunde" PRIMARY KEY ("Kd-Nr")
/
CREATE TABLE "shop"."Auftrag" ("Nr" NUMBER(8) NOT NULL PRIMARY KEY, "Kd-Nr" NUMBER(8) NOT NULL, "Betrag €" NUMBER(10,2) DEFAULT 0.00)
/
ALTER TABLE "shop"."Auftrag" ADD CONSTRAINT "FK Auftrag;Kunde" FOREIGN KEY ("Kd-Nr") REFERENCES "shop"."Kunde" ("Kd-Nr")
/
CREATE INDEX "shop"."IX -- Ort" ON "shop"."Kunde" ("PLZ / Ort", "Straße")
/
COMMENT ON COLUMN "shop"."Auftrag"."Betrag €" IS 'brutto; ohne Porto'
/
CREATE VIEW "shop"."Kunden mit Auftrag" ("Nr", "Kd-Nr") AS
SELECT "Nr", "Kd-Nr" FROM "shop"."Auftrag"
/
