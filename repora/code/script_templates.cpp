#include "repora/code/script_templates.h"

#include "repora/core/name.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"

namespace repora {

REPProcess_e AddPreScript(REPProcessor& processor, std::string const& name,
                          REPStatement const& statement) {
  REPName const template_name(name);
  MOXActionSummaryItem* script = nullptr;
  if (auto const result =
          processor.AddItem(processor.GetRoot(), ORVTypes::oScriptTemplate, &template_name, script);
      result != REPProcessOK)
    return result;
  AddText(*script, ORVTypes::pTemplateCode, statement.AsString());
  AddBoolean(*script, ORVTypes::pGenAsPreScript, true);
  return REPProcessOK;
}

}  // namespace repora
