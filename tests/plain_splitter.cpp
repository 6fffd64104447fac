#include "tests/plain_splitter.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace repora::test {
namespace {

std::string Upper(std::string text) {
  for (auto& c : text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

bool IsWordPart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '$' || c == '#' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v' || c == '\x1A';
}

std::string Trimmed(std::string const& line) {
  std::size_t begin = 0;
  std::size_t end = line.size();
  while (begin < end && IsSpace(line[begin])) ++begin;
  while (end > begin && IsSpace(line[end - 1])) --end;
  return line.substr(begin, end - begin);
}

// The words of a text in capitals; every other character that is no blank is a word of its own.
std::vector<std::string> WordsOf(std::string const& text) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < text.size();) {
    auto end = i;
    while (end < text.size() && IsWordPart(text[end])) ++end;
    if (end == i) {
      if (!IsSpace(text[i])) words.emplace_back(1, text[i]);
      ++i;
    } else {
      words.push_back(Upper(text.substr(i, end - i)));
      i = end;
    }
  }
  return words;
}

std::set<std::string> const kVerbs = {
    "CREATE",    "ALTER",     "COMMENT", "INSERT",   "UPDATE",       "DELETE",  "MERGE",
    "SELECT",    "WITH",      "GRANT",   "REVOKE",   "DROP",         "RENAME",  "TRUNCATE",
    "PURGE",     "FLASHBACK", "COMMIT",  "ROLLBACK", "SAVEPOINT",    "LOCK",    "ANALYZE",
    "ASSOCIATE", "EXPLAIN",   "CALL",    "AUDIT",    "DISASSOCIATE", "NOAUDIT", "ADMINISTER",
    "BEGIN",     "DECLARE",   "("};

// What stands between CREATE or ALTER and the kind of object.
std::set<std::string> const kAdjectives = {
    "OR",      "REPLACE", "GLOBAL",      "PRIVATE",    "LOCAL",          "PUBLIC",  "TEMPORARY",
    "UNIQUE",  "BITMAP",  "FORCE",       "NO",         "NOFORCE",        "BIGFILE", "SMALLFILE",
    "UNDO",    "SHARED",  "EDITIONABLE", "EDITIONING", "NONEDITIONABLE", "AND",     "COMPILE",
    "RESOLVE", "SHARDED", "DUPLICATED",  "IMMUTABLE",  "BLOCKCHAIN",     "JSON",    "RELATIONAL",
    "DUALITY", "HYBRID",  "VECTOR",      "COLLECTION", "MULTIVALUE"};

std::set<std::string> const kObjects = {
    "TABLE",       "TABLESPACE", "INDEX",   "INDEXTYPE", "VIEW",      "MATERIALIZED", "SNAPSHOT",
    "SEQUENCE",    "SYNONYM",    "TRIGGER", "PROCEDURE", "FUNCTION",  "PACKAGE",      "TYPE",
    "LIBRARY",     "JAVA",       "MLE",     "OPERATOR",  "OUTLINE",   "SCHEMA",       "DIMENSION",
    "USER",        "ROLE",       "PROFILE", "CONTEXT",   "DIRECTORY", "DATABASE",     "CLUSTER",
    "CONTROLFILE", "PFILE",      "SPFILE",  "ROLLBACK",  "DISKGROUP", "PLUGGABLE",    "AUDIT",
    "EDITION",     "FLASHBACK",  "RESTORE", "ANALYTIC",  "ATTRIBUTE", "HIERARCHY",    "INMEMORY",
    "LOCKDOWN",    "PROPERTY",   "DOMAIN",  "SESSION",   "SYSTEM",    "RESOURCE"};

// Whether the quote at a place of a line stands right behind a word that no string follows so.
bool TouchesName(std::string const& line, std::size_t quote) {
  auto start = quote;
  while (start > 0 && IsWordPart(line[start - 1])) --start;
  static std::set<std::string> const kBeforeStrings = {"",         "N",    "Q",       "NQ",
                                                       "AS",       "DATE", "DEFAULT", "IMMEDIATE",
                                                       "INTERVAL", "IS",   "LIKE",    "TIMESTAMP"};
  return kBeforeStrings.count(Upper(line.substr(start, quote - start))) == 0;
}

