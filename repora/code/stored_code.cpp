#include "repora/code/stored_code.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"

using repora::SqlText;

namespace {

std::string_view Keyword(REPAuthID_e rights) {
  switch (rights) {
    case REPAuthID_e::CurrentUser: return "AUTHID CURRENT_USER";
    case REPAuthID_e::Definer: return "AUTHID DEFINER";
    default: return {};
  }
}

std::string_view Keyword(REPCompile_e part) {
  switch (part) {
    case REPCompile_e::Package: return "PACKAGE";
    case REPCompile_e::Specification: return "SPECIFICATION";
    case REPCompile_e::Body: return "BODY";
    default: return {};
  }
}

}  // namespace

std::string REPCompileParams::AsString() const {
  return SqlText()
      .PartClause("PLSQL_OPTIMIZE_LEVEL = ", optimize_level_)
      .PartClause("PLSQL_CODE_TYPE = ", code_type_)
      .PartClause("PLSQL_DEBUG = ", debug_)
      .PartClause("PLSQL_WARNINGS = ", warnings_)
      .PartClause("NLS_LENGTH_SEMANTICS = ", length_semantics_)
      .Take();
}

namespace repora {

REPProcess_e CreateSubprogramStatement::ProcessAs(MOXId type, REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* item = nullptr;
  if (auto const result = processor->AddItem(processor->GetRoot(), type, name_.Get(), item);
      result != REPProcessOK)
    return result;
  SetOwnerOf(*item, name_.Get());
  AddInteger(*item, ORVTypes::pType, codes::kStoredCode);
  if (!text_.empty()) AddText(*item, ORVTypes::pTemplateCode, AsString());
  return REPProcessOK;
}

std::string CreateSubprogramStatement::RenderAs(std::string_view keyword) const {
  return SqlText("CREATE ")
      .AppendIf(replace_, "OR REPLACE ")
      .Append(keyword)
      .Name(name_.Get())
      .Append(" ")
      .Append(text_)
      .Append(";")
      .Take();
}

std::string CreatePackageStatement::Code(std::string_view keyword, std::string_view rights) const {
  SqlText sql("CREATE ");
  sql.AppendIf(replace_, "OR REPLACE ").Append(keyword).Name(name_.Get()).Option(rights);
  if (text_.empty()) return sql.Take();
  sql.AppendIf(is_as_ == REPPackageIsAs_e::As, " AS ");
  sql.AppendIf(is_as_ == REPPackageIsAs_e::Is, " IS ");
  return sql.Append(text_).Take();
}

REPProcess_e CompileStatement::FindTarget(MOXId type, REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  if (processor->FindItemPtr(processor->GetRoot(), type, name_.Get())) return REPProcessOK;
  processor->DisplayWarning(REPMessage::AlterTargetMissing, processor->GetObjectDisplayString(type),
                            AsWritten(name_.Get()));
  return REPProcessError;
}

std::string CompileStatement::RenderCompile(std::string_view start, std::string_view part) const {
  SqlText sql(start);
  sql.Name(name_.Get());
  AppendCompile(sql, part);
  return sql.Append(";").Take();
}

void CompileStatement::AppendCompile(SqlText& sql, std::string_view part) const {
  sql.Append(" COMPILE")
      .AppendIf(debug_, " DEBUG")
      .Option(part)
      .Option(TextOf(parameters_.Get()))
      .AppendIf(reuse_settings_, " REUSE SETTINGS");
}

}  // namespace repora

REPProcess_e REPCreateProcedure::Process(REPProcessor* processor) const {
  return ProcessAs(ORVTypes::oStoredProcedure, processor);
}

std::string REPCreateProcedure::AsString() const {
  return RenderAs("PROCEDURE ");
}

REPProcess_e REPCreateFunction::Process(REPProcessor* processor) const {
  return ProcessAs(ORVTypes::oFunction, processor);
}

std::string REPCreateFunction::AsString() const {
  return RenderAs("FUNCTION ");
}

REPProcess_e REPCreatePackage::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* package = nullptr;
  if (auto const result =
          processor->AddItem(processor->GetRoot(), ORVTypes::oOraclePackage, name_.Get(), package);
      result != REPProcessOK)
    return result;
  repora::SetOwnerOf(*package, name_.Get());
  repora::AddText(*package, ORVTypes::pTemplateSpec, Specification());
  return REPProcessOK;
}

std::string REPCreatePackage::Specification() const {
  return Code("PACKAGE ", Keyword(rights_));
}

std::string REPCreatePackage::AsString() const {
  return Specification() + ";";
}

REPProcess_e REPCreatePackageBody::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const package =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOraclePackage, name_.Get());
  if (!package) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oOraclePackage),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  repora::AddText(*package, ORVTypes::pTemplateCode, Code("PACKAGE BODY ", {}));
  return REPProcessOK;
}

std::string REPCreatePackageBody::AsString() const {
  return Code("PACKAGE BODY ", {}) + ";";
}

REPProcess_e REPCreateLibrary::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const root = processor->GetRoot();
  MOXActionSummaryItem* library = nullptr;
  if (auto const result = processor->AddItem(root, ORVTypes::oOracleLibrary, name_.Get(), library);
      result != REPProcessOK)
    return result;
  repora::SetOwnerOf(*library, name_.Get());
  repora::SetTextIfGiven(*library, ORVTypes::pFileName, file_);
  if (!agent_.empty()) {
    REPName const agent(agent_.c_str());
    repora::SetReference(*library, ORVTypes::pDatabaseLinkRef,
                         processor->FindCreateItem(root, ORVTypes::oOracleDatabaseLink, &agent));
  }
  if (replace_) repora::SetBoolean(*library, ORVTypes::pUseCreateOrReplace, true);
  return REPProcessOK;
}

std::string REPCreateLibrary::AsString() const {
  SqlText sql("CREATE ");
  sql.AppendIf(replace_, "OR REPLACE ").Append("LIBRARY ").Name(name_.Get());
  sql.Append(as_ ? " AS '" : " IS '").Append(file_).Append("'");
  if (!agent_.empty()) sql.Append(" AGENT '").Append(agent_).Append("'");
  return sql.Append(";").Take();
}

REPProcess_e REPAlterProcedure::Process(REPProcessor* processor) const {
  return FindTarget(ORVTypes::oStoredProcedure, processor);
}

std::string REPAlterProcedure::AsString() const {
  return RenderCompile("ALTER PROCEDURE ");
}

REPProcess_e REPAlterFunction::Process(REPProcessor* processor) const {
  return FindTarget(ORVTypes::oFunction, processor);
}

std::string REPAlterFunction::AsString() const {
  return RenderCompile("ALTER FUNCTION ");
}

REPProcess_e REPAlterPackage::Process(REPProcessor* processor) const {
  return FindTarget(ORVTypes::oOraclePackage, processor);
}

std::string REPAlterPackage::AsString() const {
  return RenderCompile("ALTER PACKAGE ", Keyword(part_));
}
