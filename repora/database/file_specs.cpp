#include "repora/database/file_specs.h"

#include <string_view>

#include "repora/core/name.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

REPProcess_e REPAutoExtendClause::Process(REPProcessor* /*processor*/,
                                          MOXActionSummaryItem* file) const {
  if (!file) return REPProcessError;
  if (!present_) return REPProcessOK;
  repora::SetBoolean(*file, ORVTypes::pAutoExtend, !off_);
  if (next_.GetType() != REPSizeType_e::None)
    repora::SetText(*file, ORVTypes::pAutoExtendNextValue, next_.AsString());
  switch (max_.GetType()) {
    case REPSizeType_e::None:
    case REPSizeType_e::KeywordOnly:
    case REPSizeType_e::Null: break;
    case REPSizeType_e::Unlimited:
      repora::SetInteger(*file, ORVTypes::pOracleMaxExtentType,
                         repora::codes::kMaxExtentsUnlimited);
      break;
    default: repora::SetText(*file, ORVTypes::pAutoExtendMaxSize, max_.AsString());
  }
  return REPProcessOK;
}

std::string REPAutoExtendClause::AsString() const {
  if (off_) return "AUTOEXTEND OFF";
  return SqlText("AUTOEXTEND ON")
      .Append(next_.AsString(" NEXT "))
      .Append(max_.AsString(" MAXSIZE "))
      .Take();
}

REPProcess_e REPFileSpec::Process(REPProcessor* processor, MOXActionSummaryItem* owner) const {
  if (!processor || !owner) return REPProcessError;
  auto const type = ORVTypes::oOraclePhysicalFile;
  if (names_.IsEmpty()) WriteProperties(processor, processor->CreateItem(owner->Id(), type, {}));
  auto result = REPProcessOK;
  for (int i = 0; i < names_.GetCount(); ++i) {
    std::string_view const text = *names_.At(i);
    REPName name;  // one segment: the dots of a path separate nothing
    name.AddTail(GetFilename(i));
    MOXActionSummaryItem* file = nullptr;
    if (text.empty() || text.front() == '+') {
      file = processor->CreateItem(owner->Id(), type, &name);
    } else {
      result = processor->AddItem(owner->Id(), type, &name, file);
      if (result != REPProcessOK) {
        processor->DisplayWarning(REPMessage::DatafileExists, GetFilename(i),
                                  processor->GetObjectDisplayString(owner->Type()), owner->Name());
        continue;
      }
    }
    WriteProperties(processor, file);
  }
  return result;
}

void REPFileSpec::WriteProperties(REPProcessor* processor, MOXActionSummaryItem* file) const {
  if (!file) return;
  repora::SetTextIfGiven(*file, ORVTypes::pOracleFileSize, size_.AsString());
  repora::SetBoolean(*file, ORVTypes::pOracleReuseFile, reuse_);
  autoextend_.Process(processor, file);
}

std::string REPFileSpec::AsString() const {
  SqlText sql(names_.Join(", ", names_.GetCount() > 1,
                          [](repora::Text const& name) { return "'" + name.str() + "'"; }));
  sql.Append(size_.AsString(" SIZE ")).AppendIf(reuse_, " REUSE");
  if (autoextend_.GetClausePresent()) sql.Append(" ").Append(autoextend_.AsString());
  return sql.Take();
}

REPProcess_e REPFileSpecList::Process(REPProcessor* processor, MOXActionSummaryItem* owner) const {
  if (!processor || !owner) return REPProcessError;
  return files_.ProcessAll([&](REPFileSpec const& file) { return file.Process(processor, owner); },
                           repora::ListRule::RunAllKeepFailure);
}

std::string REPFileSpecList::AsString(bool parenthesised) const {
  return files_.Join(", ", parenthesised && files_.GetCount() > 1,
                     [](REPFileSpec const& file) { return file.AsString(); });
}

REPProcess_e REPDataFileClause::Process(REPProcessor* processor,
                                        MOXActionSummaryItem* owner) const {
  if (!processor || !owner) return REPProcessError;
  files_.Process(processor, owner);
  return REPProcessOK;
}

std::string REPDataFileClause::AsString() const {
  return "DATAFILE " + FilesAsString();
}
