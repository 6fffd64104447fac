#include "repora/code/contexts.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace codes = repora::codes;

REPProcess_e REPCreateContext::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const* const package =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOraclePackage, package_.Get());
  if (!package) {
    processor->DisplayWarning(REPMessage::UndefinedObject,
                              processor->GetObjectDisplayString(ORVTypes::oOraclePackage),
                              repora::AsWritten(package_.Get()));
    return REPProcessError;
  }
  MOXActionSummaryItem* context = nullptr;
  if (auto const result =
          processor->AddItem(package->Id(), ORVTypes::oOracleContext, namespace_.Get(), context);
      result != REPProcessOK)
    return result;
  switch (type_) {
    case REPContextType_e::None: break;
    case REPContextType_e::AccessedGlobally:
      repora::SetInteger(*context, ORVTypes::pType, codes::kContextAccessedGlobally);
      break;
    case REPContextType_e::InitializedExternally:
      repora::SetInteger(*context, ORVTypes::pType, codes::kContextInitializedExternally);
      break;
    case REPContextType_e::InitializedGlobally:
      repora::SetInteger(*context, ORVTypes::pType, codes::kContextInitializedGlobally);
      break;
  }
  if (replace_) repora::SetBoolean(*context, ORVTypes::pUseCreateOrReplace, true);
  return REPProcessOK;
}

std::string REPCreateContext::AsString() const {
  repora::SqlText sql("CREATE ");
  sql.AppendIf(replace_, "OR REPLACE ")
      .Append("CONTEXT ")
      .Append(namespace_ ? namespace_->GetName(false) : "")
      .Append(" USING ")
      .Name(package_.Get());
  switch (type_) {
    case REPContextType_e::None: break;
    case REPContextType_e::AccessedGlobally: sql.Append(" ACCESSED GLOBALLY"); break;
    case REPContextType_e::InitializedExternally: sql.Append(" INITIALIZED EXTERNALLY"); break;
    case REPContextType_e::InitializedGlobally: sql.Append(" INITIALIZED GLOBALLY"); break;
  }
  return sql.Append(";").Take();
}
