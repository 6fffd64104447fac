#include "reader/sqlplus_state.h"

#include "repora/core/letters.h"

namespace repora::reader {

bool SqlPlusState::Expand(std::string_view text, std::size_t origin, ExpandedText& expanded) const {
  return reader::Expand(text, origin, prefix_, variables_, expanded);
}

VariableUse SqlPlusState::FindUndefined(std::string_view text, std::size_t offset) const {
  auto use = FindVariable(text, offset, prefix_);
  while (!use.name.empty() && variables_.contains(use.name))
    use = FindVariable(text, use.end, prefix_);
  return use;
}

void SqlPlusState::Run(CommandKind kind, std::string_view command) {
  if (kind == CommandKind::Set) return SetOptions(CommandWords(command));
  auto const words = Words(command);
  if (kind == CommandKind::Define && words.size() > 2 && words[1] == "=")
    variables_[ToUpper(words[0])] = words[2];
  if (kind == CommandKind::Undefine)
    for (auto const& word : words) variables_.erase(ToUpper(word));
}

SqlPlusState::File SqlPlusState::IncludedFile(std::string_view command) const {
  File file;
  auto words = Words(command);
  if (words.empty()) return file;
  file.name = words[0];
  auto const folder = file.name.find_last_of("/\\");
  if (file.name.find('.', folder == std::string::npos ? 0 : folder) == std::string::npos)
    file.name += ".sql";
  words.erase(words.begin());
  file.arguments = std::move(words);
  return file;
}

void SqlPlusState::Pass(std::vector<std::string> const& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i)
    variables_[std::to_string(i + 1)] = arguments[i];
}

// The words of a command behind its name, with the variables in them replaced.
std::vector<std::string> SqlPlusState::Words(std::string_view command) const {
  ExpandedText expanded;
  if (prefix_ != '\0' && Expand(command, 0, expanded)) command = expanded.Text();
  return CommandWords(command);
}

void SqlPlusState::SetOptions(std::vector<std::string> const& words) {
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    auto const option = ToUpper(words[i]);
    if (option != "SCAN" && !(option.size() >= 3 && std::string_view("DEFINE").starts_with(option)))
      continue;
    auto const value = ToUpper(words[++i]);
    if (value == "OFF")
      prefix_ = '\0';
    else if (value == "ON")
      prefix_ = '&';
    else if (value.size() == 1)
      prefix_ = value[0];
  }
}

}  // namespace repora::reader
