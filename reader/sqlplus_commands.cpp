#include "reader/sqlplus_commands.h"

#include "reader/characters.h"

namespace repora::reader {
namespace {

struct Command {
  std::string_view name;
  std::size_t shortest;  // letters that suffice
  CommandKind kind = CommandKind::Other;
};

constexpr Command kCommands[] = {
    {"REMARK", 3, CommandKind::Remark},
    {"PROMPT", 3},
    {"SET", 3, CommandKind::Set},
    {"DEFINE", 3, CommandKind::Define},
    {"UNDEFINE", 5, CommandKind::Undefine},
    {"START", 3, CommandKind::Include},
    {"SPOOL", 3},
    {"CONNECT", 4},
    {"DISCONNECT", 4},
    {"EXIT", 4},
    {"QUIT", 4},
    {"WHENEVER", 8},
    {"EXECUTE", 4},
    {"SHOW", 3},
    {"COLUMN", 3},
    {"ACCEPT", 3},
    {"PAUSE", 3},
    {"HOST", 2},
    {"VARIABLE", 3},
    {"PRINT", 3},
    {"TTITLE", 3},
    {"BTITLE", 3},
    {"REPHEADER", 4},
    {"REPFOOTER", 4},
    {"BREAK", 3},
    {"COMPUTE", 4},
    {"CLEAR", 2},
    {"TIMING", 4},
    {"DESCRIBE", 4},
    {"STORE", 5},
    {"PASSWORD", 5},
    {"ARCHIVE", 7},
    {"STARTUP", 7},
    {"SHUTDOWN", 8},
    {"RECOVER", 7},
    {"COPY", 4},
    {"EDIT", 2},
    {"GET", 3},
    {"HELP", 4},
    {"LIST", 4},
    {"RUN", 3},
    {"SAVE", 3},
};

// Whether a word is a name or the beginning of it, whatever its case.
bool Abbreviates(std::string_view word, std::string_view name) {
  if (word.size() > name.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i)
    if (UpperAscii(word[i]) != name[i]) return false;
  return true;
}

// Whether a line ends in the "-" that continues a command. Rules of dashes are drawn with PROMPT
// more often than lines are continued behind one, so a "-" behind another does not count.
bool IsContinued(std::string_view line) {
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  return line.ends_with('-') && !line.ends_with("--");
}

}  // namespace

CommandKind FindCommand(std::string_view word) {
  if (word == "@" || word == "!" || word == "$")
    return word == "@" ? CommandKind::Include : CommandKind::Other;
  for (auto const& command : kCommands)
    if (word.size() >= command.shortest && Abbreviates(word, command.name)) return command.kind;
  return CommandKind::None;
}

std::size_t CommandEnd(std::string_view text, std::size_t start, CommandKind kind) {
  auto end = LineEnd(text, start);
  while (kind != CommandKind::Remark && end < text.size() &&
         IsContinued(text.substr(start, end - start))) {
    start = AfterLineEnd(text, end);
    end = LineEnd(text, start);
  }
  return end;
}

std::vector<std::string> CommandWords(std::string_view command) {
  std::vector<std::string> words;
  while (!command.empty() && IsBlank(command.back())) command.remove_suffix(1);
  if (command.ends_with(';')) command.remove_suffix(1);
  std::size_t at = 0;
  auto const is_space = [&](std::size_t i) { return IsBlank(command[i]) || IsLineEnd(command[i]); };
  while (at < command.size() && command[at] == '@') ++at;
  bool const include = at > 0;
  while (at < command.size()) {
    if (is_space(at)) {
      ++at;
      continue;
    }
    auto const rest = command.substr(at);
    if (rest.starts_with("--") || rest.starts_with("/*")) break;
    if (rest.front() == '-' && IsContinued(rest.substr(0, LineEnd(rest, 0))) &&
        (rest.size() == 1 || is_space(at + 1))) {
      ++at;
      continue;
    }
    std::string word;
    char const quote = rest.front();
    if (quote == '\'' || quote == '"') {
      auto const end = command.find(quote, at + 1);
      word = command.substr(at + 1, end == std::string_view::npos ? end : end - at - 1);
      at = end == std::string_view::npos ? command.size() : end + 1;
    } else if (quote == '=') {
      word = "=";
      ++at;
    } else {
      auto const start = at;
      while (at < command.size() && !is_space(at) && (include || command[at] != '=')) ++at;
      word = command.substr(start, at - start);
    }
    words.push_back(std::move(word));
  }
  if (!include && !words.empty()) words.erase(words.begin());
  return words;
}

}  // namespace repora::reader
