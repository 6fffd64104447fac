-- an upgrade read without the script that creates the tables
ALTER TABLE customer ADD (vat_no VARCHAR2(20));
ALTER TABLE customer ADD (vat_checked DATE);
CREATE INDEX cust_vat ON customer_tax (vat_no);
COMMENT ON TABLE customer_tax IS 'tax data';
DROP TABLE customer_old PURGE;
ALTER TABLE customer ADD CONSTRAINT cust_vat_uk UNIQUE (vat_no);