struct Spelling {
  std::string_view shortest;
  std::string_view rest;
};

constexpr Spelling kCommands[] = {
    {"REM", "ARK"},   {"PRO", "MPT"},   {"SET", ""},       {"DEF", "INE"},     {"UNDEF", "INE"},
    {"STA", "RT"},    {"SPO", "OL"},    {"CONN", "ECT"},   {"DISC", "ONNECT"}, {"EXIT", ""},
    {"QUIT", ""},     {"WHENEVER", ""}, {"EXEC", "UTE"},   {"SHO", "W"},       {"COL", "UMN"},
    {"ACC", "EPT"},   {"PAU", "SE"},    {"HO", "ST"},      {"VAR", "IABLE"},   {"PRI", "NT"},
    {"TTI", "TLE"},   {"BTI", "TLE"},   {"REPH", "EADER"}, {"REPF", "OOTER"},  {"BRE", "AK"},
    {"COMP", "UTE"},  {"CL", "EAR"},    {"TIMI", "NG"},    {"DESC", "RIBE"},   {"STORE", ""},
    {"PASSW", "ORD"}, {"ARCHIVE", ""},  {"STARTUP", ""},   {"SHUTDOWN", ""},   {"RECOVER", ""},
    {"COPY", ""},     {"ED", "IT"},     {"GET", ""},       {"HELP", ""},       {"LIST", ""},
    {"RUN", ""},      {"SAV", "E"}};

bool IsCommandWord(std::string const& word) {
  return std::any_of(std::begin(kCommands), std::end(kCommands), [&](Spelling const& one) {
    return word.starts_with(one.shortest) &&
           one.rest.starts_with(std::string_view(word).substr(one.shortest.size()));
  });
}

bool IsCommand(std::vector<std::string> const& words) {
  if (words.empty()) return false;
  if (words[0] == "@" || words[0] == "!" || words[0] == "$") return true;
  if (words[0] == "SET" && words.size() > 1)
    return words[1] != "ROLE" && words[1] != "TRANSACTION" && !words[1].starts_with("CONSTRAINT");
  return IsCommandWord(words[0]);
}

bool IsVerb(std::vector<std::string> const& words) {
  if (words.empty()) return false;
  if (words[0] == "<") return words.size() > 2 && words[1] == "<" && words[2] != "<";
  if (words[0] == "SET") return !IsCommand(words);
  if (words[0] == "LOCK") return words.size() > 1 && words[1] == "TABLE";
  return kVerbs.count(words[0]) != 0;
}

// Whether words at the start of a line open a statement wherever they stand.
bool OpensForSure(std::vector<std::string> const& words) {
  if (words.size() < 2) return false;
  if (words[0] == "CREATE") return words[1] != "DATAFILE" && words[1] != "STANDBY";
  if (words[0] == "ALTER" || words[0] == "DROP") return words[1] == "TABLE";
  return (words[0] == "COMMENT" && words[1] == "ON") ||
         (words[0] == "INSERT" && words[1] == "INTO");
}

class PlainSplitter {
 public:
  // The last line with a quote: a string that is open behind it is never closed.
  explicit PlainSplitter(std::size_t last_quote) : last_quote_(last_quote) {}
  void TakeLine(std::string const& line);
  std::vector<PlainStatement> Result() {
    if (inside_ == Inside::Comment && mode_ == Mode::Between)
      found_.push_back({comment_line_, "?"});
    return std::move(found_);
  }

 private:
  enum class Inside { Code, String, DelimitedString, Name, Comment };
  enum class Mode { Between, Sql, Unit, Source, Junk };

  std::string Masked(std::string const& line);
  bool EndsBefore(std::vector<std::string> const& words) const;
  void TakeStatements(std::string const& line, std::string const& code);
  void CountParentheses(std::string const& text);
  bool Start(std::string const& line, std::vector<std::string> const& words);
  void TakeUnit(std::string const& code);
  void Settle();
  bool IsOf(std::string const& word) const {
    return std::find(first_.begin(), first_.end(), word) != first_.end();
  }
  void Close();

