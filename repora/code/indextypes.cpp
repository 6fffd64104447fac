#include "repora/code/indextypes.h"

#include "repora/code/script_templates.h"
#include "repora/core/sql_text.h"

using repora::SqlText;

namespace {

std::string_view Keyword(short mode) {
  switch (mode) {
    case REPCreateIndextype::ArrayDML: return "ARRAY DML";
    case REPCreateIndextype::WithArrayDML: return "WITH ARRAY DML";
    case REPCreateIndextype::WithoutArrayDML: return "WITHOUT ARRAY DML";
    default: return {};
  }
}

}  // namespace

std::string REPIndextypeOper::AsString() const {
  auto const datatypes = datatypes_.Join(", ", true, [](REPDatatype const& datatype) {
    long model_id = 0;
    return datatype.AsString(model_id, false);
  });
  return SqlText().Name(name_.Get()).Append(datatypes).Take();
}

std::string REPIndextypeDML::AsString() const {
  return SqlText("(").Name(name_.Get()).Clause(",", type_.Get()).Append(")").Take();
}

REPProcess_e REPCreateIndextype::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  return repora::AddPreScript(*processor, "CREATE INDEXTYPE " + repora::AsWritten(name_.Get()),
                              *this);
}

std::string REPCreateIndextype::AsString() const {
  SqlText sql("CREATE ");
  sql.AppendIf(replace_, "OR REPLACE ").Append("INDEXTYPE ").Name(name_.Get()).Append(" FOR ");
  auto const operators =
      operators_.Join(", ", false, [](REPIndextypeOper const& one) { return one.AsString(); });
  sql.Append(operators).AppendIf(!operators.empty(), " ");
  sql.Append("USING ").Name(implementation_.Get()).Option(Keyword(array_dml_));
  return sql
      .Append(
          array_types_.Join(",", false, [](REPIndextypeDML const& one) { return one.AsString(); }))
      .Append(";")
      .Take();
}
