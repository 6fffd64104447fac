#include "reader/parse_log_files.h"

#include "reader/parse_file_specs.h"
#include "reader/parse_storage.h"

namespace repora::reader {
namespace {

// [GROUP n]
template <class LogFile>
bool ParseGroup(TokenStream& in, LogFile& file) {
  if (!in.Accept(K_GROUP)) return false;
  file.SetGroup(in.Copy(in.ExpectNumber()));
  return true;
}

// A file, with the options that only logs have.
std::unique_ptr<REPFileSpec> ParseLogFileSpec(TokenStream& in) {
  auto file = ParseFileSpec(in);
  if (in.Is(K_BLOCKSIZE)) {
    in.Note(in.Next(), "BLOCKSIZE of a log file is skipped");
    ParseSize(in);
    if (in.Accept(K_REUSE)) file->SetReuse(true);
  }
  return file;
}

// 'file' | ( 'file' [, 'file']... )
template <class LogFile>
void ParseFileNames(TokenStream& in, LogFile& file) {
  bool const enclosed = in.Accept('(');
  do file.AddFilename(ParseFileName(in).c_str());
  while (enclosed && in.Accept(','));
  if (enclosed && !in.Accept(')')) in.Fail("',' or ')'");
}

}  // namespace

std::unique_ptr<REPLogFileClause> ParseLogFiles(TokenStream& in) {
  auto clause = std::make_unique<REPLogFileClause>();
  do {
    auto* const file = clause->AddLogFileSpec();
    ParseGroup(in, *file);
    file->SetFileSpec(ParseLogFileSpec(in).release());
  } while (in.Accept(','));
  return clause;
}

std::unique_ptr<REPRedoLogFileSpecList> ParseRedoLogFiles(TokenStream& in) {
  auto list = std::make_unique<REPRedoLogFileSpecList>();
  do {
    auto* const file = new REPRedoLogFileSpec;
    list->AddTail(file);
    ParseGroup(in, *file);
    auto const& token = in.Peek();
    auto const spec = ParseLogFileSpec(in);
    for (int i = 0; i < spec->GetNumFilenames(); ++i) file->AddFilename(spec->GetFilename(i));
    file->SetSizeClause(spec->GetSizeClause());
    file->SetReuse(spec->GetReuse());
    if (spec->GetAutoExtentClause().GetClausePresent())
      in.Note(token, "AUTOEXTEND of a log file is skipped");
  } while (in.Accept(','));
  return list;
}

std::unique_ptr<REPLogFileDescList> ParseLogFileDescs(TokenStream& in) {
  auto list = std::make_unique<REPLogFileDescList>();
  do {
    auto* const group = new REPLogFileDesc;
    list->AddTail(group);
    if (!ParseGroup(in, *group)) ParseFileNames(in, *group);
  } while (in.Accept(','));
  return list;
}

}  // namespace repora::reader
