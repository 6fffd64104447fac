create table WF_PROPERTY (
    NAME_ NVARCHAR2(64),
    VALUE_ NVARCHAR2(300),
    REV_ INTEGER,
    primary key (NAME_)
);

insert into WF_PROPERTY
values ('schema.version', '6.3', 1);

create table WF_DEPLOYMENT (
    ID_ NVARCHAR2(64),
    NAME_ NVARCHAR2(255),
    DEPLOYED_ TIMESTAMP(6),
    primary key (ID_)
);

create table WF_MODEL (
    ID_ NVARCHAR2(64) not null,
    REV_ INTEGER,
    KEY_ NVARCHAR2(255),
    DEPLOYMENT_ID_ NVARCHAR2(64),
    SUSPENDED_ NUMBER(1,0) CHECK (SUSPENDED_ IN (1,0)),
    primary key (ID_)
);

create table WF_RUN (
    ID_ NVARCHAR2(64) not null,
    MODEL_ID_ NVARCHAR2(64),
    PARENT_ID_ NVARCHAR2(64),
    IS_ACTIVE_ NUMBER(1,0) DEFAULT 1 not null CHECK (IS_ACTIVE_ IN (1,0)),
    TENANT_ID_ NVARCHAR2(255) DEFAULT '',
    primary key (ID_)
);

create table WF_BYTES (ID_ NVARCHAR2(64), BYTES_ BLOB, GENERATED_ NUMBER(1,0) CHECK (GENERATED_ IN (1,0)), primary key (ID_));

create index WF_IDX_RUN_MODEL on WF_RUN(MODEL_ID_);
create index WF_IDX_RUN_PARENT on WF_RUN(PARENT_ID_);

alter table WF_RUN
    add constraint WF_FK_RUN_PARENT
    foreign key (PARENT_ID_)
    references WF_RUN (ID_);

alter table WF_RUN
    add constraint WF_FK_RUN_MODEL
    foreign key (MODEL_ID_)
    references WF_MODEL (ID_);

alter table WF_MODEL
    add constraint WF_UNIQ_MODEL
    unique (KEY_, REV_);

create unique index WF_UNIQ_TENANT on WF_RUN
   (case when TENANT_ID_ is null then null else TENANT_ID_ end);

create sequence wf_evt_seq;
create trigger wf_evt_tr before insert on WF_BYTES for each row
begin
  :new.GENERATED_ := 0;
end;
/
alter table WF_BYTES add constraint WF_FK_BYTES foreign key (ID_) references WF_RUN;
