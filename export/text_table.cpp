#include "export/text_table.h"

#include <algorithm>

namespace repora::exporter {

std::string Heading(std::string_view title, bool bold) {
  return bold ? std::string("\x1b[1m").append(title).append("\x1b[0m") : std::string(title);
}

std::string Counted(std::size_t number, std::string_view one, std::string_view many) {
  return std::to_string(number).append(1, ' ').append(number == 1 ? one : many);
}

std::string TextTable::Text() const {
  std::vector<std::size_t> widths(columns_.size());
  for (auto const& line : lines_)
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
  std::string text;
  for (auto const& line : lines_) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      std::string const blanks(widths[i] - line[i].size(), ' ');
      text.append("  ");
      text.append(columns_[i] == Align::Left ? line[i] + blanks : blanks + line[i]);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

}  // namespace repora::exporter
