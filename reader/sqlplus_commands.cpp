#include "reader/sqlplus_commands.h"

#include <algorithm>

#include "reader/characters.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

struct Command {
  std::string_view name;
  std::size_t shortest;  // letters that suffice
  CommandKind kind = CommandKind::Other;
};

constexpr Command kCommands[] = {
    {"REMARK", 3, CommandKind::Remark},
    {"PROMPT", 3, CommandKind::Text},
    {"SET", 3, CommandKind::Set},
    {"DEFINE", 3, CommandKind::Define},
    {"UNDEFINE", 5, CommandKind::Undefine},
    {"START", 3, CommandKind::Include},
    {"SPOOL", 3},
    {"CONNECT", 4},
    {"DISCONNECT", 4},
    {"EXIT", 4, CommandKind::Exit},
    {"QUIT", 4, CommandKind::Exit},
    {"WHENEVER", 8},
    {"EXECUTE", 4, CommandKind::Execute},
    {"SHOW", 3},
    {"COLUMN", 3, CommandKind::Column},
    {"ACCEPT", 3, CommandKind::Accept},
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
    {"ATTRIBUTE", 4},
    {"STARTUP", 7},
    {"SHUTDOWN", 8},
    {"RECOVER", 7},
    {"COPY", 4},
    {"EDIT", 2},
    {"GET", 3},
    {"HELP", 4},
    {"HISTORY", 4},
    {"LIST", 1},
    {"RUN", 1},
    {"SAVE", 3},
};

constexpr bool IsLetter(char c) {
  auto const upper = UpperAscii(c);
  return (upper >= 'A' && upper <= 'Z') || c == '_';
}

// The word at the start of a text.
std::string_view WordOf(std::string_view text) {
  auto const* const end = std::find_if_not(text.begin(), text.end(), IsLetter);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string_view TrimLeft(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::string_view TrimRight(std::string_view text) {
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> names) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view name) { return EqualsIgnoringCase(word, name); });
}

// Whether the text behind the name of a command can follow it. The line is not searched to its end:
// it may hold as many statements as the script.
bool CanFollow(std::string_view rest, Command const& command) {
  char const next = rest.empty() ? ' ' : rest.front();
  if (IsNameByte(static_cast<unsigned char>(next))) return false;
  if (command.kind == CommandKind::Text || command.kind == CommandKind::Remark) return true;
  if (next == '.' || next == '(' || next == '%') return false;
  rest = TrimLeft(rest);
  if (rest.starts_with(":=")) return false;
  auto const word = WordOf(rest);
  switch (command.kind) {
    case CommandKind::Set:
      return !IsOneOf(word, {"ROLE", "TRANSACTION", "CONSTRAINT", "CONSTRAINTS"});
    case CommandKind::Exit: return !IsOneOf(word, {"WHEN"});
    default: break;
  }
  // One letter is too little to be sure by.
  if (command.shortest > 1) return true;
  if (IsOneOf(word, {"LAST"})) rest.remove_prefix(word.size());
  auto const other = rest.find_first_not_of("0123456789* \t;");
  return other == std::string_view::npos || IsLineEnd(rest[other]);
}

// Whether a line that starts with a "$" is for the operating system, and is neither conditional
// compilation nor a placeholder of a migration tool.
bool IsHost(std::string_view line) {
  line.remove_prefix(1);
  return !line.starts_with('{') && !line.starts_with('$') &&
         !IsOneOf(WordOf(line), {"IF", "THEN", "ELSE", "ELSIF", "END", "ERROR"});
}

// Whether what starts behind a blank is a comment behind a command. Rules of dashes are none, and
// neither is a last "--", which scripts give to a variable to comment lines out.
bool IsComment(std::string_view text) {
  return text.starts_with("/*") || (text.starts_with("--") && text.size() > 2 && text[2] != '-');
}

// Whether a line ends in the "-" that continues a command. Rules of dashes are drawn with PROMPT
// more often than lines are continued behind one, so a "-" behind another does not count.
bool IsContinued(std::string_view line) {
  line = TrimRight(line);
  return line.ends_with('-') && !line.ends_with("--");
}

// The end of a quoted word, behind its quote; a doubled quote does not end it.
std::size_t QuoteEnd(std::string_view line, std::size_t start) {
  auto end = start + 1;
  while ((end = line.find(line[start], end)) != std::string_view::npos) {
    if (line.substr(end + 1, 1) != line.substr(start, 1)) return end + 1;
    end += 2;
  }
  return line.size();
}

