#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace repora::exporter {

// A title of the report on a terminal that shows bold letters.
std::string Heading(std::string_view title, bool bold);

// "1 note", "2 notes".
std::string Counted(std::size_t number, std::string_view one, std::string_view many);

// Indented lines of cells in columns.
class TextTable {
 public:
  enum class Align { Left, Right };
  explicit TextTable(std::vector<Align> columns) : columns_(std::move(columns)) {}

  // As many cells as there are columns.
  void Add(std::vector<std::string> cells) { lines_.push_back(std::move(cells)); }
  bool IsEmpty() const { return lines_.empty(); }
  std::string Text() const;

 private:
  std::vector<Align> columns_;
  std::vector<std::vector<std::string>> lines_;
};

}  // namespace repora::exporter
