#include "reader/parse_datatypes.h"

#include "reader/parse_names.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

// [( n [BYTE | CHAR] )]; false when there is none.
bool ParseLength(TokenStream& in, REPDatatype& type) {
  if (!in.Accept('(')) return false;
  type.SetSize(in.Copy(in.ExpectNumber()));
  if (in.Accept(K_BYTE))
    type.SetCharType(REPChartype_e::Byte);
  else if (in.Accept(K_CHAR))
    type.SetCharType(REPChartype_e::Char);
  in.Expect(')');
  return true;
}

// n; 0 is what a datatype without a precision has, and means something else.
char const* ParseDigits(TokenStream& in) {
  auto const& token = in.Peek();
  auto const digits = in.ExpectNumber();
  if (digits == "0") in.Note(token, "precision 0 of a datatype is skipped");
  return in.Copy(digits);
}

// [( n )]
void ParsePrecision(TokenStream& in, REPDatatype& type) {
  if (!in.Accept('(')) return;
  type.SetPrecision(ParseDigits(in));
  in.Expect(')');
}

void ParseSized(TokenStream& in, REPDatatype& type, REPDatatype_e kind) {
  type.SetDataType(kind);
  ParseLength(in, type);
}

// [NATIONAL] CHAR [VARYING] [(n)]
void ParseChar(TokenStream& in, REPDatatype& type) {
  type.SetVarying(in.Accept(K_VARYING));
  bool const sized = ParseLength(in, type);
  if (type.GetVarying() || (sized && type.GetNational()))
    type.SetDataType(REPDatatype_e::CharVarying);
  else
    type.SetDataType(sized ? REPDatatype_e::CharSized : REPDatatype_e::Char);
}

// [NATIONAL] CHARACTER [VARYING] [(n)]
void ParseCharacter(TokenStream& in, REPDatatype& type) {
  type.SetDataType(REPDatatype_e::Character);
  type.SetVarying(in.Accept(K_VARYING));
  // The length of this one is kept as a precision.
  if (ParseLength(in, type)) type.SetPrecision(type.GetSize());
}

// NCHAR [VARYING] [(n)]
void ParseNChar(TokenStream& in, REPDatatype& type) {
  type.SetVarying(in.Accept(K_VARYING));
  bool const sized = ParseLength(in, type);
  type.SetDataType(sized || type.GetVarying() ? REPDatatype_e::NCharSized : REPDatatype_e::NChar);
}

// {NUMBER | NUMERIC | DEC | DECIMAL} [( {n | *} [, scale] )]
void ParseNumber(TokenStream& in, REPDatatype& type, REPNumtype_e keyword) {
  type.SetDataType(REPDatatype_e::Number);
  type.SetNumType(keyword);
  if (!in.Accept('(')) return;
  type.SetDataType(REPDatatype_e::NumberSized);
  bool const any_precision = in.Accept('*');
  if (!any_precision) type.SetPrecision(in.Copy(in.ExpectNumber()));
  if (in.Accept(',')) {
    // A scale needs a precision, and "*" is the greatest there is.
    if (any_precision) type.SetPrecision(38);
    type.SetScale(in.Copy(in.ExpectNumber()));
  }
  in.Expect(')');
}

// TIMESTAMP [(n)] [WITH [LOCAL] TIME ZONE]
void ParseTimestamp(TokenStream& in, REPDatatype& type) {
  type.SetDataType(REPDatatype_e::Timestamp);
  ParsePrecision(in, type);
  if (!in.Accept(K_WITH)) return;
  type.SetDataType(in.Accept(K_LOCAL) ? REPDatatype_e::TimestampLocalTimeZone
                                      : REPDatatype_e::TimestampTimeZone);
  in.Expect(K_TIME, K_ZONE);
}

// INTERVAL {YEAR [(n)] TO MONTH | DAY [(n)] TO SECOND [(n)]}
void ParseInterval(TokenStream& in, REPDatatype& type) {
  if (in.Accept(K_YEAR)) {
    type.SetDataType(REPDatatype_e::IntervalYear);
    ParsePrecision(in, type);
    in.Expect(K_TO, K_MONTH);
    return;
  }
  if (!in.Accept(K_DAY)) in.Fail("YEAR or DAY");
  type.SetDataType(REPDatatype_e::IntervalDay);
  ParsePrecision(in, type);
  in.Expect(K_TO, K_SECOND);
  if (!in.Accept('(')) return;
  type.SetPrecision2(ParseDigits(in));
  in.Expect(')');
}

// LONG [RAW | VARCHAR]
void ParseLong(TokenStream& in, REPDatatype& type) {
  if (in.Accept(K_RAW))
    type.SetDataType(REPDatatype_e::LongRaw);
  else if (in.Accept(K_VARCHAR))
    type.SetDataType(REPDatatype_e::LongVarchar);
  else
    type.SetDataType(REPDatatype_e::Long);
}

