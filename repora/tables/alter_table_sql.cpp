#include "repora/core/sql_text.h"
#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/alter_columns.h"
#include "repora/tables/alter_partitions.h"
#include "repora/tables/alter_table.h"
#include "repora/tables/constraints.h"
#include "repora/tables/external_table.h"
#include "repora/tables/supplemental_logging.h"
#include "repora/tables/table_column_props.h"
#include "repora/tables/table_organisation.h"

using repora::SqlText;
using repora::TextOf;

namespace {

std::string_view UpgradeText(REPUpgrade_e upgrade) {
  switch (upgrade) {
    case REPUpgrade_e::None: break;
    case REPUpgrade_e::Upgrade: return "UPGRADE";
    case REPUpgrade_e::IncludingData: return "UPGRADE INCLUDING DATA";
    case REPUpgrade_e::NotIncludingData: return "UPGRADE NOT INCLUDING DATA";
  }
  return {};
}

std::string_view RecordsText(REPRecBlock_e records) {
  switch (records) {
    case REPRecBlock_e::None: break;
    case REPRecBlock_e::Minimize: return "MINIMIZE RECORDS_PER_BLOCK";
    case REPRecBlock_e::NoMinimize: return "NOMINIMIZE RECORDS_PER_BLOCK";
  }
  return {};
}

std::string_view RowMovementText(REPRowMovement_e movement) {
  switch (movement) {
    case REPRowMovement_e::None: break;
    case REPRowMovement_e::Disable: return "DISABLE ROW MOVEMENT";
    case REPRowMovement_e::Enable: return "ENABLE ROW MOVEMENT";
  }
  return {};
}

// The constraint that DROP means, in the terms of MODIFY.
REPModifyConstr_e KindOf(REPDropConstr_e drop) {
  switch (drop) {
    case REPDropConstr_e::None: break;
    case REPDropConstr_e::PrimaryKey: return REPModifyConstr_e::PrimaryKey;
    case REPDropConstr_e::Unique: return REPModifyConstr_e::Unique;
    case REPDropConstr_e::Constraint: return REPModifyConstr_e::Constraint;
  }
  return REPModifyConstr_e::None;
}

}  // namespace

std::string REPAlterTableProps::AsString() const {
  return SqlText()
      .Part(TextOf(compression_.Get()))
      .PartClause(supplemental_mode_ == REPSuppLog_e::Drop ? "DROP " : "ADD ",
                  supplemental_logging_ ? supplemental_logging_->AsString() : std::string())
      .Part(TextOf(allocate_.Get()))
      .Part(TextOf(deallocate_.Get()))
      .Part(repora::Keyword(shrink_))
      .Part(repora::Keyword(cache_))
      .Part(UpgradeText(upgrade_))
      .Part(upgrade_columns_ ? upgrade_columns_->AsString(false) : std::string())
      .Part(RecordsText(records_per_block_))
      .Part(TextOf(parallel_.Get()))
      .Part(RowMovementText(row_movement_))
      .PartClause("RENAME TO ", repora::AsWritten(new_name_.Get()))
      .Part(TextOf(segment_.Get()))
      .Part(IndexOrganizationText())
      .Take();
}

std::string REPAlterTableProps::IndexOrganizationText() const {
  bool const coalesce = iot_coalesce_ || iot_ == REPIOT_e::Coalesce;
  return SqlText()
      .Part(coalesce ? "COALESCE" : "")
      .Part(TextOf(iot_properties_.Get()))
      .PartClause("INCLUDING ", iot_including_column_)
      .Part(iot_ == REPIOT_e::Overflow ? "OVERFLOW" : "")
      .Part(TextOf(iot_segment_.Get()))
      .Part(iot_ == REPIOT_e::MappingTable ? "MAPPING TABLE" : "")
      .Part(TextOf(iot_allocate_.Get()))
      .Part(TextOf(iot_deallocate_.Get()))
      .Part(TextOf(iot_add_overflow_.Get()))
      .Take();
}

std::string REPAlterTable::AsString() const {
  SqlText sql("ALTER TABLE ");
  sql.Name(name_.Get())
      .Option(TextOf(move_.Get()))
      .Option(TextOf(props_.Get()))
      .Option(TextOf(columns_.Get()))
      .Option(repora::AddClauseText(TextOf(constraint_.Get())))
      .Option(repora::AddClauseText(TextOf(ref_constraint_.Get())));
  if (repora::IsGiven(old_constraint_.Get()) && repora::IsGiven(new_constraint_.Get()))
    sql.Append(" RENAME CONSTRAINT ")
        .Name(old_constraint_.Get())
        .Append(" TO ")
        .Name(new_constraint_.Get());
  if (auto const text = ConstraintText(modify_); !text.empty())
    sql.Append(" MODIFY ").Append(text).Option(TextOf(state_.Get()));
  if (auto const text = ConstraintText(KindOf(drop_)); !text.empty())
    sql.Append(" DROP ")
        .Append(text)
        .AppendIf(cascade_, " CASCADE")
        .AppendIf(keep_drop_ == REPKeepDrop_e::KeepIndex, " KEEP INDEX")
        .AppendIf(keep_drop_ == REPKeepDrop_e::DropIndex, " DROP INDEX");
  return sql.Option(TextOf(partitioning_.Get()))
      .Option(TextOf(external_.Get()))
      .Option(TextOf(enable_disable_.Get()))
      .Append(";")
      .Take();
}

std::string REPAlterTable::ConstraintText(REPModifyConstr_e kind) const {
  switch (kind) {
    case REPModifyConstr_e::None: break;
    case REPModifyConstr_e::Constraint:
      return SqlText("CONSTRAINT ").Name(old_constraint_.Get()).Take();
    case REPModifyConstr_e::PrimaryKey: return "PRIMARY KEY";
    case REPModifyConstr_e::Unique:
      return SqlText("UNIQUE")
          .Option(constraint_columns_ ? constraint_columns_->AsString(true) : std::string())
          .Take();
  }
  return {};
}
