#pragma once

#include <cstdint>
#include <string_view>

#include "repora/model/ids.h"

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

 private:
  REPProcessor& processor_;
  MOXActionSummaryItem& view_;
  bool replace_;
};

}  // namespace repora
