REM  A small shop, as a team would keep it in its repository: two schemas, tables with their
REM  storage, sequences and synonyms, and a few things that go wrong on purpose.
SET ECHO ON
SET DEFINE ON
DEFINE data_ts = SHOP_DATA
DEFINE index_ts = SHOP_INDEX
WHENEVER SQLERROR CONTINUE
PROMPT Creating the shop ...

-- ---------------------------------------------------------------------------
-- Sequences
-- ---------------------------------------------------------------------------
CREATE SEQUENCE shop.customer_seq START WITH 1000 INCREMENT BY 1 NOCACHE NOCYCLE;
CREATE SEQUENCE shop.order_seq    START WITH 1 MAXVALUE 999999999999 CACHE 100 ORDER;
CREATE SEQUENCE stock.movement_seq INCREMENT BY 10 NOMAXVALUE CYCLE CACHE 20;

-- ---------------------------------------------------------------------------
-- Customers and orders
-- ---------------------------------------------------------------------------
CREATE TABLE shop.customer (
  customer_id   NUMBER(10)                          NOT NULL,
  customer_no   VARCHAR2(12 BYTE),
  first_name    VARCHAR2(60 CHAR),
  last_name     VARCHAR2(60 CHAR)                   NOT NULL,
  born_on       DATE,
  status        CHAR(1 BYTE)    DEFAULT 'A',
  credit_limit  NUMBER(12,2)    DEFAULT 0,
  created_at    TIMESTAMP(6) WITH TIME ZONE DEFAULT SYSTIMESTAMP,
  notes         CLOB,
  CONSTRAINT customer_pk PRIMARY KEY (customer_id)
)
PCTFREE 10 INITRANS 2
STORAGE (INITIAL 1M NEXT 1M MAXEXTENTS UNLIMITED BUFFER_POOL KEEP)
TABLESPACE &data_ts
LOGGING
MONITORING
ENABLE ROW MOVEMENT;

COMMENT ON TABLE shop.customer IS 'People and companies that buy from us';
COMMENT ON COLUMN shop.customer.status IS 'A active, B blocked, the owner''s decision';

CREATE TABLE shop.customer_order (
  order_id      NUMBER(12),
  customer_id   NUMBER(10)      NOT NULL REFERENCES shop.customer (customer_id),
  ordered_at    TIMESTAMP WITH LOCAL TIME ZONE,
  delivery_time INTERVAL DAY(3) TO SECOND(0),
  total         NUMBER(14,2)    DEFAULT 0 NOT NULL,
  currency      CHAR(3 CHAR)    DEFAULT 'EUR',
  "Remark"      NVARCHAR2(400),
  CONSTRAINT customer_order_pk PRIMARY KEY (order_id)
)
TABLESPACE &data_ts NOLOGGING PARALLEL 4;

CREATE TABLE shop.order_item (
  order_id      NUMBER(12)      NOT NULL,
  line_no       NUMBER(4)       NOT NULL,
  product_id    NUMBER(10)      NOT NULL,
  quantity      NUMBER(9,3)     DEFAULT 1,
  price         NUMBER(12,2),
  CONSTRAINT order_item_pk PRIMARY KEY (order_id, line_no)
)
ORGANIZATION INDEX
TABLESPACE &index_ts
INCLUDING price
OVERFLOW TABLESPACE &data_ts
PCTTHRESHOLD 20;

CREATE INDEX shop.customer_order_customer_ix ON shop.customer_order (customer_id, ordered_at DESC)
  TABLESPACE &index_ts COMPRESS 1;
CREATE UNIQUE INDEX shop.customer_no_ux ON shop.customer (UPPER(customer_no)) TABLESPACE &index_ts;

ALTER TABLE shop.order_item ADD CONSTRAINT order_item_order_fk
  FOREIGN KEY (order_id) REFERENCES shop.customer_order (order_id) ON DELETE CASCADE;
ALTER TABLE shop.customer ADD (
  vip           CHAR(1)         DEFAULT 'N' NOT NULL,
  CONSTRAINT customer_vip_ck CHECK (vip IN ('Y', 'N') AND (vip = 'N' OR credit_limit >= 1000))
);

-- Baskets live as long as a session
CREATE GLOBAL TEMPORARY TABLE shop.basket (
  product_id    NUMBER(10),
  quantity      NUMBER(9,3)
) ON COMMIT PRESERVE ROWS;

-- ---------------------------------------------------------------------------
-- Products and stock, owned by another schema and clustered by product
-- ---------------------------------------------------------------------------
CREATE TABLE stock.product (
  product_id    NUMBER(10),
  name          VARCHAR2(120 CHAR),
  description   XMLTYPE,
  picture       BLOB,
  weight_kg     BINARY_DOUBLE,
  location      MDSYS.SDO_GEOMETRY
)
CLUSTER stock.product_cluster (product_id);

CREATE TABLE stock.movement (
  movement_id   INTEGER,
  product_id    NUMBER(10),
  moved_on      DATE            DEFAULT TRUNC(SYSDATE, 'DD'),
  quantity      NUMBER,
  reason        VARCHAR2(200),
  quantity      FLOAT(10)
)
COMPRESS NOCACHE PCTFREE 0;

