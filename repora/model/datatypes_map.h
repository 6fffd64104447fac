#pragma once

#include <memory>
#include <string>

#include "repora/model/value.h"

// A database version, as the datatypes map describes it.
class KALDbmsI {
 public:
  virtual ~KALDbmsI() = default;
};

// Which built-in domain belongs to a datatype name of a database version.
class KALDatatypesMapI {
 public:
  virtual ~KALDatatypesMapI() = default;

  // The map in use. Hosts put their own in place with SetReference before the first run.
  static KALDatatypesMapI& GetReference();
  static void SetReference(KALDatatypesMapI* map);  // borrowed; null: the built-in one

  virtual std::unique_ptr<KALDbmsI> GetDbms(int target_server, int version,
                                            int minor_version) const = 0;
  // True when the name is known for that version; the value is then the built-in id of its domain.
  // Lengths and precisions do not matter: "VARCHAR2(30)" is known as "VARCHAR2" is.
  virtual bool FindBuiltInId(KALDbmsI const& dbms, std::string const& datatype_name,
                             QELValue& built_in_id) const = 0;
};