  std::vector<PlainStatement> found_;
  std::size_t last_quote_;
  std::size_t comment_line_ = 0;  // where a comment starts
  bool is_misquoted_ = false;     // a word touches a string
  bool was_slash_ = false;        // the line before is a "/"
  bool was_ended_ = false;        // or ends in ";"
  std::size_t line_ = 0;
  Mode mode_ = Mode::Between;
  Inside inside_ = Inside::Code;
  char delimiter_ = 0;
  bool is_misspelt_ = false;        // it creates nothing that is known
  bool cut_short_ = false;          // the statement before has not ended where it should
  bool continued_ = false;          // a command goes on in this line
  int parentheses_ = 0;             // that are open
  std::vector<std::string> first_;  // the first words of the open statement
  // Of a unit of code:
  int open_ = 0;                     // what waits for its END
  int subprograms_ = 0;              // in it
  bool may_have_ended_ = false;      // behind an END with nothing open
  std::string previous_;             // the word before
  std::vector<std::string> phrase_;  // the first words since the last ";"
};

// The line with comments, strings and quoted names blanked but for their first quote.
std::string PlainSplitter::Masked(std::string const& line) {
  std::string code;
  for (std::size_t i = 0; i < line.size(); ++i) {
    char const c = line[i];
    char const next = i + 1 < line.size() ? line[i + 1] : '\0';
    char shown = ' ';
    bool two = false;
    switch (inside_) {
      case Inside::Code:
        if (c == '-' && next == '-') return code;
        two = c == '/' && next == '*';
        if (two) {
          inside_ = Inside::Comment;
          comment_line_ = line_;
          break;
        }
        shown = c;
        if (c == '"') inside_ = Inside::Name;
        if (c != '\'') break;
        inside_ = Inside::String;
        is_misquoted_ = is_misquoted_ || TouchesName(line, i);
        if (i > 0 && (line[i - 1] == 'q' || line[i - 1] == 'Q') && next != '\0') {
          auto const start = i > 1 && (line[i - 2] == 'n' || line[i - 2] == 'N') ? i - 2 : i - 1;
          if (start > 0 && IsWordPart(line[start - 1])) break;
          inside_ = Inside::DelimitedString;
          auto const pair = std::string_view("([{<").find(next);
          delimiter_ = pair == std::string_view::npos ? next : ")]}>"[pair];
          two = true;
        }
        break;
      case Inside::String:
        two = c == '\'' && next == '\'';
        if (c != '\'' || two) break;
        inside_ = Inside::Code;
        is_misquoted_ = is_misquoted_ || IsWordPart(next);
        break;
      case Inside::DelimitedString:
        two = c == delimiter_ && next == '\'';
        if (two) inside_ = Inside::Code;
        break;
      case Inside::Name:
        if (c == '"') inside_ = Inside::Code;
        break;
      case Inside::Comment:
        two = c == '*' && next == '/';
        if (two) inside_ = Inside::Code;
        break;
    }
    code += shown;
    if (!two) continue;
    code += ' ';
    ++i;
  }
  if (inside_ == Inside::Name) inside_ = Inside::Code;  // no name goes over the end of a line
  return code;
}

void PlainSplitter::TakeLine(std::string const& line) {
  ++line_;
  auto const trimmed = Trimmed(line);
  if (continued_) {
    continued_ = trimmed.ends_with('-') && !trimmed.ends_with("--");
    return;
  }
  if (mode_ == Mode::Source) {
    if (trimmed == "/") Close();
    return;
  }
  if (inside_ == Inside::String) {
    auto const words = WordsOf(line);
    bool const never_closed = line_ > last_quote_ && was_ended_ && IsVerb(words);
    bool const unit_ended = mode_ != Mode::Unit || was_slash_ ||
                            (words.size() > 1 && words[0] == "CREATE" && was_ended_);
    if (unit_ended && (never_closed || (is_misquoted_ && OpensForSure(words)))) Close();
  }
  was_slash_ = trimmed == "/";
  was_ended_ = was_slash_ || trimmed.ends_with(';');
  bool const in_code = inside_ == Inside::Code;
  auto const code = Masked(line);
  if (in_code) {
    if (trimmed == "/" || (trimmed == "." && mode_ != Mode::Sql)) {
      cut_short_ = false;
      return Close();
    }
    if (EndsBefore(WordsOf(code))) {
      auto const inside = inside_;
      Close();
      inside_ = inside;
    }
  }
  if (mode_ == Mode::Unit)
    TakeUnit(code);
  else if (mode_ != Mode::Junk)
    TakeStatements(line, code);
  if (mode_ != Mode::Junk) return;
  inside_ = Inside::Code;  // an apostrophe of plain text is none of SQL
  CountParentheses(line);
}

