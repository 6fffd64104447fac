#include "reader/script_reader.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "reader/characters.h"
#include "reader/splitter.h"
#include "reader/substitution.h"
#include "reader/token_stream.h"
#include "repora/core/letters.h"
#include "repora/core/statement.h"

namespace repora::reader {
namespace {

constexpr std::size_t kDeepestInclude = 20;

// A text to read and where it comes from: a script, or a piece of one whose variables were
// replaced.
struct Place {
  std::string_view text;
  std::size_t source = 0;
  ExpandedText const* expanded = nullptr;

  std::size_t OriginOf(std::size_t offset) const {
    return expanded ? expanded->OriginOf(offset) : offset;
  }
};

std::string FaultText(Token const& fault, std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  switch (fault.fault()) {
    case LexicalFault::OpenString: return "string is not closed";
    case LexicalFault::OpenName: return "quoted name is not closed";
    case LexicalFault::OpenComment: return "comment is not closed";
    default: break;
  }
  auto const byte = static_cast<unsigned char>(text[fault.offset]);
  return std::string("byte 0x") + kDigits[byte / 16U] + kDigits[byte % 16U] +
         " cannot stand in a statement";
}

// Whether a statement may hold a password, so that nothing of it may be shown. A string without an
// end hides from the splitter what stands behind it.
bool HoldsPassword(Section const& section, std::string_view text) {
  if (section.has_password) return true;
  if (section.statement)
    for (auto const word : section.statement->words)
      if (word == K_USER || word == K_ROLE || word == K_LINK) return true;
  if (section.fault.kind != TokenKind::Fault) return false;
  auto const part = text.substr(section.start, section.stop - section.start);
  auto const word = TextOf(K_IDENTIFIED);
  return std::search(part.begin(), part.end(), word.begin(), word.end(),
                     [](char a, char b) { return UpperAscii(a) == b; }) != part.end();
}

class ScriptReader {
 public:
  ScriptReader(ReadOptions& options, ReadResult& result) : options_(options), result_(result) {}

  void ReadSource(std::string name, std::string text);
  // Completes the notes that count.
  void Finish();

 private:
  void ReadSections(Place const& place);
  void ReadSection(Place const& place, Section const& section, std::vector<Token> const& tokens);
  // Whether a statement came of it.
  bool ReadModelStatement(Place const& place, Section const& section,
                          std::vector<Token> const& tokens);
  void FailUnknown(Section const& section, std::vector<Token> const& tokens, std::string_view text);
  void CountOutside(Place const& place, Section const& section);
  void RunCommand(Place const& place, Section const& section);
  void Include(Place const& place, Section const& section, std::vector<std::string> const& words);
  void SetOptions(std::vector<std::string> const& words);
  void NoteUndefined(Place const& place, Section const& section);
  void Hide(Place const& place, Section const& section) {
    result_.sources[place.source]->Hide(place.OriginOf(section.start),
                                        place.OriginOf(section.stop));
  }
  bool HasVariables(Place const& place, Section const& section) const {
    return prefix_ != '\0' &&
           place.text.substr(section.start, section.stop - section.start).find(prefix_) !=
               std::string_view::npos;
  }
  bool IsStopped() const { return left_ || (options_.stop && *options_.stop); }

  void Report(DiagnosticKind kind, Place const& place, std::size_t offset, std::string text) {
    pending_.push_back({kind, place.source, place.OriginOf(offset), 0, std::move(text)});
  }
  void ReportUnread(Place const& place, std::size_t offset, std::string text) {
    Report(DiagnosticKind::Syntax, place, offset, std::move(text));
    ++result_.unread;
  }
  void Flush(std::size_t statement);

  struct OutsideCount {
    StatementKind const* kind;
    std::size_t group;  // the first with that name
    std::size_t diagnostic;
    std::size_t count;
  };

