#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/database/log_files.h"

namespace repora::reader {

// log_file [, log_file]..., behind LOGFILE; each is [GROUP n] file
std::unique_ptr<REPLogFileClause> ParseLogFiles(TokenStream& in);

// The same of ALTER DATABASE.
std::unique_ptr<REPRedoLogFileSpecList> ParseRedoLogFiles(TokenStream& in);

// {GROUP n | 'file' | ( 'file' [, 'file']... )} [, ...]
std::unique_ptr<REPLogFileDescList> ParseLogFileDescs(TokenStream& in);

// One of MAXLOGFILES n | MAXLOGMEMBERS n | MAXLOGHISTORY n | MAXDATAFILES n | MAXINSTANCES n;
// false when none comes. Statement is one that has all of them.
template <class Statement>
bool ParseLimit(TokenStream& in, Statement& statement) {
  struct Limit {
    Word word;
    void (Statement::*set)(char const*);
  };
  constexpr Limit limits[] = {{K_MAXLOGFILES, &Statement::SetMaxLogFiles},
                              {K_MAXLOGMEMBERS, &Statement::SetMaxLogMembers},
                              {K_MAXLOGHISTORY, &Statement::SetMaxLogHistory},
                              {K_MAXDATAFILES, &Statement::SetMaxDataFiles},
                              {K_MAXINSTANCES, &Statement::SetMaxInstances}};
  for (auto const& limit : limits) {
    if (!in.Accept(limit.word)) continue;
    (statement.*limit.set)(in.Copy(in.ExpectNumber()));
    return true;
  }
  return false;
}

}  // namespace repora::reader
