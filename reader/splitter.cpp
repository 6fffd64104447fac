#include "reader/splitter.h"

#include <algorithm>

#include "reader/characters.h"

namespace repora::reader {
namespace {

// Tokens of a statement that is not read which are kept all the same: they name it.
constexpr std::size_t kTokensOfName = 24;

// More than the words that tell the kind of a statement take.
constexpr std::size_t kBytesOfKind = 1000;

// Of two tokens the string that is touched by a name, which hardly anybody writes but who forgets a
// quote or to double it.
Token const* FindMisquoted(Token const& before, Token const& token) {
  if (before.end() != token.offset) return nullptr;
  if (before.kind == TokenKind::String &&
      (token.kind == TokenKind::Word || token.kind == TokenKind::Number))
    return &before;
  if (before.kind != TokenKind::Word || token.kind != TokenKind::String) return nullptr;
  switch (before.word) {
    case K_AS:
    case K_DATE:
    case K_DEFAULT:
    case K_IMMEDIATE:
    case K_INTERVAL:
    case K_IS:
    case K_LIKE:
    case K_TIMESTAMP: return nullptr;
    default: return &token;
  }
}

}  // namespace

Section Splitter::Next() {
  Section section;
  for (;;) {
    auto const first = lexer_.Next();
    if (first.kind == TokenKind::End) return section;
    if (IsEmptyStatement(first)) continue;
    section.start = first.offset;
    section.fault.offset = first.offset;
    if (!ReadCommand(first, section)) ReadStatement(first, section);
    return section;
  }
}

bool Splitter::ReadCommand(Token const& first, Section& section) {
  if (first.word == K_CREATE || first.word == K_ALTER || first.word == K_INSERT ||
      first.word == K_COMMENT)
    return false;
  section.command = CommandAt(text_, first.offset);
  if (section.command == CommandKind::None) return false;
  section.kind = Section::Kind::Command;
  section.end = section.stop = CommandEnd(text_, first.offset, section.command);
  if (section.command == CommandKind::Execute) ReadExecute(section);
  lexer_.MoveTo(section.end);
  return true;
}

// EXECUTE is short for a PL/SQL block.
void Splitter::ReadExecute(Section& section) {
  section.kind = Section::Kind::Statement;
  section.statement = &BlockKind();
  tokens_.clear();
  Lexer line(text_.substr(0, section.end));
  line.MoveTo(section.start);
  auto token = line.Next();
  for (; token.kind != TokenKind::End && token.kind != TokenKind::Fault; token = line.Next()) {
    section.has_password = section.has_password || token.word == K_IDENTIFIED;
    ++section.words;
    if (tokens_.size() < kTokensOfName) tokens_.push_back(token);
  }
  Token end;
  end.offset = static_cast<std::uint32_t>(section.end);
  tokens_.push_back(end);
}

void Splitter::ReadStatement(Token const& first, Section& section) {
  section.kind = Section::Kind::Statement;
  tokens_.clear();
  finder_.Clear();
  blocks_.Clear();
  auto extent = Extent::Sql;
  bool finding = true;
  bool keep_all = false;
  Token amiss;           // a string that a name touches
  std::size_t open = 0;  // parentheses
  auto last_end = first.offset;
  auto previous = Token();
  for (auto token = first;; token = lexer_.Next()) {
    CutTerminator(token);
    if (token.offset != first.offset && StartsLogin(token)) {
      lexer_.MoveTo(token.offset);
      break;
    }
    if (finding && !finder_.Take(token)) {
      finding = false;
      if (auto const* const kind = finder_.Kind()) {
        extent = kind->extent;
        keep_all = kind->parse != nullptr;
      }
      // The words that told the kind open what a PL/SQL unit closes.
      if (extent == Extent::Plsql)
        for (auto const& taken : tokens_) blocks_.Take(taken);
      if (!finder_.Kind() && finder_.TokensOfKind() == 0 &&
          first.fault() != LexicalFault::OpenComment) {
        if (first.kind == TokenKind::Fault) section.fault = first;
        tokens_.assign(1, first);
        last_end = static_cast<std::uint32_t>(SkipForeignLines(first.offset));
        break;
      }
    }
    if (token.kind == TokenKind::End) {
      section.unclosed = keep_all && extent == Extent::Plsql && !blocks_.IsClosed();
      break;
    }
    auto const* const misquoted = FindMisquoted(previous, token);
    if (misquoted && amiss.kind == TokenKind::End) amiss = *misquoted;
    auto const* const suspect = misquoted ? misquoted : &token;
    if (amiss.kind != TokenKind::End && suspect->kind == TokenKind::String &&
        HidesStatement(*suspect, extent)) {
      section.fault = amiss;
      section.fault.kind = TokenKind::Fault;
      section.fault.punctuation = static_cast<char>(LexicalFault::OpenString);
      lexer_.MoveTo(FindRestart(suspect->offset, text_.size(), extent));
      last_end = static_cast<std::uint32_t>(lexer_.Offset());
      break;
    }
    previous = token;
    if (token.kind == TokenKind::Fault) {
      bool const stray = token.fault() == LexicalFault::StrayByte;
      bool const matters = !finder_.Kind() || (keep_all && extent != Extent::Plsql);
      if (section.fault.kind == TokenKind::End && (!stray || matters)) section.fault = token;
      if (token.fault() == LexicalFault::OpenString) {
        lexer_.MoveTo(FindRestart(token.offset, text_.size(), extent));
        last_end = static_cast<std::uint32_t>(lexer_.Offset());
        break;
      }
    }
    if (!finding && extent == Extent::Sql && token.offset > first.offset && StartsInside(token)) {
      lexer_.MoveTo(token.offset);
      section.unterminated = true;
      break;
    }
    if (token.punctuation == '(') ++open;
    if (token.punctuation == ')' && open > 0) --open;
    if (EndsStatement(token, extent)) {
      // The ";" behind an END belongs to the unit.
      if (extent == Extent::Plsql) {
        if (token.punctuation == ';') last_end = token.end();
        section.unclosed = keep_all && !blocks_.IsClosed();
      }
      break;
    }
    ++section.words;
    if (keep_all || tokens_.size() < kTokensOfName) tokens_.push_back(token);
    section.has_password = section.has_password || token.word == K_IDENTIFIED;
    last_end = token.end();
    if (!finding && token.word == K_WRAPPED && IsWrapped(extent)) {
      SkipWrapped();
      last_end = static_cast<std::uint32_t>(lexer_.Offset());
      while (IsBlank(text_[last_end - 1]) || IsLineEnd(text_[last_end - 1])) --last_end;
      break;
    }
    if (!finding && extent == Extent::Source && token.word == K_AS) {
      SkipSource();
      last_end = static_cast<std::uint32_t>(lexer_.Offset());
      section.unclosed = keep_all && last_end == text_.size();
      break;
    }
  }
  // What follows a statement that was cut short by a ";" is its rest if it starts as nothing does.
  bool const misspelt = !finder_.Kind() && finder_.TokensOfKind() > 0;
  bool const cut_short = extent == Extent::Sql && (open > 0 || misspelt);
  if (cut_short && !StartsStatement(lexer_.Offset())) SkipForeignLines(lexer_.Offset());
  if (keep_all && section.fault.kind == TokenKind::End) section.fault = FindNul(first, last_end);
  section.statement = finder_.Kind();
  section.tokens_of_kind = finder_.TokensOfKind();
  section.end = last_end;
  section.stop = lexer_.Offset();
  Token end;
  end.offset = last_end;
  tokens_.push_back(end);
}

// A NUL byte in a string or comment: the texts of the object model end at one, so a statement that
// holds one cannot be kept.
Token Splitter::FindNul(Token const& first, std::size_t end) const {
  Token fault;
  auto const nul = has_nul_ ? text_.substr(0, end).find('\0', first.offset) : text_.npos;
  fault.offset = first.offset;
  if (nul == text_.npos) return fault;
  fault.offset = static_cast<std::uint32_t>(nul);
  fault.length = 1;
  fault.kind = TokenKind::Fault;
  fault.punctuation = static_cast<char>(LexicalFault::StrayByte);
  return fault;
}

bool Splitter::EndsStatement(Token const& token, Extent extent) {
  if (token.punctuation == '/') return IsLoneOnLine(token) || IsRunLine(token);
  if (token.punctuation == '.' && IsLoneOnLine(token)) return true;
  if (extent != Extent::Plsql) return IsTerminator(token);
  bool const closed = blocks_.Take(token);
  if (token.punctuation != ';') return false;
  auto const start = lexer_.Offset();
  auto const next = lexer_.Next();
  lexer_.MoveTo(start);
  // A statement that starts with CREATE has no place in a unit, which was left unfinished then.
  return (closed || next.word == K_CREATE) && StartsSection(next.offset);
}

// Whether what stands at an offset can be the start of the next statement, and is not the rest of a
// unit whose nesting was misjudged.
bool Splitter::StartsSection(std::size_t offset) const {
  // A few words tell, and what is open behind them must not be searched to the end of the text.
  Lexer lexer(text_.substr(0, offset + kBytesOfKind));
  lexer.MoveTo(offset);
  KindFinder finder;
  for (bool first = true;; first = false) {
    auto const token = lexer.Next();
    if (first) {
      if (token.kind == TokenKind::End) return true;
      if (token.kind == TokenKind::Fault) return token.fault() == LexicalFault::OpenComment;
      if (token.punctuation != ';' && IsEmptyStatement(token)) return true;
      if (CommandAt(text_, token.offset) != CommandKind::None) return true;
    }
    if (!finder.Take(token)) return finder.Kind() != nullptr;
  }
}

// The same for a statement whose kind may be misspelt.
bool Splitter::StartsStatement(std::size_t offset) const {
  Lexer lexer(text_.substr(0, offset + kBytesOfKind));
  lexer.MoveTo(offset);
  auto const word = lexer.Next().word;
  return word == K_CREATE || word == K_ALTER || StartsSection(offset);
}

// Whether a token within a statement of SQL starts the next one, and the ";" between them is
// missing: words that are no part of another statement where they start a line.
bool Splitter::StartsInside(Token const& token) const {
  auto const word = token.word;
  if (word != K_CREATE && word != K_ALTER && word != K_DROP && word != K_COMMENT &&
      word != K_INSERT)
    return false;
  if (!StartsLine(token)) return false;
  if (auto const* const kind = finder_.Kind()) {
    switch (kind->words[0]) {
      case K_GRANT:
      case K_REVOKE:
      case K_AUDIT:
      case K_NOAUDIT:
      case K_EXPLAIN: return false;  // these name statements
      default: break;
    }
    auto const object = kind->words[1];
    if (object == K_SCHEMA || object == K_AUDIT || object == K_OUTLINE) return false;
  }
  if (word == K_CREATE) return StartsSection(token.offset);
  Lexer lexer(text_.substr(0, token.end() + kBytesOfKind));
  lexer.MoveTo(token.end());
  auto const next = lexer.Next().word;
  if (word == K_COMMENT) return next == K_ON;
  return next == (word == K_INSERT ? K_INTO : K_TABLE);
}

// Whether a string that holds whole statements is none: a quote is missing or one too many, and
// what was to stand between two strings seems to stand in one.
bool Splitter::HidesStatement(Token const& token, Extent extent) const {
  return TextAt(token).find_first_of("\r\n") != std::string_view::npos &&
         FindRestart(token.offset, token.end(), extent) < token.end();
}

bool Splitter::StartsLine(Token const& token) const {
  std::size_t before = token.offset;
  while (before > 0 && IsBlank(text_[before - 1])) --before;
  return before == 0 || IsLineEnd(text_[before - 1]);
}

bool Splitter::EndsLine(Token const& token) const {
  std::size_t after = token.end();
  while (after < text_.size() && IsBlank(text_[after])) ++after;
  return after == text_.size() || IsLineEnd(text_[after]);
}

// Whether a token where a statement may start is what ends one. Behind a "/" there may be a comment
// or a ";", as long as it cannot be a division.
bool Splitter::IsEmptyStatement(Token const& token) const {
  if (token.punctuation == ';' || IsTerminator(token)) return true;
  if (token.punctuation == '.') return IsLoneOnLine(token);
  if (token.punctuation != '/' || !StartsLine(token)) return false;
  auto rest = text_.substr(token.end());
  while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
  return EndsLine(token) || rest.starts_with(';') || rest.starts_with("--") ||
         rest.starts_with("/*");
}

// Whether a "/" in a statement ends it although a comment or a ";" follows on the line: only then
// can it have a statement or nothing behind it.
bool Splitter::IsRunLine(Token const& token) const {
  if (!IsEmptyStatement(token)) return false;
  Lexer lexer(text_.substr(0, LineEnd(text_, token.end())));
  lexer.MoveTo(token.end());
  return lexer.Next().punctuation == ';' || StartsSection(token.end());
}

bool Splitter::IsTerminator(Token const& token) const {
  if (terminator_ == ';') return token.punctuation == ';';
  return terminator_ != '\0' && TextAt(token) == std::string_view(&terminator_, 1) &&
         EndsLine(token);
}

// Takes a terminator such as "#", which may be a part of a name, off the last word of a line.
void Splitter::CutTerminator(Token& token) {
  if (terminator_ == ';' || token.kind != TokenKind::Word || token.length < 2 ||
      text_[token.end() - 1] != terminator_ || !EndsLine(token))
    return;
  --token.length;
  token.word = FindWord(TextAt(token));
  lexer_.MoveTo(token.end());
}

// Whether a token is a CONNECT with a password behind a statement that was not ended: what shows
// statements must not show it.
bool Splitter::StartsLogin(Token const& token) const {
  return token.kind == TokenKind::Word && UpperAscii(text_[token.offset]) == 'C' &&
         StartsLine(token) && IsLogin(text_, token.offset);
}

// Moves to the "/" line behind foreign source text, or to the end.
void Splitter::SkipSource() {
  auto offset = lexer_.Offset();
  while ((offset = text_.find('/', offset)) != std::string_view::npos) {
    Token slash;
    slash.offset = static_cast<std::uint32_t>(offset);
    slash.length = 1;
    if (IsLoneOnLine(slash)) break;
    ++offset;
  }
  lexer_.MoveTo(offset == std::string_view::npos ? text_.size() : offset);
}

// Moves behind lines that are part of no statement, such as the output of a program, to the next
// line that starts one. What starts a line within a parenthesis may be the name of a column as
// well. Returns the end of the last line that is not empty.
std::size_t Splitter::SkipForeignLines(std::size_t offset) {
  auto last = offset;
  std::size_t open = 0;
  for (bool first = true; offset < text_.size(); first = false) {
    auto const end = LineEnd(text_, offset);
    auto const line = text_.substr(offset, end - offset);
    auto const start = std::find_if_not(line.begin(), line.end(), IsBlank) - line.begin();
    bool const is_empty = static_cast<std::size_t>(start) == line.size();
    if (is_empty) open = 0;
    if (!first && !is_empty) {
      Lexer lexer(text_.substr(0, end));
      lexer.MoveTo(offset);
      if (open > 0 ? StartsInside(lexer.Next()) : StartsStatement(offset)) break;
    }
    if (!is_empty) last = end;
    for (char const c : line) {
      if (c == '(') ++open;
      if (c == ')' && open > 0) --open;
    }
    offset = AfterLineEnd(text_, end);
  }
  while (last > 0 && IsBlank(text_[last - 1])) --last;
  lexer_.MoveTo(std::min(offset, text_.size()));
  return last;
}

// Whether the word taken last is the WRAPPED behind the name of a unit, whose code is no text.
bool Splitter::IsWrapped(Extent extent) const {
  auto const* const kind = finder_.Kind();
  if (!kind || kind->words[0] != K_CREATE || (extent != Extent::Plsql && kind->words[1] != K_TYPE))
    return false;
  auto const name = finder_.TokensOfKind();
  return tokens_.size() == name + 2 ||
         (tokens_.size() == name + 4 && tokens_[name + 1].punctuation == '.');
}

// Moves to the "/" line behind wrapped code, or to a line that starts with CREATE as no line of
// such code does, or to the end.
void Splitter::SkipWrapped() {
  auto offset = lexer_.Offset();
  while (offset < text_.size()) {
    auto const end = LineEnd(text_, offset);
    Lexer line(text_.substr(0, end));
    line.MoveTo(offset);
    auto const first = line.Next();
    if ((first.punctuation == '/' && IsLoneOnLine(first)) ||
        (first.word == K_CREATE && StartsSection(first.offset))) {
      lexer_.MoveTo(first.offset);
      return;
    }
    offset = AfterLineEnd(text_, end);
  }
  lexer_.MoveTo(text_.size());
}

// Where to go on behind a string that is never closed: at the first line that starts a statement
// behind one that ends with ";" or is a "/", or that can be no part of another statement. A unit of
// code ends at a "/" alone, unless CREATE follows its ";". The stop when there is none before it.
std::size_t Splitter::FindRestart(std::size_t offset, std::size_t stop, Extent extent) const {
  bool ended = false;
  bool slash = false;
  while (offset < stop) {
    auto const end = LineEnd(text_, offset);
    auto line = text_.substr(offset, end - offset);
    while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
    if (!line.empty()) {
      if (ended && StartsSection(offset)) {
        if (slash || extent == Extent::Sql) return offset;
        Lexer lexer(text_.substr(0, end));
        lexer.MoveTo(offset);
        if (lexer.Next().word == K_CREATE) return offset;
      }
      if (extent == Extent::Sql) {
        Lexer lexer(text_.substr(0, end));
        lexer.MoveTo(offset);
        if (StartsInside(lexer.Next())) return offset;
      }
      slash = line == "/";
      ended = slash || line.ends_with(';');
    }
    offset = AfterLineEnd(text_, end);
  }
  return stop;
}

}  // namespace repora::reader
