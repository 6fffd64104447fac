#pragma once

#include <cstdint>

// Identifies an object type or a property of the metamodel. The values are the model's business:
// use the constants below.
using MOXId = std::uint32_t;

namespace repora {

// The numbering of the vocabulary: object types from 1, properties from 1001, 0 is no id.
enum VocabularyType : MOXId {
  kNoType,
#define REPORA_TYPE(id, logical, physical) kType_##id,
#define REPORA_PROPERTY(...)
#define REPORA_MOX_PROPERTY(...)
#include "repora/model/vocabulary.def"
  kTypeEnd
};
enum VocabularyProperty : MOXId {
  kFirstProperty = 1000,
#define REPORA_TYPE(...)
#define REPORA_PROPERTY(id, ...) kProperty_##id,
#define REPORA_MOX_PROPERTY(id, ...) kProperty_##id,
#include "repora/model/vocabulary.def"
  kPropertyEnd
};

}  // namespace repora

// The object types and properties of the metamodel, and its terminologies.
struct ORVTypes {
#define REPORA_TYPE(id, logical, physical) static constexpr MOXId id = repora::kType_##id;
#define REPORA_PROPERTY(id, ...) static constexpr MOXId id = repora::kProperty_##id;
#define REPORA_MOX_PROPERTY(...)
#include "repora/model/vocabulary.def"

  // Display names in physical terms: "Table" for an entity.
  static constexpr MOXId tPhysicalName = 1;
};

// The properties that every object of the model has in common.
struct MOXTypes {
#define REPORA_TYPE(...)
#define REPORA_PROPERTY(...)
#define REPORA_MOX_PROPERTY(id, ...) static constexpr MOXId id = repora::kProperty_##id;
#include "repora/model/vocabulary.def"
};
