#include "reader/sqlplus_state.h"

#include <algorithm>

#include "repora/core/letters.h"

namespace repora::reader {
namespace {

// Definitions that use each other grow fast; no sensible value is as long.
constexpr std::size_t kLongestValue = 4000;
constexpr std::size_t kLongestExpansion = std::size_t{64} * 1024 * 1024;

std::string Hint(std::string const& variable) {
  return "; give a value by --define " + variable + "=VALUE";
}

std::string NoValue(std::string const& variable, std::string const& reason) {
  return "variable " + variable + " has no value and stays as it is written" + reason +
         Hint(variable);
}

// The character that a word of SET puts in place of another; NUL for OFF.
char MarkOf(std::string const& word, char mark, char usual) {
  auto const value = ToUpper(word);
  if (value == "ON") return usual;
  if (value == "OFF") return '\0';
  return word.size() == 1 && (static_cast<unsigned char>(word[0]) < 0x80) ? word[0] : mark;
}

// Why a file of that name is none that could be looked for; empty: it is one.
std::string ProblemOf(std::string const& name) {
  if (name.starts_with('?')) return "the home folder of the database is not known here";
  if (name.starts_with('$') || name.starts_with('%') || name.find("/$") != std::string::npos)
    return "variables of the environment are not looked at";
  if (name.find("://") != std::string::npos) return "nothing is fetched from the network";
  return {};
}

// A name as it may be shown: a place in the network without user and password.
std::string ShownName(std::string name) {
  auto const scheme = name.find("://");
  auto const user = scheme == std::string::npos ? scheme : name.find('@', scheme);
  if (user != std::string::npos) name.erase(scheme + 3, user + 1 - scheme - 3);
  return name;
}

}  // namespace

bool SqlPlusState::Expand(std::string_view text, std::size_t origin, ExpandedText& expanded) const {
  std::size_t done = 0;
  for (auto use = FindVariable(text, 0, marks_); use.end != 0;
       use = FindVariable(text, use.end, marks_)) {
    bool const escaped = use.name.empty();
    auto const* const value = escaped ? nullptr : ValueOf(use.name);
    if (!escaped && !value) continue;
    expanded.Append(text.substr(done, use.start - done), origin + done);
    expanded.AppendValue(escaped ? std::string_view(&marks_.prefix, 1) : *value,
                         origin + use.start);
    done = use.end;
    if (expanded.Text().size() > kLongestExpansion) break;
  }
  if (done == 0) return false;
  expanded.Append(text.substr(done), origin + done);
  return true;
}

VariableUse SqlPlusState::FindNotable(std::string_view text, std::size_t offset) const {
  for (;;) {
    auto use = FindVariable(text, offset, marks_);
    bool const notable = !use.name.empty() && !noted_.contains(use.name) &&
                         (!ValueOf(use.name) || queried_.contains(use.name));
    if (notable || use.end == 0) return use;
    offset = use.end;
  }
}

std::string SqlPlusState::NoteOn(std::string const& variable) {
  noted_.insert(variable);
  if (ValueOf(variable))
    return "variable " + variable +
           " keeps its value: the query that would give it another is not run" + Hint(variable);
  if (queried_.contains(variable))
    return NoValue(variable, ": it comes from a query, which is not run");
  if (unresolved_.contains(variable))
    return NoValue(variable, ": its definition uses a variable without a value");
  return NoValue(variable, {});
}

std::string SqlPlusState::Run(CommandKind kind, std::string_view command) {
  auto const line = CommandLine(command);
  switch (kind) {
    case CommandKind::Define: Define(line); break;
    case CommandKind::Undefine:
      for (auto const& word : CommandWords(Expanded(line))) {
        auto const variable = ToUpper(word);
        variables_.erase(variable);
        unresolved_.erase(variable);
        queried_.erase(variable);
      }
      break;
    case CommandKind::Accept: return Accept(CommandWords(Expanded(line)));
    case CommandKind::Column: TakeFromQuery(CommandWords(Expanded(line))); break;
    case CommandKind::Set: SetOptions(CommandWords(Expanded(line))); break;
    default: break;
  }
  return {};
}

SqlPlusState::File SqlPlusState::IncludedFile(std::string_view command) {
  File file;
  auto const line = CommandLine(command);
  auto const written = CommandWords(line);
  file.arguments = CommandWords(Expanded(line));
  if (file.arguments.empty()) return file;
  auto const name = std::move(file.arguments.front());
  file.arguments.erase(file.arguments.begin());

  auto const undefined = FindUndefined(written.front(), 0);
  if (undefined.end != 0) {
    noted_.insert(undefined.name);
    file.problem = "variable " + undefined.name + " has no value" + Hint(undefined.name);
  } else {
    file.problem = ProblemOf(name);
  }
  file.name = ShownName(name);
  file.is_secret = file.name != name || !file.arguments.empty();
  auto const folder = name.find_last_of("/\\");
  if (name.find('.', folder == std::string::npos ? 0 : folder) == std::string::npos)
    file.name += "." + suffix_;
  if (!file.problem.empty()) return file;
  for (std::size_t i = 1; i < written.size(); ++i)
    for (auto use = FindNotable(written[i], 0); use.end != 0;
         use = FindNotable(written[i], use.end))
      file.notes.push_back(NoteOn(use.name));
  return file;
}

std::string const* SqlPlusState::ValueOf(std::string const& variable) const {
  auto const defined = variables_.find(variable);
  if (defined != variables_.end()) return &defined->second;
  auto const given = given_.find(variable);
  return given != given_.end() ? &given->second : nullptr;
}

std::string SqlPlusState::Expanded(std::string_view text) const {
  ExpandedText expanded;
  return Expand(text, 0, expanded) ? expanded.Text() : std::string(text);
}

VariableUse SqlPlusState::FindUndefined(std::string_view text, std::size_t offset) const {
  auto use = FindVariable(text, offset, marks_);
  while (use.end != 0 && (use.name.empty() || ValueOf(use.name)))
    use = FindVariable(text, use.end, marks_);
  return use;
}

void SqlPlusState::Define(std::string_view line) {
  auto const definition = ReadDefinition(line);
  if (definition.name.empty()) return;
  auto const variable = ToUpper(Expanded(definition.name));
  auto value = Expanded(definition.value);
  queried_.erase(variable);
  if (FindUndefined(definition.value, 0).end != 0 || value.size() > kLongestValue) {
    variables_.erase(variable);
    unresolved_.insert(variable);
  } else {
    variables_[variable] = std::move(value);
    unresolved_.erase(variable);
  }
}

std::string SqlPlusState::Accept(std::vector<std::string> const& words) {
  if (words.empty()) return {};
  auto const variable = ToUpper(words[0]);
  queried_.erase(variable);
  unresolved_.erase(variable);
  variables_.erase(variable);
  if (given_.contains(variable)) return {};
  for (std::size_t i = 1; i + 1 < words.size(); ++i) {
    if (Abbreviates(words[i], "PROMPT", 3) || Abbreviates(words[i], "FORMAT", 3))
      ++i;
    else if (Abbreviates(words[i], "DEFAULT", 3) && FindUndefined(words[i + 1], 0).end == 0) {
      variables_[variable] = words[i + 1];
      return {};
    }
  }
  if (!noted_.insert(variable).second) return {};
  return NoValue(variable, ": ACCEPT asks for it");
}

// COLUMN column NEW_VALUE variable: the next query would give the variable a value. An answer that
// was given stands for it.
void SqlPlusState::TakeFromQuery(std::vector<std::string> const& words) {
  for (std::size_t i = 1; i + 1 < words.size(); ++i) {
    if (!Abbreviates(words[i], "NEW_VALUE", 5) && !Abbreviates(words[i], "OLD_VALUE", 5)) continue;
    auto const variable = ToUpper(words[++i]);
    auto const given = given_.find(variable);
    if (given != given_.end())
      variables_[variable] = given->second;
    else
      queried_.insert(variable);
  }
}

void SqlPlusState::SetOptions(std::vector<std::string> const& words) {
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    auto const& option = words[i];
    auto const& value = words[i + 1];
    if (Abbreviates(option, "DEFINE", 3) || Abbreviates(option, "SCAN", 4))
      marks_.prefix = MarkOf(value, marks_.prefix, '&');
    else if (Abbreviates(option, "ESCAPE", 3))
      marks_.escape = MarkOf(value, marks_.escape, '\\');
    else if (Abbreviates(option, "CONCAT", 3))
      marks_.concat = MarkOf(value, marks_.concat, '.');
    else if (Abbreviates(option, "SQLTERMINATOR", 4))
      terminator_ = MarkOf(value, terminator_, ';');
    else if (Abbreviates(option, "SUFFIX", 3))
      suffix_ = value.substr(value.starts_with('.') ? 1 : 0);
    else
      continue;
    ++i;
  }
}

SqlPlusState::Arguments::Arguments(SqlPlusState& state, std::vector<std::string> const& arguments)
    : variables_(state.variables_),
      outer_(variables_.lower_bound("0"), variables_.lower_bound(":")) {
  for (std::size_t i = 0; i < arguments.size(); ++i)
    variables_[std::to_string(i + 1)] = arguments[i];
}

SqlPlusState::Arguments::~Arguments() {
  variables_.erase(variables_.lower_bound("0"), variables_.lower_bound(":"));
  variables_.merge(outer_);
}

}  // namespace repora::reader
