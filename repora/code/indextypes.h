#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/tables/datatype.h"

// operator (datatype [, datatype]...)
class REPIndextypeOper final {
 public:
  void SetName(REPName* name) { name_.Set(name); }
  REPName* GetName() const { return name_.Get(); }
  // The datatypes that the operator is bound with, in order; the list owns what is added.
  repora::OwnedList<REPDatatype>& GetDatatypes() { return datatypes_; }
  repora::OwnedList<REPDatatype> const& GetDatatypes() const { return datatypes_; }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::OwnedList<REPDatatype> datatypes_;
};

// (type [, varray type])
class REPIndextypeDML final {
 public:
  void SetName(REPName* name) { name_.Set(name); }
  REPName* GetName() const { return name_.Get(); }
  void SetType(REPName* type) { type_.Set(type); }
  REPName* GetType() const { return type_.Get(); }  // may be null

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPName> type_;
};

// CREATE [OR REPLACE] INDEXTYPE [owner.]name FOR operator [, operator]... USING implementation
//   [[WITH | WITHOUT] ARRAY DML] [(type [, varray type]) [, (type [, varray type])]...]
class REPCreateIndextype final : public REPStatement {
 public:
  // How the index type takes part in array DML.
  enum DMLMode : short { NotGiven = 0, ArrayDML = 1, WithArrayDML = 2, WithoutArrayDML = 3 };

  void SetIndextype(REPName* name) { name_.Set(name); }
  REPName* GetIndextype() const { return name_.Get(); }
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  void SetImplementation(REPName* name) { implementation_.Set(name); }
  REPName* GetImplementation() const { return implementation_.Get(); }
  void SetDML(short mode) { array_dml_ = mode; }
  short GetDMLMode() const { return array_dml_; }
  // Both in order; the lists own what is added.
  repora::OwnedList<REPIndextypeOper>& GetOperators() { return operators_; }
  repora::OwnedList<REPIndextypeOper> const& GetOperators() const { return operators_; }
  repora::OwnedList<REPIndextypeDML>& GetDML() { return array_types_; }
  repora::OwnedList<REPIndextypeDML> const& GetDML() const { return array_types_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  bool replace_ = false;
  repora::Owned<REPName> implementation_;
  short array_dml_ = 0;
  repora::OwnedList<REPIndextypeOper> operators_;
  repora::OwnedList<REPIndextypeDML> array_types_;
};
