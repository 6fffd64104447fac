#include "repora/database/control_files.h"

#include "repora/code/script_templates.h"
#include "repora/core/processor.h"
#include "repora/core/sql_text.h"

using repora::SqlText;

namespace {

void AppendLimit(SqlText& sql, std::string_view keyword, int limit) {
  if (limit >= 0) sql.Append(keyword).Number(limit);
}

// "CREATE PFILE='file' FROM SPFILE='file';" and the other way round.
std::string ParameterFileText(std::string_view kind, repora::Text const& file,
                              std::string_view source_kind, repora::Text const& source) {
  SqlText sql("CREATE ");
  sql.Append(kind);
  if (file.empty())
    sql.Append(" ");
  else
    sql.Append("='").Append(file).Append("' ");
  sql.Append("FROM ").Append(source_kind);
  if (!source.empty()) sql.Append("='").Append(source).Append("'");
  return sql.Append(";").Take();
}

}  // namespace

std::string REPCreateControlfile::AsString() const {
  SqlText sql("CREATE CONTROLFILE");
  sql.AppendIf(reuse_, " REUSE")
      .AppendIf(set_, " SET")
      .Append(" DATABASE")
      .Option(repora::AsWritten(name_.Get()))
      .Option(repora::TextOf(log_files_.Get()))
      .Option(repora::Keyword(reset_logs_))
      .Option(repora::TextOf(data_files_.Get()));
  AppendLimit(sql, " MAXLOGFILES ", max_log_files_);
  AppendLimit(sql, " MAXLOGMEMBERS ", max_log_members_);
  AppendLimit(sql, " MAXLOGHISTORY ", max_log_history_);
  AppendLimit(sql, " MAXDATAFILES ", max_data_files_);
  AppendLimit(sql, " MAXINSTANCES ", max_instances_);
  return sql.AppendIf(archive_log_, " ARCHIVELOG")
      .AppendIf(force_logging_, " FORCE LOGGING")
      .Clause(" CHARACTER SET ", character_set_)
      .Take();
}

REPProcess_e REPCreatePFile::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  return repora::AddPreScript(*processor, "CREATE PFILE " + pfile_.str(), *this);
}

std::string REPCreatePFile::AsString() const {
  return ParameterFileText("PFILE", pfile_, "SPFILE", spfile_);
}

REPProcess_e REPCreateSPFile::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  return repora::AddPreScript(*processor, "CREATE SPFILE " + spfile_.str(), *this);
}

std::string REPCreateSPFile::AsString() const {
  return ParameterFileText("SPFILE", spfile_, "PFILE", pfile_);
}
