#include "repora/database/rollback_segments.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"

using repora::SqlText;

REPProcess_e REPCreateRollbackSegment::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const root = processor->GetRoot();
  MOXActionSummaryItem* segment = nullptr;
  if (auto const result =
          processor->AddItem(root, ORVTypes::oOracleRollbackSegment, name_.Get(), segment);
      result != REPProcessOK)
    return result;
  if (storage_.GetClausePresent()) storage_.Process(processor, segment);
  repora::AddBoolean(*segment, ORVTypes::pOraclePublic, public_);
  if (tablespace_)
    repora::AddReference(
        *segment, ORVTypes::pOracleTablespaceRef,
        processor->FindCreateItem(root, ORVTypes::oOracleTablespace, tablespace_.Get()));
  return REPProcessOK;
}

std::string REPCreateRollbackSegment::AsString() const {
  SqlText sql("CREATE");
  sql.AppendIf(public_, " PUBLIC")
      .Append(" ROLLBACK SEGMENT ")
      .Name(name_.Get())
      .Clause(" TABLESPACE ", tablespace_.Get());
  if (storage_.GetClausePresent()) sql.Option(storage_.AsString());
  return sql.Append(";").Take();
}

REPProcess_e REPAlterRollbackSegment::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const segment =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOracleRollbackSegment, name_.Get());
  if (!segment) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oOracleRollbackSegment),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  if (storage_.GetClausePresent()) storage_.Process(processor, segment);
  repora::WriteOnOff(*segment, on_off_);
  return REPProcessOK;
}

std::string REPAlterRollbackSegment::AsString() const {
  SqlText sql("ALTER ROLLBACK SEGMENT ");
  sql.Name(name_.Get());
  if (on_off_ == REPOnOff_e::Online || on_off_ == REPOnOff_e::Offline)
    sql.Option(repora::Keyword(on_off_));
  if (storage_.GetClausePresent()) sql.Option(storage_.AsString());
  if (shrink_) sql.Append(" SHRINK").Append(shrink_size_.AsString(" TO "));
  return sql.Append(";").Take();
}
