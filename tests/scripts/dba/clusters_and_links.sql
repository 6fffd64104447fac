CREATE CLUSTER acc.entry_cluster (account_no NUMBER(10))
  SIZE 1024 TABLESPACE acc_data STORAGE (INITIAL 1M NEXT 1M);
CREATE INDEX acc.entry_cluster_ix ON CLUSTER acc.entry_cluster;
CREATE TABLE acc.account (account_no NUMBER(10) NOT NULL, name VARCHAR2(60)) CLUSTER acc.entry_cluster (account_no);
CREATE TABLE acc.entry (account_no NUMBER(10) NOT NULL, amount NUMBER(14,2), booked DATE)
  CLUSTER acc.entry_cluster (account_no);
CREATE CLUSTER acc.code_cluster (code VARCHAR2(4)) HASHKEYS 100 SIZE 128 SINGLE TABLE;
CREATE PUBLIC DATABASE LINK branch.acme.example USING 'branch';
CREATE PUBLIC SYNONYM account FOR acc.account;
CREATE SYNONYM acc.branch_account FOR acc.account@branch.acme.example;
ANALYZE CLUSTER acc.entry_cluster COMPUTE STATISTICS;
AUDIT SELECT, INSERT,
DELETE ON acc.account BY ACCESS;
TRUNCATE CLUSTER acc.entry_cluster;