void PlainSplitter::CountParentheses(std::string const& text) {
  if (Trimmed(text).empty() && mode_ == Mode::Junk) parentheses_ = 0;
  for (char const c : text) {
    if (c == '(') ++parentheses_;
    if (c == ')' && parentheses_ > 0) --parentheses_;
  }
}

// Whether the open statement has ended before a line with these words, though nothing said so.
bool PlainSplitter::EndsBefore(std::vector<std::string> const& words) const {
  if (words.empty()) return false;
  switch (mode_) {
    case Mode::Junk:
      return parentheses_ > 0 ? OpensForSure(words) : IsCommand(words) || IsVerb(words);
    case Mode::Sql:
      for (auto const* const lists :
           {"GRANT", "REVOKE", "AUDIT", "NOAUDIT", "EXPLAIN", "SCHEMA", "OUTLINE"})
        if (IsOf(lists)) return false;
      return OpensForSure(words);
    case Mode::Unit:
      if (previous_ == ";" && words[0] == "CREATE") return true;
      if (!may_have_ended_) return false;
      if (words[0] == "BEGIN") return subprograms_ == 0;
      return IsCommand(words) || IsVerb(words);
    default: return false;
  }
}

// Takes a line that goes on with a statement of SQL or stands between two.
void PlainSplitter::TakeStatements(std::string const& line, std::string const& code) {
  for (std::size_t at = 0; at < code.size();) {
    auto const rest = code.substr(at);
    if (mode_ == Mode::Between) {
      if (IsSpace(code[at]) || code[at] == ';') {
        ++at;
        continue;
      }
      if (!Start(line, WordsOf(rest))) return;
    }
    auto const end = rest.find(';');
    for (auto const& word : WordsOf(rest.substr(0, end)))
      if (first_.size() < 20) first_.push_back(word);
    Settle();
    if (mode_ == Mode::Unit) return TakeUnit(rest);
    if (mode_ == Mode::Source) return;
    if (end == std::string::npos) return CountParentheses(rest);
    CountParentheses(rest.substr(0, end));
    // What follows a ";" within a parenthesis is the rest of the statement.
    cut_short_ = parentheses_ > 0 || is_misspelt_;
    auto const inside = inside_;
    Close();
    inside_ = inside;
    at += end + 1;
  }
}

// What starts with these words: false when it is no statement.
bool PlainSplitter::Start(std::string const& line, std::vector<std::string> const& words) {
  if (IsCommand(words)) {
    cut_short_ = false;
    // EXECUTE is short for a block that holds its line.
    if (words[0].starts_with("EXEC")) found_.push_back({line_, "BEGIN"});
    auto const trimmed = Trimmed(line);
    inside_ = Inside::Code;
    continued_ = !words[0].starts_with("REM") && trimmed.ends_with('-') && !trimmed.ends_with("--");
    return false;
  }
  mode_ = IsVerb(words) ? Mode::Sql : Mode::Junk;
  if (mode_ == Mode::Sql || !cut_short_) found_.push_back({line_, "?"});
  cut_short_ = false;
  return mode_ == Mode::Sql;
}

