#pragma once

#include <string>
#include <string_view>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/model/ids.h"

// Whose rights a package runs with.
enum class REPAuthID_e : int { None = 0, CurrentUser = 1, Definer = 2 };

// The word before the text of a package.
enum class REPPackageIsAs_e : int { None = 0, As = 1, Is = 2 };

// Which part of a package is compiled.
enum class REPCompile_e : int { None = 0, Package = 1, Specification = 2, Body = 3 };

// [PLSQL_OPTIMIZE_LEVEL = n] [PLSQL_CODE_TYPE = word] [PLSQL_DEBUG = word]
//   [PLSQL_WARNINGS = 'text'] [NLS_LENGTH_SEMANTICS = word]
class REPCompileParams final {
 public:
  void SetOptLevel(char const* text) { optimize_level_ = text; }
  char const* GetOptLevel() const { return optimize_level_.c_str(); }
  void SetCodeType(char const* text) { code_type_ = text; }
  char const* GetCodeType() const { return code_type_.c_str(); }
  void SetDebug(char const* text) { debug_ = text; }
  char const* GetDebug() const { return debug_.c_str(); }
  void SetWarnings(char const* text) { warnings_ = text; }
  char const* GetWarnings() const { return warnings_.c_str(); }
  void SetSemantics(char const* text) { length_semantics_ = text; }
  char const* GetSemantics() const { return length_semantics_.c_str(); }

  virtual std::string AsString() const;

 private:
  repora::Text optimize_level_;
  repora::Text code_type_;
  repora::Text debug_;
  repora::Text warnings_;
  repora::Text length_semantics_;
};

namespace repora {

class SqlText;

// What creating a procedure and creating a function have in common. The text is what follows the
// name, without the ";" behind its END.
class CreateSubprogramStatement : public REPStatement {
 public:
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }

 protected:
  REPProcess_e ProcessAs(MOXId type, REPProcessor* processor) const;
  std::string RenderAs(std::string_view keyword) const;

  Owned<REPName> name_;
  bool replace_ = false;
  Text text_;
};

// What the two parts of a package have in common. The text is what follows IS or AS, without the
// ";" behind its END.
class CreatePackageStatement : public REPStatement {
 public:
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  void SetPackageName(REPName* name) { name_.Set(name); }
  REPName* GetPackageName() const { return name_.Get(); }
  void SetPackageIsAs(REPPackageIsAs_e word) { is_as_ = word; }
  REPPackageIsAs_e GetPackageIsAs() const { return is_as_; }
  void SetPackageSpec(char const* text) { text_ = text; }
  char const* GetPackageSpec() const { return text_.c_str(); }

 protected:
  // The statement without its ";", the form that the model keeps.
  std::string Code(std::string_view keyword, std::string_view rights) const;

  bool replace_ = false;
  Owned<REPName> name_;
  REPPackageIsAs_e is_as_{};
  Text text_;
};

// What compiling takes: COMPILE [DEBUG] [part] [parameters] [REUSE SETTINGS].
class CompileStatement : public REPStatement {
 public:
  void SetDebug(bool debug) { debug_ = debug; }
  bool GetDebug() const { return debug_; }
  void SetReuseSettings(bool reuse) { reuse_settings_ = reuse; }
  bool GetReuseSettings() const { return reuse_settings_; }
  void SetCompileParams(REPCompileParams* parameters) { parameters_.Set(parameters); }
  REPCompileParams* GetCompileParams() const { return parameters_.Get(); }

 protected:
  // Compiling changes nothing in the model; the object only has to be there.
  REPProcess_e FindTarget(MOXId type, REPProcessor* processor) const;
  std::string RenderCompile(std::string_view start, std::string_view part = {}) const;
  void AppendCompile(SqlText& sql, std::string_view part) const;

  Owned<REPName> name_;
  bool debug_ = false;
  bool reuse_settings_ = false;
  Owned<REPCompileParams> parameters_;
};

}  // namespace repora

// CREATE [OR REPLACE] PROCEDURE [owner.]name text
class REPCreateProcedure final : public repora::CreateSubprogramStatement {
 public:
  void SetProcedureName(REPName* name) { name_.Set(name); }
  REPName* GetProcedureName() const { return name_.Get(); }
  void SetProcedureText(char const* text) { text_ = text; }
  char const* GetProcedureText() const { return text_.c_str(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;
};

// CREATE [OR REPLACE] FUNCTION [owner.]name text
class REPCreateFunction final : public repora::CreateSubprogramStatement {
 public:
  void SetFunctionName(REPName* name) { name_.Set(name); }
  REPName* GetFunctionName() const { return name_.Get(); }
  void SetFunctionText(char const* text) { text_ = text; }
  char const* GetFunctionText() const { return text_.c_str(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;
};

// CREATE [OR REPLACE] PACKAGE [owner.]name [AUTHID {CURRENT_USER | DEFINER}] {IS | AS} text
class REPCreatePackage final : public repora::CreatePackageStatement {
 public:
  void SetAuthID(REPAuthID_e rights) { rights_ = rights; }
  REPAuthID_e GetAuthID() const { return rights_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  std::string Specification() const;

  REPAuthID_e rights_{};
};

// CREATE [OR REPLACE] PACKAGE BODY [owner.]name {IS | AS} text
class REPCreatePackageBody final : public repora::CreatePackageStatement {
 public:
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;
};

// CREATE [OR REPLACE] LIBRARY [owner.]name {IS | AS} 'file' [AGENT 'database link']
class REPCreateLibrary final : public REPStatement {
 public:
  void SetLibraryName(REPName* name) { name_.Set(name); }
  REPName* GetLibraryName() const { return name_.Get(); }
  // Both without the quotes around them.
  void SetFileName(char const* name) { file_ = name; }
  char const* GetFileName() const { return file_.c_str(); }
  void SetAgentName(char const* name) { agent_ = name; }
  char const* GetAgentName() const { return agent_.c_str(); }
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  // AS instead of IS.
  void SetIsAs(bool as) { as_ = as; }
  bool GetIsAs() const { return as_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  repora::Text file_;
  repora::Text agent_;
  bool replace_ = false;
  bool as_ = false;
};

// ALTER PROCEDURE [owner.]name COMPILE [DEBUG] [parameters] [REUSE SETTINGS]
class REPAlterProcedure final : public repora::CompileStatement {
 public:
  void SetProcedureName(REPName* name) { name_.Set(name); }
  REPName* GetProcedureName() const { return name_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;
};

// ALTER FUNCTION [owner.]name COMPILE [DEBUG] [parameters] [REUSE SETTINGS]
class REPAlterFunction final : public repora::CompileStatement {
 public:
  void SetFunctionName(REPName* name) { name_.Set(name); }
  REPName* GetFunctionName() const { return name_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;
};

// ALTER PACKAGE [owner.]name COMPILE [DEBUG] [PACKAGE | SPECIFICATION | BODY] [parameters]
//   [REUSE SETTINGS]
class REPAlterPackage final : public repora::CompileStatement {
 public:
  void SetPackageName(REPName* name) { name_.Set(name); }
  REPName* GetPackageName() const { return name_.Get(); }
  void SetCompile(REPCompile_e part) { part_ = part; }
  REPCompile_e GetCompile() const { return part_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPCompile_e part_{};
};
