#include "repora/model/datatypes_map.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "repora/model/datatypes.h"

namespace repora {
namespace {

// The ids stand in models: new datatypes go to the end.
constexpr BuiltInDatatype kDatatypes[] = {
    {1, "CHAR", 0},
    {2, "VARCHAR2", 0},
    {3, "NCHAR", 8},
    {4, "NVARCHAR2", 8},
    {5, "NUMBER", 0},
    {6, "FLOAT", 0},
    {7, "BINARY_FLOAT", 10},
    {8, "BINARY_DOUBLE", 10},
    {9, "LONG", 0},
    {10, "LONG RAW", 0},
    {11, "RAW", 0},
    {12, "DATE", 0},
    {13, "TIMESTAMP", 9},
    {14, "TIMESTAMP WITH TIME ZONE", 9},
    {15, "TIMESTAMP WITH LOCAL TIME ZONE", 9},
    {16, "INTERVAL YEAR TO MONTH", 9},
    {17, "INTERVAL DAY TO SECOND", 9},
    {18, "BLOB", 8},
    {19, "CLOB", 8},
    {20, "NCLOB", 8},
    {21, "BFILE", 8},
    {22, "ROWID", 0},
    {23, "UROWID", 8},
    {24, "XMLTYPE", 9},
    {25, "URITYPE", 9},
    {26, "ANYDATA", 9},
    {27, "ANYTYPE", 9},
    {28, "ANYDATASET", 9},
    {29, "SDO_GEOMETRY", 8},
    {30, "JSON", 21},
    {31, "BOOLEAN", 23},
    {32, "VECTOR", 23},
};

struct Spelling {
  std::string_view name;
  std::string_view datatype;
};

constexpr Spelling kSpellings[] = {
    {"CHARACTER", "CHAR"},
    {"CHAR VARYING", "VARCHAR2"},
    {"CHARACTER VARYING", "VARCHAR2"},
    {"VARCHAR", "VARCHAR2"},
    {"NATIONAL CHAR", "NCHAR"},
    {"NATIONAL CHARACTER", "NCHAR"},
    {"NATIONAL CHAR VARYING", "NVARCHAR2"},
    {"NATIONAL CHARACTER VARYING", "NVARCHAR2"},
    {"NCHAR VARYING", "NVARCHAR2"},
    {"LONG VARCHAR", "LONG"},
    {"NUMERIC", "NUMBER"},
    {"DECIMAL", "NUMBER"},
    {"DEC", "NUMBER"},
    {"INTEGER", "NUMBER"},
    {"INT", "NUMBER"},
    {"SMALLINT", "NUMBER"},
    {"REAL", "FLOAT"},
    {"DOUBLE PRECISION", "FLOAT"},
    {"BOOL", "BOOLEAN"},
};

struct KnownName {
  std::string_view name;
  BuiltInDatatype const* datatype = nullptr;
};

constexpr bool ByName(KnownName const& a, KnownName const& b) {
  return a.name < b.name;
}

// Every name and spelling, sorted.
constexpr auto kKnownNames = [] {
  std::array<KnownName, std::size(kDatatypes) + std::size(kSpellings)> names{};
  std::size_t count = 0;
  for (auto const& datatype : kDatatypes) names[count++] = {datatype.name, &datatype};
  for (auto const& spelling : kSpellings)
    for (auto const& datatype : kDatatypes)
      if (spelling.datatype == datatype.name) names[count++] = {spelling.name, &datatype};
  std::sort(names.begin(), names.end(), ByName);
  return names;
}();
static_assert(!kKnownNames.front().name.empty(), "a spelling names no datatype");

// A datatype name as the table has it: in capitals, words separated by one blank, without what
// stands in parentheses and without the schema of the types that Oracle supplies.
class BareName {
 public:
  explicit BareName(std::string_view text) {
    int depth = 0;
    bool blank = false;
    for (char const c : text) {
      if (c == '(') ++depth;
      bool const separates = depth > 0 || c == ' ' || c == '\t' || c == '\r' || c == '\n';
      if (c == ')' && depth > 0) --depth;
      if (separates) {
        blank = true;
        continue;
      }
      if (blank && size_ > 0) Add(' ');
      blank = false;
      Add(c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c);
    }
  }

  // Empty when the text is longer than every known name.
  std::string_view view() const {
    std::string_view name(letters_.data(), size_ <= letters_.size() ? size_ : 0);
    for (std::string_view const schema : {"SYS.", "MDSYS."})
      if (name.starts_with(schema)) return name.substr(schema.size());
    return name;
  }

 private:
  void Add(char c) {
    if (size_ < letters_.size()) letters_[size_] = c;
    ++size_;
  }

  std::array<char, 40> letters_;
  std::size_t size_ = 0;
};

class OracleVersion final : public KALDbmsI {
 public:
  explicit OracleVersion(int version) : version_(version) {}
  // A model that names no version takes all datatypes.
  bool Has(BuiltInDatatype const& datatype) const {
    return version_ <= 0 || datatype.since <= version_;
  }

 private:
  int version_;
};

class OracleDatatypes final : public KALDatatypesMapI {
 public:
  std::unique_ptr<KALDbmsI> GetDbms(int /*target_server*/, int version,
                                    int /*minor_version*/) const override {
    return std::make_unique<OracleVersion>(version);
  }

  bool FindBuiltInId(KALDbmsI const& dbms, std::string const& datatype_name,
                     QELValue& built_in_id) const override {
    built_in_id.Clean();
    BareName const bare(datatype_name);
    auto const* known =
        std::lower_bound(kKnownNames.begin(), kKnownNames.end(), KnownName{bare.view()}, ByName);
    if (known == kKnownNames.end() || known->name != bare.view()) return false;
    auto const* oracle = dynamic_cast<OracleVersion const*>(&dbms);
    if (!oracle || !oracle->Has(*known->datatype)) return false;
    built_in_id = QELValue::FromInteger(known->datatype->id);
    return true;
  }
};

KALDatatypesMapI* map_in_use = nullptr;

}  // namespace

std::span<BuiltInDatatype const> BuiltInDatatypes() {
  return kDatatypes;
}

}  // namespace repora

KALDatatypesMapI& KALDatatypesMapI::GetReference() {
  static repora::OracleDatatypes oracle;
  return repora::map_in_use ? *repora::map_in_use : oracle;
}

void KALDatatypesMapI::SetReference(KALDatatypesMapI* map) {
  repora::map_in_use = map;
}