// Tells from the first words what the statement is and how it ends.
void PlainSplitter::Settle() {
  auto kind = first_[0];
  std::string object;
  std::size_t at = 1;
  if (kind == "CREATE" || kind == "ALTER") {
    while (at < first_.size() && kAdjectives.count(first_[at]) != 0) ++at;
    if (at < first_.size()) kind += " " + (object = first_[at]);
  }
  is_misspelt_ = kind != first_[0] && kObjects.count(object) == 0;
  found_.back().kind = is_misspelt_ ? "?" : kind;
  auto const next = at + 1 < first_.size() ? first_[at + 1] : std::string();
  bool const unit = object == "PROCEDURE" || object == "FUNCTION" || object == "PACKAGE" ||
                    object == "TRIGGER" || (object == "TYPE" && next == "BODY");
  if (kind == "BEGIN" || kind == "DECLARE" || kind == "<" || (first_[0] == "CREATE" && unit) ||
      (kind == "WITH" && first_.size() > 1 &&
       (first_[1] == "FUNCTION" || first_[1] == "PROCEDURE")))
    mode_ = Mode::Unit;
  if (first_[0] == "CREATE" &&
      (object == "JAVA" || object == "MLE" || ((unit || object == "TYPE") && IsOf("WRAPPED"))))
    mode_ = Mode::Source;
  for (auto const& word : first_)
    if (kind == "(" && word != "(") found_.back().kind = kind = word;
  if (kind == "<") found_.back().kind = "BEGIN";
}

// Follows BEGIN and END to know where a unit may end of itself.
void PlainSplitter::TakeUnit(std::string const& code) {
  for (auto const& word : WordsOf(code)) {
    if (word == ";") {
      auto const behind_end = phrase_.size() > 1 ? phrase_[1] : std::string();
      bool const ends = !phrase_.empty() && phrase_[0] == "END" && behind_end != "IF" &&
                        behind_end != "LOOP" && behind_end != "CASE";
      bool const foreign = std::find(phrase_.begin(), phrase_.end(), "LANGUAGE") != phrase_.end();
      may_have_ended_ = (ends || foreign) && open_ <= 0;
      phrase_.clear();
    } else {
      may_have_ended_ = false;
      if ((phrase_.empty() || previous_ == "IS" || previous_ == "AS") &&
          (word == "PROCEDURE" || word == "FUNCTION"))
        ++subprograms_;
      if (phrase_.size() < 12) phrase_.push_back(word);
      bool const name = previous_ == ".";
      if (word == "BEGIN" && !name) {
        ++open_;
        phrase_.clear();
      }
      if ((word == "IF" || word == "LOOP" || word == "CASE") && previous_ != "END" && !name)
        ++open_;
      if (word == "END" && !name) --open_;
    }
    previous_ = word;
  }
}

void PlainSplitter::Close() {
  mode_ = Mode::Between;
  inside_ = Inside::Code;
  first_.clear();
  parentheses_ = 0;
  is_misquoted_ = false;
  open_ = subprograms_ = 0;
  may_have_ended_ = false;
  previous_.clear();
  phrase_.clear();
}

}  // namespace

std::vector<PlainStatement> SplitPlainly(std::string const& text) {
  auto script = text;
  for (std::string_view const blank : {"\xC2\xA0", "\xE3\x80\x80", "\xE2\x80\x8B"})
    for (std::size_t at = 0; (at = script.find(blank, at)) != std::string::npos;)
      script.replace(at, blank.size(), blank.size(), ' ');
  auto const last_quote = script.rfind('\'');
  auto const quoted = last_quote == std::string::npos
                          ? script.begin()
                          : script.begin() + static_cast<std::ptrdiff_t>(last_quote);
  PlainSplitter splitter(static_cast<std::size_t>(std::count(script.begin(), quoted, '\n')) + 1);
  std::string line;
  std::string_view const mark = "\xEF\xBB\xBF";
  for (std::size_t i = script.starts_with(mark) ? mark.size() : 0; i < script.size(); ++i) {
    bool const ends = script[i] == '\n' || script[i] == '\r';
    if (!ends) line += script[i];
    if (script[i] == '\r' && i + 1 < script.size() && script[i + 1] == '\n') ++i;
    if (!ends && i + 1 < script.size()) continue;
    splitter.TakeLine(line);
    line.clear();
  }
  return splitter.Result();
}

}  // namespace repora::test
