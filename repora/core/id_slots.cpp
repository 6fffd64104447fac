#include "repora/core/id_slots.h"

namespace repora {

void IdSlots::Extend(std::uint32_t id) {
  dense_.resize(std::size_t{id} + 1);
  for (auto slot = sparse_.begin(); slot != sparse_.end();) {
    if (slot->first >= dense_.size()) {
      ++slot;
      continue;
    }
    dense_[slot->first] = slot->second;
    slot = sparse_.erase(slot);
  }
}

}  // namespace repora
