#include "repora/database/log_files.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace {

// The file names of a clause as it hands them out.
template <class Clause>
std::vector<std::string> NamesOf(Clause const& clause) {
  std::vector<std::string> names;
  for (int i = 0; i < clause.GetNumFilenames(); ++i) names.emplace_back(clause.GetFilename(i));
  return names;
}

std::string GroupText(int group) {
  return group >= 0 ? "GROUP " + std::to_string(group) : std::string();
}

// 'file' | ('file' [, 'file']...)
std::string FilesText(repora::OwnedList<repora::Text> const& names) {
  return names.Join(", ", names.GetCount() > 1,
                    [](repora::Text const& name) { return "'" + name.str() + "'"; });
}

// A log file item without a name, with what both kinds of specifications say in the same way.
MOXActionSummaryItem* AddLogFile(REPProcessor* processor, MOXActionSummaryItem const& database,
                                 std::vector<std::string> const& names, REPSizeClause const& size,
                                 int group) {
  auto* const file = processor->CreateItem(database.Id(), ORVTypes::oOracleLogFile, nullptr);
  if (!file) return nullptr;
  file->SetProperty(ORVTypes::pFileNames, QELValue(names));
  repora::SetTextIfGiven(*file, ORVTypes::pOracleFileSize, size.AsString());
  if (group >= 0) repora::SetInteger(*file, ORVTypes::pGroupId, group);
  return file;
}

}  // namespace

std::string_view repora::Keyword(REPDBResetlogs_e value) {
  if (value == REPDBResetlogs_e::ResetLogs) return "RESETLOGS";
  if (value == REPDBResetlogs_e::NoResetLogs) return "NORESETLOGS";
  return {};
}

REPProcess_e REPLogFileSpec::Process(REPProcessor* processor,
                                     MOXActionSummaryItem* database) const {
  if (!processor || !database) return REPProcessError;
  REPFileSpec const no_file;
  auto const& files = file_ ? *file_ : no_file;
  auto* const item =
      AddLogFile(processor, *database, NamesOf(files), files.GetSizeClause(), group_);
  if (!item) return REPProcessError;
  repora::SetBoolean(*item, ORVTypes::pOracleReuseFile, files.GetReuse());
  return REPProcessOK;
}

std::string REPLogFileSpec::AsString() const {
  SqlText sql(GroupText(group_));
  return sql.AppendIf(group_ >= 0, " ").Append(repora::TextOf(file_.Get())).Take();
}

REPProcess_e REPLogFileSpecList::Process(REPProcessor* processor,
                                         MOXActionSummaryItem* database) const {
  if (!processor || !database) return REPProcessError;
  return clauses_.ProcessAll(
      [&](REPLogFileSpec const& file) { return file.Process(processor, database); },
      repora::ListRule::RunAllKeepFailure);
}

REPLogFileSpec* REPLogFileClause::AddLogFileSpec() {
  auto* const file = new REPLogFileSpec;
  files_.AddTail(file);
  return file;
}

REPProcess_e REPRedoLogFileSpec::Process(REPProcessor* processor,
                                         MOXActionSummaryItem* database) const {
  if (!processor || !database) return REPProcessError;
  auto* const item = AddLogFile(processor, *database, NamesOf(*this), size_, group_);
  if (!item) return REPProcessError;
  if (reuse_) repora::SetBoolean(*item, ORVTypes::pOracleReuseFile, true);
  return REPProcessOK;
}

std::string REPRedoLogFileSpec::AsString() const {
  return SqlText()
      .Part(GroupText(group_))
      .Part(FilesText(names_))
      .PartClause("SIZE ", size_.AsString())
      .Part(reuse_ ? "REUSE" : "")
      .Take();
}

REPProcess_e REPRedoLogFileSpecList::Process(REPProcessor* processor,
                                             MOXActionSummaryItem* database) const {
  if (!processor || !database) return REPProcessError;
  return clauses_.ProcessAll(
      [&](REPRedoLogFileSpec const& file) { return file.Process(processor, database); });
}

std::string REPLogFileDesc::AsString() const {
  return SqlText().Part(GroupText(group_)).Part(FilesText(names_)).Take();
}