// [REF] [schema.]name [(n [, ...])], where XMLTYPE and schema.XMLTYPE are kinds of their own
void ParseNamedType(TokenStream& in, REPDatatype& type) {
  auto const mark = in.Mark();
  bool const ref = IsName(in.Peek(1)) && in.Accept(K_REF);
  auto const name = ParseName(in);
  if (EqualsIgnoringCase(name->GetName(false), "XMLTYPE") && !ref) {
    type.SetDataType(name->IsCompound() ? REPDatatype_e::SchemaXmlType : REPDatatype_e::XmlType);
    type.SetUserDef(name->GetOwnerName(false).c_str());
    return;
  }
  type.SetDataType(REPDatatype_e::UserDefined);
  if (ref)
    type.SetUserDef(in.Copy(in.TextSince(mark)));
  else
    type.SetUserDef(name.get());
  if (!in.Is('(')) return;
  auto const& length = in.Peek(1);
  if (length.kind != TokenKind::Number || in.Peek(2).punctuation != ')')
    in.Note(in.Peek(), "parameters of datatype " + name->AsString(false) + " are skipped");
  if (length.kind == TokenKind::Number) type.SetPrecision(in.Copy(in.TextOf(length)));
  in.SkipParentheses();
}

// The types that are one word, perhaps with a length or precision.
bool ParsePlainType(TokenStream& in, Word word, REPDatatype& type) {
  switch (word) {
    case K_VARCHAR2: ParseSized(in, type, REPDatatype_e::Varchar2); return true;
    case K_VARCHAR: ParseSized(in, type, REPDatatype_e::Varchar); return true;
    case K_NVARCHAR2: ParseSized(in, type, REPDatatype_e::NVarchar2); return true;
    case K_RAW: ParseSized(in, type, REPDatatype_e::Raw); return true;
    case K_FLOAT: ParseSized(in, type, REPDatatype_e::Float); return true;
    case K_DATE: type.SetDataType(REPDatatype_e::Date); return true;
    case K_INTEGER: type.SetDataType(REPDatatype_e::Integer); return true;
    case K_INT: type.SetDataType(REPDatatype_e::Int); return true;
    case K_SMALLINT: type.SetDataType(REPDatatype_e::SmallInt); return true;
    case K_REAL: type.SetDataType(REPDatatype_e::Real); return true;
    case K_BINARY_FLOAT: type.SetDataType(REPDatatype_e::BinaryFloat); return true;
    case K_BINARY_DOUBLE: type.SetDataType(REPDatatype_e::BinaryDouble); return true;
    case K_BLOB: type.SetDataType(REPDatatype_e::Blob); return true;
    case K_CLOB: type.SetDataType(REPDatatype_e::Clob); return true;
    case K_NCLOB: type.SetDataType(REPDatatype_e::NClob); return true;
    case K_ROWID: type.SetDataType(REPDatatype_e::RowId); return true;
    case K_BFILE: type.SetDataType(REPDatatype_e::BFile); break;
    case K_UROWID: type.SetDataType(REPDatatype_e::URowId); break;
    default: return false;
  }
  ParsePrecision(in, type);
  return true;
}

// The types of several words or with a grammar of their own.
bool ParseRichType(TokenStream& in, Word word, REPDatatype& type) {
  switch (word) {
    case K_NUMBER: ParseNumber(in, type, REPNumtype_e::Number); return true;
    case K_NUMERIC: ParseNumber(in, type, REPNumtype_e::Numeric); return true;
    case K_DEC: ParseNumber(in, type, REPNumtype_e::Dec); return true;
    case K_DECIMAL: ParseNumber(in, type, REPNumtype_e::Decimal); return true;
    case K_CHAR: ParseChar(in, type); return true;
    case K_CHARACTER: ParseCharacter(in, type); return true;
    case K_NCHAR: ParseNChar(in, type); return true;
    case K_TIMESTAMP: ParseTimestamp(in, type); return true;
    case K_INTERVAL: ParseInterval(in, type); return true;
    case K_LONG: ParseLong(in, type); return true;
    case K_DOUBLE:
      in.Expect(K_PRECISION);
      type.SetDataType(REPDatatype_e::DoublePrecision);
      return true;
    case K_NATIONAL:
      type.SetNational(true);
      if (in.Accept(K_CHARACTER)) {
        ParseCharacter(in, type);
      } else {
        in.Expect(K_CHAR);
        ParseChar(in, type);
      }
      return true;
    default: return false;
  }
}

}  // namespace

std::unique_ptr<REPDatatype> ParseDatatype(TokenStream& in) {
  auto type = std::make_unique<REPDatatype>();
  auto const& token = in.Peek();
  if (!IsName(token) || token.word == K_NOT) in.Fail("a datatype");
  if (token.word == K_NONE || in.Peek(1).punctuation == '.') {
    ParseNamedType(in, *type);
    return type;
  }
  auto const word = in.Next().word;
  if (ParseRichType(in, word, *type) || ParsePlainType(in, word, *type)) return type;
  in.StepBack();
  ParseNamedType(in, *type);
  return type;
}

}  // namespace repora::reader