-- ---------------------------------------------------------------------------
-- What the shop looks at
-- ---------------------------------------------------------------------------
CREATE OR REPLACE VIEW shop.active_customer (id, name, limit_eur) AS
  SELECT c.customer_id, c.last_name, c.credit_limit * 1.17
    FROM customer c
   WHERE c.status = 'A'
   ORDER BY c.last_name
  WITH CHECK OPTION CONSTRAINT active_customer_ck;

CREATE VIEW shop.good_customer AS
  SELECT id, name, SUBSTR(name, 1, 1) initial FROM active_customer WHERE limit_eur > 10000;

-- more than columns of tables: kept as it is
CREATE VIEW shop.order_value AS
  SELECT o.order_id, SUM(i.quantity * i.price) value
    FROM customer_order o JOIN order_item i ON i.order_id = o.order_id
   GROUP BY o.order_id;

CREATE TABLE shop.customer_archive TABLESPACE &data_ts AS
  SELECT customer_id, last_name, SYSDATE archived_at FROM customer;

-- ---------------------------------------------------------------------------
-- Sales by year
-- ---------------------------------------------------------------------------
CREATE TABLESPACE shop_archive
  DATAFILE '/u02/oradata/shop/archive01.dbf' SIZE 2G AUTOEXTEND ON NEXT 512M MAXSIZE 20G
  EXTENT MANAGEMENT LOCAL AUTOALLOCATE SEGMENT SPACE MANAGEMENT AUTO;

CREATE TABLE shop.sale (
  sale_id       NUMBER(12)      NOT NULL,
  sold_on       DATE            NOT NULL,
  region        VARCHAR2(2),
  receipt       CLOB
)
LOB (receipt) STORE AS receipt_lob (TABLESPACE shop_archive CHUNK 8K NOCACHE NOLOGGING)
PARTITION BY RANGE (sold_on)
  SUBPARTITION BY LIST (region) SUBPARTITION TEMPLATE (
    SUBPARTITION home VALUES ('DE', 'AT', 'CH'),
    SUBPARTITION abroad VALUES (DEFAULT))
 (PARTITION sale_2025 VALUES LESS THAN (DATE '2026-01-01') TABLESPACE shop_archive COMPRESS,
  PARTITION sale_now  VALUES LESS THAN (MAXVALUE) TABLESPACE &data_ts);
CREATE INDEX shop.sale_ix ON shop.sale (sold_on, region) LOCAL;
ALTER TABLE shop.sale RENAME PARTITION sale_now TO sale_2026;

-- ---------------------------------------------------------------------------
-- Code
-- ---------------------------------------------------------------------------
CREATE OR REPLACE TRIGGER shop.customer_bi
  BEFORE INSERT OR UPDATE OF last_name ON shop.customer
  FOR EACH ROW WHEN (NEW.customer_no IS NULL)
BEGIN
  :NEW.customer_no := 'C' || TO_CHAR(:NEW.customer_id); -- a ';' in a comment
END;
/
CREATE OR REPLACE PACKAGE shop.pricing AUTHID DEFINER AS
  FUNCTION net (gross NUMBER) RETURN NUMBER;
END pricing;
/
CREATE OR REPLACE PACKAGE BODY shop.pricing AS
  FUNCTION net (gross NUMBER) RETURN NUMBER IS
  BEGIN
    RETURN CASE WHEN gross IS NULL THEN 0 ELSE gross / 1.19 END;
  END;
END pricing;
/
CREATE USER shop_report IDENTIFIED BY "S3cret;" DEFAULT TABLESPACE &data_ts QUOTA 100M ON &data_ts;

-- ---------------------------------------------------------------------------
-- Names for everybody
-- ---------------------------------------------------------------------------
CREATE PUBLIC SYNONYM customer FOR shop.customer;
CREATE OR REPLACE PUBLIC SYNONYM product FOR stock.product;
CREATE SYNONYM shop.exchange_rates FOR treasury.rates@finance.example.com;

ALTER SEQUENCE shop.order_seq MAXVALUE 9999999999999 CACHE 500;

-- ---------------------------------------------------------------------------
-- What goes wrong
-- ---------------------------------------------------------------------------
-- made twice
CREATE SEQUENCE SHOP.CUSTOMER_SEQ START WITH 1;
-- never made
ALTER SEQUENCE shop.invoice_seq INCREMENT BY 5;
-- products come without a primary key
ALTER TABLE shop.order_item ADD CONSTRAINT order_item_product_fk
  FOREIGN KEY (product_id) REFERENCES stock.product;
-- columns are not taken away
ALTER TABLE shop.customer DROP COLUMN born_on;
-- the column does not exist
CREATE TABLE shop.rebate (
  rebate_id     NUMBER(6),
  percent       NUMBER(3,1)
)
ORGANIZATION INDEX INCLUDING valid_until OVERFLOW;
-- the comma is missing
CREATE TABLE shop.voucher (
  voucher_id    NUMBER(10)
  code          VARCHAR2(20)
);

-- Data has no place in a data model
INSERT INTO shop.customer (customer_id, last_name) VALUES (1, 'Miller; Sons');
INSERT INTO shop.customer (customer_id, last_name) VALUES (2, 'O''Hara');
GRANT SELECT ON shop.customer TO PUBLIC;
COMMIT;
PROMPT Done.
EXIT