// What stands between quotes, where a doubled one is one.
std::string Unquoted(std::string_view quoted) {
  char const quote = quoted.front();
  quoted.remove_prefix(1);
  if (!quoted.empty() && quoted.back() == quote) quoted.remove_suffix(1);
  std::string text;
  for (std::size_t i = 0; i < quoted.size(); ++i) {
    text += quoted[i];
    if (quoted[i] == quote && i + 1 < quoted.size()) ++i;
  }
  return text;
}

constexpr bool IsQuote(char c) {
  return c == '\'' || c == '"';
}

}  // namespace

bool Abbreviates(std::string_view word, std::string_view name, std::size_t shortest) {
  return word.size() >= shortest && word.size() <= name.size() &&
         std::equal(word.begin(), word.end(), name.begin(),
                    [](char a, char b) { return UpperAscii(a) == b; });
}

CommandKind CommandAt(std::string_view text, std::size_t offset) {
  text.remove_prefix(offset);
  if (text.starts_with("@@")) return CommandKind::IncludeBeside;
  if (text.starts_with('@')) return CommandKind::Include;
  if (text.starts_with('!')) return CommandKind::Other;
  if (text.starts_with('$')) return IsHost(text) ? CommandKind::Other : CommandKind::None;
  auto const word = WordOf(text);
  for (auto const& command : kCommands)
    if (Abbreviates(word, command.name, command.shortest))
      return CanFollow(text.substr(word.size()), command) ? command.kind : CommandKind::None;
  return CommandKind::None;
}

bool IsLogin(std::string_view text, std::size_t offset) {
  auto const word = WordOf(text.substr(offset));
  if (!Abbreviates(word, "CONNECT", 4)) return false;
  auto const start = offset + word.size();
  auto const login = TrimLeft(text.substr(start, LineEnd(text, start) - start));
  auto const user = login.starts_with('"') ? QuoteEnd(login, 0) : login.find_first_of("/ \t");
  if (user == 0 || user >= login.size() || login[user] != '/') return false;
  auto const password = login.substr(user + 1);
  return !password.empty() && !IsBlank(password.front()) && password.front() != '*';
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

std::string CommandLine(std::string_view command) {
  std::string line;
  for (std::size_t start = 0; start < command.size();) {
    auto const end = LineEnd(command, start);
    auto part = TrimRight(command.substr(start, end - start));
    if (IsContinued(part)) part.remove_suffix(1);
    line.append(part);
    start = AfterLineEnd(command, end);
    if (start < command.size()) line += ' ';
  }
  for (std::size_t i = 0; i < line.size(); i = IsQuote(line[i]) ? QuoteEnd(line, i) : i + 1) {
    auto const rest = std::string_view(line).substr(i);
    if (i > 0 && IsBlank(line[i - 1]) && IsComment(rest)) line.resize(i);
  }
  auto text = TrimRight(line);
  if (text.ends_with(';')) text = TrimRight(text.substr(0, text.size() - 1));
  line.resize(text.size());
  return line;
}

std::vector<std::string> CommandWords(std::string_view line) {
  std::vector<std::string> words;
  bool const include = line.starts_with('@');
  auto const first = include ? line.find_first_not_of('@') : WordOf(line).size();
  for (auto at = std::min(first, line.size()); at < line.size();) {
    if (IsBlank(line[at])) {
      ++at;
    } else if (IsQuote(line[at])) {
      auto const end = QuoteEnd(line, at);
      words.push_back(Unquoted(line.substr(at, end - at)));
      at = end;
    } else {
      auto const end = std::min(line.find_first_of(" \t", at), line.size());
      words.emplace_back(line.substr(at, end - at));
      at = end;
    }
  }
  return words;
}

Definition ReadDefinition(std::string_view line) {
  line = TrimLeft(line.substr(WordOf(line).size()));
  auto const equals = line.find('=');
  if (equals == std::string_view::npos) return {};
  auto const name = TrimRight(line.substr(0, equals));
  if (name.empty() || name.find_first_of(" \t'\"") != std::string_view::npos) return {};
  auto const value = TrimLeft(line.substr(equals + 1));
  if (value.empty()) return {};
  bool const quoted = IsQuote(value.front()) && QuoteEnd(value, 0) == value.size();
  return {name, quoted ? Unquoted(value) : std::string(value)};
}

}  // namespace repora::reader
