#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "repora/model/ids.h"
#include "repora/model/value.h"

class MOXActionSummaryItem;
class REPProcessor;

namespace repora {

// Writes properties of a view: as pairs when the view replaces an earlier definition.
class ViewWriter {
 public:
  ViewWriter(REPProcessor& processor, MOXActionSummaryItem& view, bool replace)
      : processor_(processor), view_(view), replace_(replace) {}

  void Text(MOXId property, std::string_view text) const;
  void TextIfGiven(MOXId property, std::string_view text) const;
  void Integer(MOXId property, std::int32_t number) const;
  void Boolean(MOXId property, bool value) const;
  void Reference(MOXId property, std::uint32_t id) const;
  void References(MOXId property, std::vector<std::uint32_t> const& ids) const;

 private:
  void Write(MOXId property, QELValue value) const;

  REPProcessor& processor_;
  MOXActionSummaryItem& view_;
  bool replace_;
};

}  // namespace repora
