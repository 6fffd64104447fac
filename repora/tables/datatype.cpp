#include "repora/tables/datatype.h"

#include <string_view>

#include "repora/core/name.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"

namespace codes = repora::codes;

namespace {

std::string InParentheses(int number) {
  return "(" + std::to_string(number) + ")";
}

// "(n)", nothing when not given.
std::string Optional(int number) {
  return number == 0 ? std::string() : InParentheses(number);
}

std::string_view NumericKeyword(REPNumtype_e type) {
  switch (type) {
    case REPNumtype_e::Numeric: return "NUMERIC";
    case REPNumtype_e::Dec: return "DEC";
    case REPNumtype_e::Decimal: return "DECIMAL";
    case REPNumtype_e::Number: break;
  }
  return "NUMBER";
}

std::string_view TimeZoneSuffix(REPDatatype_e type) {
  if (type == REPDatatype_e::TimestampTimeZone) return " WITH TIME ZONE";
  if (type == REPDatatype_e::TimestampLocalTimeZone) return " WITH LOCAL TIME ZONE";
  return {};
}

long TimestampCode(REPDatatype_e type) {
  if (type == REPDatatype_e::TimestampTimeZone) return codes::kTimestampWithTimeZone;
  if (type == REPDatatype_e::TimestampLocalTimeZone) return codes::kTimestampWithLocalTimeZone;
  return codes::kTimestamp;
}

}  // namespace

void REPDatatype::SetUserDef(REPName const* name) {
  user_defined_ = repora::Text(repora::AsWritten(name));
}

std::string REPDatatype::CharLength(bool for_model) const {
  if (size_ == 0) return {};
  return repora::SqlText("(")
      .Number(size_)
      .AppendIf(!for_model && char_type_ == REPChartype_e::Byte, " BYTE")
      .AppendIf(!for_model && char_type_ == REPChartype_e::Char, " CHAR")
      .Append(")")
      .Take();
}

std::string REPDatatype::AsString(long& model_id, bool for_model) const {
  model_id = -1;
  std::string const national = national_ ? "NATIONAL " : "";
  std::string const varying = varying_ ? " VARYING" : "";
  switch (data_type_) {
    case REPDatatype_e::None: return {};
    case REPDatatype_e::Char: return national + "CHAR";
    case REPDatatype_e::Character: return national + "CHARACTER" + varying + Optional(precision_);
    case REPDatatype_e::CharVarying: return national + "CHAR" + varying + CharLength(for_model);
    case REPDatatype_e::Unused: return {};
    case REPDatatype_e::Varchar: return "VARCHAR" + InParentheses(size_);
    case REPDatatype_e::CharSized: return "CHAR" + CharLength(for_model);
    case REPDatatype_e::NChar: return "NCHAR";
    case REPDatatype_e::NCharSized: return "NCHAR" + varying + Optional(size_);
    case REPDatatype_e::NVarchar2: return "NVARCHAR2" + InParentheses(size_);
    case REPDatatype_e::Varchar2: return "VARCHAR2" + InParentheses(size_);
    case REPDatatype_e::LongVarchar: return "LONG VARCHAR";
    case REPDatatype_e::Number: return std::string(NumericKeyword(num_type_));
    case REPDatatype_e::NumberSized: {
      repora::SqlText text(NumericKeyword(num_type_));
      if (precision_ == 0) return text.Take();
      text.Append("(").Number(precision_);
      if (scale_ != 0) text.Append(",").Number(scale_);
      return text.Append(")").Take();
    }
    case REPDatatype_e::BinaryFloat: return "BINARY_FLOAT";
    case REPDatatype_e::BinaryDouble: return "BINARY_DOUBLE";
    case REPDatatype_e::Long: return "LONG";
    case REPDatatype_e::LongRaw: return "LONG RAW";
    case REPDatatype_e::Raw: return "RAW" + InParentheses(size_);
    case REPDatatype_e::Date: return "DATE";
    case REPDatatype_e::Timestamp:
    case REPDatatype_e::TimestampTimeZone:
    case REPDatatype_e::TimestampLocalTimeZone: {
      auto text = "TIMESTAMP" + Optional(precision_);
      if (for_model)
        model_id = TimestampCode(data_type_);
      else
        text += TimeZoneSuffix(data_type_);
      return text;
    }
    case REPDatatype_e::IntervalYear: return "INTERVAL YEAR" + Optional(precision_) + " TO MONTH";
    case REPDatatype_e::IntervalDay:
      return "INTERVAL DAY" + Optional(precision_) + " TO SECOND" + Optional(precision2_);
    case REPDatatype_e::Blob: return "BLOB";
    case REPDatatype_e::Clob: return "CLOB";
    case REPDatatype_e::NClob: return "NCLOB";
    case REPDatatype_e::BFile: return "BFILE" + Optional(precision_);
    case REPDatatype_e::RowId: return "ROWID";
    case REPDatatype_e::URowId: return "UROWID" + Optional(precision_);
    case REPDatatype_e::Integer: return "INTEGER";
    case REPDatatype_e::Int: return "INT";
    case REPDatatype_e::SmallInt: return "SMALLINT";
    case REPDatatype_e::Float: return "FLOAT" + Optional(size_);
    case REPDatatype_e::DoublePrecision: return "DOUBLE PRECISION";
    case REPDatatype_e::Real: return "REAL";
    case REPDatatype_e::XmlType: return "XMLType";
    case REPDatatype_e::SchemaXmlType: return user_defined_.str() + ".XMLtype";
    case REPDatatype_e::UserDefined: return user_defined_.str() + Optional(precision_);
  }
  return {};
}
