#include <string>

#include "reader/parse_file_specs.h"
#include "reader/parse_log_files.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/replace.h"
#include "repora/database/control_files.h"

namespace repora::reader {
namespace {

void ParseOption(TokenStream& in, REPCreateControlfile& file) {
  using Statement = REPCreateControlfile;
  if (ParseLimit(in, file)) return;
  if (in.Accept(K_LOGFILE)) {
    Replace(file, &Statement::GetLogFileClause, &Statement::SetLogFileClause, ParseLogFiles(in));
  } else if (in.Accept(K_DATAFILE)) {
    Replace(file, &Statement::GetDataFileClause, &Statement::SetDataFileClause, ParseDataFiles(in));
  } else if (in.Accept(K_RESETLOGS)) {
    file.SetResetLogs(REPDBResetlogs_e::ResetLogs);
  } else if (in.Accept(K_NORESETLOGS)) {
    file.SetResetLogs(REPDBResetlogs_e::NoResetLogs);
  } else if (in.Is(K_ARCHIVELOG) || in.Is(K_NOARCHIVELOG)) {
    file.SetArchiveLog(in.Next().word == K_ARCHIVELOG);
  } else if (in.Accept(K_FORCE, K_LOGGING)) {
    file.SetForceLogging(true);
  } else if (in.Accept(K_CHARACTER, K_SET)) {
    file.SetCharacterSet(ParseSimpleName(in)->AsString(false).c_str());
  } else {
    in.Fail("an option of the control file");
  }
}

// [= 'file']
std::string ParseFile(TokenStream& in) {
  return in.Accept('=') ? ParseFileName(in) : std::string();
}

// {source | MEMORY} [= 'file'] [AS COPY], behind FROM; false for MEMORY, which the statements have
// no place for.
bool ParseSource(TokenStream& in, Word source, std::string& file) {
  auto const& token = in.Peek();
  if (in.Accept(K_MEMORY)) {
    in.Note(token, "parameters of the running instance are skipped");
    return false;
  }
  in.Expect(source);
  file = ParseFile(in);
  auto const& copy = in.Peek();
  if (in.Accept(K_AS, K_COPY)) in.Note(copy, "clause AS COPY is skipped");
  return true;
}

}  // namespace

// CREATE CONTROLFILE [REUSE] [SET] DATABASE name [option]...
std::unique_ptr<REPStatement> ParseCreateControlfile(TokenStream& in) {
  auto file = std::make_unique<REPCreateControlfile>();
  file->SetStatementType(REPStatement_e::CreateControlfile);
  in.Expect(K_CREATE, K_CONTROLFILE);
  file->SetReuse(in.Accept(K_REUSE));
  file->SetSet(in.Accept(K_SET));
  in.Expect(K_DATABASE);
  file->SetDatabase(ParseName(in).release());
  while (!in.AtEnd()) ParseOption(in, *file);
  return file;
}

// CREATE PFILE [= 'file'] FROM SPFILE [= 'file'] [AS COPY]
std::unique_ptr<REPStatement> ParseCreatePFile(TokenStream& in) {
  auto file = std::make_unique<REPCreatePFile>();
  file->SetStatementType(REPStatement_e::CreatePFile);
  in.Expect(K_CREATE, K_PFILE);
  file->SetPFilename(ParseFile(in).c_str());
  in.Expect(K_FROM);
  std::string source;
  if (!ParseSource(in, K_SPFILE, source)) return nullptr;
  file->SetSPFilename(source.c_str());
  return file;
}

// CREATE SPFILE [= 'file'] FROM PFILE [= 'file'] [AS COPY]
std::unique_ptr<REPStatement> ParseCreateSPFile(TokenStream& in) {
  auto file = std::make_unique<REPCreateSPFile>();
  file->SetStatementType(REPStatement_e::CreateSPFile);
  in.Expect(K_CREATE, K_SPFILE);
  file->SetSPFilename(ParseFile(in).c_str());
  in.Expect(K_FROM);
  std::string source;
  if (!ParseSource(in, K_PFILE, source)) return nullptr;
  file->SetPFilename(source.c_str());
  return file;
}

}  // namespace repora::reader
