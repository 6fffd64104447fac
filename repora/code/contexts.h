#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

enum class REPContextType_e : int {
  None = 0,
  AccessedGlobally = 1,
  InitializedExternally = 2,
  InitializedGlobally = 3
};

// CREATE [OR REPLACE] CONTEXT namespace USING [owner.]package
//   [ACCESSED GLOBALLY | INITIALIZED {EXTERNALLY | GLOBALLY}]
// The context becomes a child of its package, which must be known.
class REPCreateContext final : public REPStatement {
 public:
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  // The getter gives the name as written, empty for none.
  void SetNameSpace(REPName* name) { namespace_.Set(name); }
  std::string GetNameSpace() const { return repora::AsWritten(namespace_.Get()); }
  void SetPackage(REPName* name) { package_.Set(name); }
  REPName* GetPackage() const { return package_.Get(); }
  void SetContextType(REPContextType_e type) { type_ = type; }
  REPContextType_e GetContextType() const { return type_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  bool replace_ = false;
  repora::Owned<REPName> namespace_;
  repora::Owned<REPName> package_;
  REPContextType_e type_{};
};