  ReadOptions& options_;
  ReadResult& result_;
  std::vector<std::size_t> sources_;  // the script and the files being included, outermost first
  std::vector<Diagnostic> pending_;   // of the statement being read
  std::vector<OutsideCount> outside_;
  std::set<std::string> undefined_;  // variables noted already
  char prefix_ = '&';                // of variables; NUL: they are not replaced
  bool recognized_ = false;          // the source holds a statement
  bool left_ = false;                // the source is not read any further
};

void ScriptReader::ReadSource(std::string name, std::string text) {
  auto const index = result_.sources.size();
  result_.sources.push_back(std::make_unique<Source>(std::move(name), std::move(text)));
  sources_.push_back(index);
  auto const recognized = std::exchange(recognized_, false);
  ReadSections({result_.sources.back()->Text(), index, nullptr});
  recognized_ = recognized;
  left_ = false;
  sources_.pop_back();
}

void ScriptReader::ReadSections(Place const& place) {
  if (place.text.size() > kTextLimit) {
    ReportUnread(place, 0, "scripts of 4 GB and more are not read");
    Flush(0);
    return;
  }
  Splitter splitter(place.text);
  while (!IsStopped()) {
    auto const section = splitter.Next();
    if (section.kind == Section::Kind::End) break;
    if (section.kind == Section::Kind::Command) {
      RunCommand(place, section);
      continue;
    }
    if (HasVariables(place, section)) {
      ExpandedText expanded;
      auto const text = place.text.substr(section.start, section.stop - section.start);
      if (!place.expanded && Expand(text, section.start, prefix_, options_.defines, expanded)) {
        ReadSections({expanded.Text(), place.source, &expanded});
        continue;
      }
      NoteUndefined(place, section);
    }
    ReadSection(place, section, splitter.Tokens());
  }
}

void ScriptReader::ReadSection(Place const& place, Section const& section,
                               std::vector<Token> const& tokens) {
  auto const* const kind = section.statement;
  if (!kind && !recognized_) {
    auto const nul = place.text.substr(0, section.stop).find('\0', section.start);
    if (nul != std::string_view::npos) {
      ReportUnread(place, nul, "not a script: it holds NUL bytes, as binary files and UTF-16 do");
      Flush(0);
      left_ = true;
      return;
    }
  }
  if (kind) recognized_ = true;
  bool const holds_password = HoldsPassword(section, place.text);
  if (holds_password) Hide(place, section);
  std::size_t statement = 0;
  try {
    if (section.fault.kind == TokenKind::Fault)
      throw SyntaxError(section.fault.offset, FaultText(section.fault, place.text));
    if (!kind) {
      FailUnknown(section, tokens, place.text);
    } else if (!kind->parse) {
      CountOutside(place, section);
    } else if (ReadModelStatement(place, section, tokens)) {
      statement = result_.statements.size();
    } else {
      ++result_.unread;
    }
  } catch (SyntaxError const& error) {
    ReportUnread(place, error.Offset(), holds_password ? error.TextWithoutQuote() : error.Text());
  }
  Flush(statement);
}

bool ScriptReader::ReadModelStatement(Place const& place, Section const& section,
                                      std::vector<Token> const& tokens) {
  TokenStream in(place.text, tokens);
  auto object = section.statement->parse(in);
  if (!in.AtEnd()) in.Fail("the end of the statement");
  for (auto const& note : in.Notes())
    Report(DiagnosticKind::Note, place, note.offset,
           note.count == 1 ? note.text : note.text + " (" + std::to_string(note.count) + ")");
  if (section.unclosed)
    Report(DiagnosticKind::Note, place, section.start, "the end of the unit is missing");
  if (!object) return false;
  result_.statements.push_back({std::move(object), place.source, place.OriginOf(section.start)});
  return true;
}

void ScriptReader::FailUnknown(Section const& section, std::vector<Token> const& tokens,
                               std::string_view text) {
  TokenStream in(text, tokens);
  auto const first = in.Peek().word;
  if (first != K_CREATE && first != K_ALTER) in.Fail("a statement");
  for (std::size_t i = 0; i < section.tokens_of_kind; ++i) in.Next();
  in.Fail("the kind of an object");
}

void ScriptReader::CountOutside(Place const& place, Section const& section) {
  ++result_.outside;
  auto const* const kind = section.statement;
  auto known = std::find_if(outside_.begin(), outside_.end(),
                            [&](OutsideCount const& one) { return one.kind == kind; });
  if (known == outside_.end()) {
    auto const named = std::find_if(outside_.begin(), outside_.end(), [&](OutsideCount const& one) {
      return one.kind->Name() == kind->Name();
    });
    auto const group = static_cast<std::size_t>(named - outside_.begin());
    bool const is_new = named == outside_.end();
    outside_.push_back({kind, group, result_.diagnostics.size(), 0});
    known = std::prev(outside_.end());
    // The first note of the statement; its text follows when all statements are counted.
    if (is_new)
      pending_.insert(pending_.begin(), {DiagnosticKind::Note, place.source,
                                         place.OriginOf(section.start), 0, std::string()});
  }
  ++outside_[known->group].count;
}

void ScriptReader::Finish() {
  for (std::size_t i = 0; i < outside_.size(); ++i) {
    auto const& one = outside_[i];
    if (one.group != i) continue;
    result_.diagnostics[one.diagnostic].text =
        one.kind->Name() + " is outside the data model; " + std::to_string(one.count) +
        (one.count == 1 ? " statement left out" : " statements left out");
  }
}

void ScriptReader::RunCommand(Place const& place, Section const& section) {
  if (section.command == CommandKind::Other) Hide(place, section);  // such as CONNECT
  if (section.command == CommandKind::Other || section.command == CommandKind::Remark) return;
  std::string command(place.text.substr(section.start, section.end - section.start));
  ExpandedText expanded;
  if (prefix_ != '\0' && section.command != CommandKind::Set &&
      Expand(command, 0, prefix_, options_.defines, expanded))
    command = expanded.Text();
  auto const words = CommandWords(command);
  switch (section.command) {
    case CommandKind::Define:
      if (words.size() > 2 && words[1] == "=") options_.defines[ToUpper(words[0])] = words[2];
      break;
    case CommandKind::Undefine:
      for (auto const& word : words) options_.defines.erase(ToUpper(word));
      break;
    case CommandKind::Set: SetOptions(words); break;
    default: Include(place, section, words); break;
  }
}

void ScriptReader::SetOptions(std::vector<std::string> const& words) {
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

void ScriptReader::Include(Place const& place, Section const& section,
                           std::vector<std::string> const& words) {
  if (words.empty()) return;
  auto name = words[0];
  auto const folder = name.find_last_of("/\\");
  if (name.find('.', folder == std::string::npos ? 0 : folder) == std::string::npos) name += ".sql";
  auto const leave_out = [&](std::string const& reason) {
    Report(DiagnosticKind::Note, place, section.start, name + " is left out: " + reason);
    Flush(0);
  };
  if (!options_.include) return leave_out("included files are not read");
  if (sources_.size() > kDeepestInclude)
    return leave_out("files include files more than 20 levels deep");
  bool const beside = section.command == CommandKind::IncludeBeside;
  auto included =
      options_.include(name, beside ? result_.sources[place.source]->Name() : std::string());
  if (!included) return leave_out("the file cannot be read");
  if (std::any_of(sources_.begin(), sources_.end(), [&](std::size_t source) {
        return result_.sources[source]->Name() == included->name;
      }))
    return leave_out("the file includes itself");
  for (std::size_t i = 1; i < words.size(); ++i) options_.defines[std::to_string(i)] = words[i];
  ReadSource(std::move(included->name), std::move(included->text));
}

void ScriptReader::NoteUndefined(Place const& place, Section const& section) {
  auto const text = place.text.substr(0, section.stop);
  bool const holds_password = HoldsPassword(section, place.text);
  Lexer lexer(text);
  lexer.MoveTo(section.start);
  Token token;
  for (auto use = FindVariable(text, section.start, prefix_); !use.name.empty();
       use = FindVariable(text, use.end, prefix_)) {
    while (token.end() <= use.start && lexer.Offset() < section.stop) token = lexer.Next();
    bool const in_code = token.offset <= use.start && use.start < token.end() &&
                         token.kind != TokenKind::String && token.kind != TokenKind::Fault;
    if (!in_code || options_.defines.contains(use.name)) continue;
    // In the midst of a word it may as well be a part of a password.
    bool const starts_word =
        use.start == token.offset + (token.kind == TokenKind::QuotedName ? 1U : 0U);
    if (holds_password && !starts_word) continue;
    if (!undefined_.insert(use.name).second) continue;
    Report(DiagnosticKind::Note, place, use.start,
           "variable " + use.name + " has no value; it stays as it is written");
  }
}

// Hands over what was found in a statement, in the order of the text. The number is that of the
// statement if it was read, else 0.
void ScriptReader::Flush(std::size_t statement) {
  std::stable_sort(pending_.begin(), pending_.end(),
                   [](Diagnostic const& a, Diagnostic const& b) { return a.offset < b.offset; });
  for (auto& diagnostic : pending_) {
    diagnostic.statement = statement;
    result_.diagnostics.push_back(std::move(diagnostic));
  }
  pending_.clear();
}

}  // namespace

void ReadScript(std::string name, std::string text, ReadOptions& options, ReadResult& result) {
  ScriptReader reader(options, result);
  reader.ReadSource(std::move(name), std::move(text));
  reader.Finish();
}

}  // namespace repora::reader
