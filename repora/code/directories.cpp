#include "repora/code/directories.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"

REPProcess_e REPCreateDirectory::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* directory = nullptr;
  if (auto const result = processor->AddItem(processor->GetRoot(), ORVTypes::oOracleDirectory,
                                             name_.Get(), directory);
      result != REPProcessOK)
    return result;
  repora::SetText(*directory, ORVTypes::pPath, path_);
  if (replace_) repora::SetBoolean(*directory, ORVTypes::pUseCreateOrReplace, true);
  return REPProcessOK;
}

std::string REPCreateDirectory::AsString() const {
  return repora::SqlText("CREATE ")
      .AppendIf(replace_, "OR REPLACE ")
      .Append("DIRECTORY ")
      .Name(name_.Get())
      .Append(" AS '")
      .Append(path_)
      .Append("';")
      .Take();
}
