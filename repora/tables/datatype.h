#pragma once

#include <string>

#include "repora/core/owned.h"

class REPName;

// The kinds of datatypes as they are spelled. "Sized" kinds carry a length.
enum class REPDatatype_e : int {
  None = 0,
  Char = 1,
  Character = 2,
  CharVarying = 3,  // [NATIONAL] CHAR [VARYING] (n)
  Unused = 4,
  Varchar = 5,
  CharSized = 6,
  NChar = 7,
  NCharSized = 8,  // NCHAR [VARYING] (n)
  NVarchar2 = 9,
  Varchar2 = 10,
  LongVarchar = 11,
  Number = 12,
  NumberSized = 13,
  BinaryFloat = 14,
  BinaryDouble = 15,
  Long = 16,
  LongRaw = 17,
  Raw = 18,
  Date = 19,
  Timestamp = 20,
  TimestampTimeZone = 21,
  TimestampLocalTimeZone = 22,
  IntervalYear = 23,
  IntervalDay = 24,
  Blob = 25,
  Clob = 26,
  NClob = 27,
  BFile = 28,
  RowId = 29,
  URowId = 30,
  Integer = 31,
  Int = 32,
  SmallInt = 33,
  Float = 34,
  DoublePrecision = 35,
  Real = 36,
  XmlType = 37,
  SchemaXmlType = 38,  // schema.XMLType
  UserDefined = 39,
};

// Length semantics of character types.
enum class REPChartype_e : int { None = 0, Byte = 2, Char = 3 };

// The keyword of numeric types.
enum class REPNumtype_e : int { Number = 0, Numeric = 2, Dec = 3, Decimal = 4 };

// An Oracle datatype. Numbers are 0 when not given.
class REPDatatype {
 public:
  void SetDataType(REPDatatype_e type) { data_type_ = type; }
  REPDatatype_e GetDataType() const { return data_type_; }
  void SetCharType(REPChartype_e type) { char_type_ = type; }
  REPChartype_e GetCharType() const { return char_type_; }
  void SetNumType(REPNumtype_e type) { num_type_ = type; }
  REPNumtype_e GetNumType() const { return num_type_; }
  // The name of a user-defined type, or the schema of an XMLType.
  void SetUserDef(char const* text) { user_defined_ = text; }
  void SetUserDef(REPName const* name);
  char const* GetUserDef() const { return user_defined_.c_str(); }
  void SetNational(bool national) { national_ = national; }
  bool GetNational() const { return national_; }
  void SetVarying(bool varying) { varying_ = varying; }
  bool GetVarying() const { return varying_; }
  void SetPrecision(int precision) { precision_ = precision; }
  void SetPrecision(char const* text) { precision_ = repora::ToInt(text); }
  int GetPrecision() const { return precision_; }
  // The fractional seconds of INTERVAL DAY TO SECOND.
  void SetPrecision2(char const* text) { precision2_ = repora::ToInt(text); }
  int GetPrecision2() const { return precision2_; }
  void SetScale(int scale) { scale_ = scale; }
  void SetScale(char const* text) { scale_ = repora::ToInt(text); }
  int GetScale() const { return scale_; }
  void SetSize(int size) { size_ = size; }
  void SetSize(char const* text) { size_ = repora::ToInt(text); }
  int GetSize() const { return size_; }

  // The datatype as SQL text or, for the model, as the model holds it: length semantics and time
  // zones are properties of their own there. model_id becomes the model's code of a timestamp kind
  // (only for the model), -1 otherwise.
  std::string AsString(long& model_id, bool for_model) const;

 private:
  std::string CharLength(bool for_model) const;

  REPDatatype_e data_type_{};
  REPChartype_e char_type_{};
  REPNumtype_e num_type_{};
  int precision_ = 0;
  int precision2_ = 0;
  int scale_ = 0;
  int size_ = 0;
  bool national_ = false;
  bool varying_ = false;
  repora::Text user_defined_;
};
