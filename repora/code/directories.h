#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

// CREATE [OR REPLACE] DIRECTORY name AS 'path'
class REPCreateDirectory final : public REPStatement {
 public:
  // The getter gives the name as written, empty for none.
  void SetDirName(REPName* name) { name_.Set(name); }
  std::string GetDirName() const { return repora::AsWritten(name_.Get()); }
  // Without its quotes.
  void SetPathName(char const* text) { path_ = text; }
  char const* GetPathName() const { return path_.c_str(); }
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  repora::Text path_;
  bool replace_ = false;
};
