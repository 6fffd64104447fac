#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;

// CREATE [OR REPLACE] [PUBLIC] SYNONYM [owner.]name FOR [owner.]object[@link]
class REPCreateSynonym final : public REPStatement {
 public:
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  void SetPublic(bool is_public) { public_ = is_public; }
  bool GetPublic() const { return public_; }
  void SetSynonym(REPName* name) { synonym_.Set(name); }
  REPName* GetSynonym() const { return synonym_.Get(); }
  void SetObjectName(REPName* name) { object_.Set(name); }
  REPName* GetObjectName() const { return object_.Get(); }
  void SetDBLink(REPName* link) { link_.Set(link); }
  REPName* GetDBLink() const { return link_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e AddSynonymItem(REPProcessor* processor, MOXActionSummaryItem*& synonym) const;

  bool replace_ = false;
  bool public_ = false;
  repora::Owned<REPName> synonym_;
  repora::Owned<REPName> object_;  // the target
  repora::Owned<REPName> link_;    // the database link of the target
};
