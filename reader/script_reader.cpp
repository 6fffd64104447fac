#include "reader/script_reader.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "reader/characters.h"
#include "reader/splitter.h"
#include "reader/sqlplus_state.h"
#include "reader/substitution.h"
#include "reader/token_stream.h"
#include "repora/core/statement.h"

namespace repora::reader {
namespace {

constexpr std::size_t kDeepestInclude = 20;
// Statements and diagnostics together that are worth handing over. Few enough to stay in the cache
// until they are processed.
constexpr std::size_t kPiece = 100;
// Files that include two others each are soon more than anybody has.
constexpr std::size_t kMostIncludes = 10000;

// A text to read and where it comes from: a script, or a piece of one whose variables were
// replaced.
struct Place {
  std::string_view text;
  Source* source = nullptr;
  ExpandedText const* expanded = nullptr;

  std::size_t OriginOf(std::size_t offset) const {
    return expanded ? expanded->OriginOf(offset) : offset;
  }
};

std::string FaultText(Token const& fault, std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  switch (fault.fault()) {
    case LexicalFault::OpenString:
      return "string is not closed; a quote within a string is written as two";
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

bool IsRestOfLineBlank(std::string_view text, std::size_t offset) {
  while (offset < text.size() && IsBlank(text[offset])) ++offset;
  return offset >= text.size() || IsLineEnd(text[offset]);
}

class ScriptReader {
 public:
  ScriptReader(ReadOptions& options, ReadResult& result)
      : options_(options), result_(result), sqlplus_(options.defines, options.variables) {}

  void ReadSource(std::string name, std::string text);
  void HandOver();

 private:
  void ReadSections(Place const& place);
  void ReadSection(Place const& place, Section const& section, std::vector<Token> const& tokens);
  // Whether a statement came of it.
  bool ReadModelStatement(Place const& place, Section const& section,
                          std::vector<Token> const& tokens);
  void TraceClauses(Place const& place, Section const& section, std::vector<Token> const& tokens,
                    StatementTrace& trace);
  void FailUnknown(Section const& section, std::vector<Token> const& tokens, std::string_view text);
  void NoteOutside(Place const& place, Section const& section);
  void NoteUnterminated(Place const& place, Section const& section);
  void RunCommand(Place const& place, Section const& section);
  void Include(Place const& place, Section const& section);
  void NoteVariables(Place const& place, Section const& section);
  void NoteRest(Place const& place, Section const& section, Splitter& splitter);
  void Hide(Place const& place, Section const& section) {
    place.source->Hide(place.OriginOf(section.start), place.OriginOf(section.stop));
  }
  bool IsStopped() const { return left_ || exited_ || (options_.stop && *options_.stop); }

  void Report(DiagnosticKind kind, Place const& place, std::size_t offset, std::string text) {
    pending_.push_back({kind, place.source, place.OriginOf(offset), 0, 0, std::move(text)});
  }
  // A text that is no script counts as one statement.
  void RefuseText(Place const& place, std::size_t offset, std::string text) {
    Report(DiagnosticKind::Syntax, place, offset, std::move(text));
    Flush(0);
    ++result_.unread;
    StatementTrace trace;
    trace.source = place.source;
    trace.offset = place.OriginOf(offset);
    result_.traces.push_back(trace);
  }
  void Flush(std::size_t statement);

  ReadOptions& options_;
  ReadResult& result_;
  std::vector<Source*> sources_;     // the script and the files being included, outermost first
  std::size_t done_ = 0;             // bytes of the script
  std::size_t handed_over_ = 0;      // of them
  ClauseMarks marks_;                // of the statement being read
  std::vector<Diagnostic> pending_;  // of the statement being read
  std::set<StatementKind const*> outside_;  // kinds met already
  std::set<std::string> outside_names_;     // and their names, which several may share
  SqlPlusState sqlplus_;
  std::set<std::string> not_included_;  // notes on files, each given once
  std::size_t includes_ = 0;
  bool recognized_ = false;  // the source holds a statement
  bool left_ = false;        // the source is not read any further
  bool exited_ = false;      // the script and all that it includes is not read any further
};

void ScriptReader::ReadSource(std::string name, std::string text) {
  result_.sources.push_back(
      std::make_unique<Source>(std::move(name), std::move(text), result_.scripts));
  auto* const source = result_.sources.back().get();
  sources_.push_back(source);
  auto const recognized = std::exchange(recognized_, false);
  ReadSections({source->Text(), source, nullptr});
  recognized_ = recognized;
  left_ = false;
  sources_.pop_back();
}

void ScriptReader::ReadSections(Place const& place) {
  if (place.text.size() > kTextLimit) {
    RefuseText(place, 0, "scripts of 4 GB and more are not read");
    return;
  }
  Splitter splitter(place.text);
  std::size_t done = 0;
  while (!IsStopped()) {
    if (result_.traces.size() + result_.diagnostics.size() >= kPiece && !place.expanded &&
        IsRestOfLineBlank(place.text, done))
      HandOver();
    splitter.SetTerminator(sqlplus_.Terminator());
    auto const section = splitter.Next();
    if (section.kind == Section::Kind::End) break;
    done = section.stop;
    if (sources_.size() == 1 && !place.expanded) done_ = done;
    auto const text = place.text.substr(section.start, section.stop - section.start);
    ExpandedText expanded;
    bool const may_hold_variables = !place.expanded && sqlplus_.MayHoldVariables(text);
    if (section.kind == Section::Kind::Command) {
      RunCommand(place, section);
    } else {
      if (may_hold_variables && (section.statement || section.tokens_of_kind > 0))
        NoteVariables(place, section);
      if (may_hold_variables && sqlplus_.Expand(text, section.start, expanded))
        ReadSections({expanded.Text(), place.source, &expanded});
      else
        ReadSection(place, section, splitter.Tokens());
      Flush(0);
    }
    if (exited_) NoteRest(place, section, splitter);
  }
}

void ScriptReader::ReadSection(Place const& place, Section const& section,
                               std::vector<Token> const& tokens) {
  auto const* const kind = section.statement;
  if (!kind && !recognized_) {
    auto const nul = place.text.substr(0, section.stop).find('\0', section.start);
    if (nul != std::string_view::npos) {
      RefuseText(place, nul, "not a script: it holds NUL bytes, as binary files and UTF-16 do");
      left_ = true;
      return;
    }
  }
  if (kind) recognized_ = true;
  bool const holds_password = HoldsPassword(section, place.text);
  if (holds_password) Hide(place, section);
  StatementTrace trace;
  if (kind) trace.kind = kind->Name();
  trace.source = place.source;
  trace.offset = place.OriginOf(section.start);
  trace.words = section.words;
  try {
    if (section.fault.kind == TokenKind::Fault)
      throw SyntaxError(section.fault.offset, FaultText(section.fault, place.text));
    if (!kind) {
      FailUnknown(section, tokens, place.text);
    } else if (!kind->parse) {
      NoteOutside(place, section);
      trace.reading = Reading::Outside;
    } else if (ReadModelStatement(place, section, tokens)) {
      trace.reading = Reading::Read;
      trace.statement = result_.read;
      TraceClauses(place, section, tokens, trace);
    }
  } catch (SyntaxError const& error) {
    Report(DiagnosticKind::Syntax, place, error.Offset(),
           holds_password ? error.TextWithoutQuote() : error.Text());
  }
  Flush(trace.statement);
  if (trace.reading == Reading::Unread) ++result_.unread;
  if (trace.reading == Reading::Outside) ++result_.outside;
  result_.traces.push_back(trace);
}

bool ScriptReader::ReadModelStatement(Place const& place, Section const& section,
                                      std::vector<Token> const& tokens) {
  marks_.Clear();
  TokenStream in(place.text, tokens, marks_);
  auto object = section.statement->parse(in);
  if (!in.AtEnd()) in.Fail("the end of the statement");
  for (auto const& note : in.Notes())
    Report(DiagnosticKind::Note, place, note.offset,
           note.count == 1 ? note.text : note.text + " (" + std::to_string(note.count) + ")");
  if (section.unclosed)
    Report(DiagnosticKind::Note, place, section.start, "the end of the unit is missing");
  NoteUnterminated(place, section);
  if (!object) return false;
  result_.statements.push_back({std::move(object), place.source, place.OriginOf(section.start)});
  ++result_.read;
  return true;
}

void ScriptReader::TraceClauses(Place const& place, Section const& section,
                                std::vector<Token> const& tokens, StatementTrace& trace) {
  auto& clauses = result_.clauses;
  trace.first_clause = clauses.size();
  marks_.Resolve(trace.kind, section.tokens_of_kind, tokens, clauses);
  trace.clauses = clauses.size() - trace.first_clause;
  for (auto i = trace.first_clause; i < clauses.size(); ++i) {
    auto& clause = clauses[i];
    clause.offset = place.OriginOf(clause.offset);
    if (clause.fate == Fate::Left) clause.name = *result_.left.emplace(clause.name).first;
  }
}

void ScriptReader::FailUnknown(Section const& section, std::vector<Token> const& tokens,
                               std::string_view text) {
  marks_.Clear();
  TokenStream in(text, tokens, marks_);
  auto const first = in.Peek().word;
  if (first != K_CREATE && first != K_ALTER) in.Fail("a statement");
  for (std::size_t i = 0; i < section.tokens_of_kind; ++i) in.Next();
  in.Fail("the kind of an object");
}

void ScriptReader::NoteOutside(Place const& place, Section const& section) {
  NoteUnterminated(place, section);
  if (!outside_.insert(section.statement).second) return;
  auto name = section.statement->Name();
  if (!outside_names_.insert(name).second) return;
  Report(DiagnosticKind::Note, place, section.start,
         std::move(name) + " is outside the data model; such statements are left out");
}

void ScriptReader::NoteUnterminated(Place const& place, Section const& section) {
  if (section.unterminated)
    Report(DiagnosticKind::Note, place, section.end, "';' is missing at the end of the statement");
}

void ScriptReader::RunCommand(Place const& place, Section const& section) {
  auto const command = place.text.substr(section.start, section.end - section.start);
  switch (section.command) {
    case CommandKind::Include:
    case CommandKind::IncludeBeside: return Include(place, section);
    case CommandKind::Exit: exited_ = true; return;
    case CommandKind::Other: return Hide(place, section);  // such as CONNECT
    case CommandKind::Text:
    case CommandKind::Remark: return;
    default: break;
  }
  auto note = sqlplus_.Run(section.command, command);
  if (note.empty()) return;
  Report(DiagnosticKind::Note, place, section.start, std::move(note));
  Flush(0);
}

void ScriptReader::Include(Place const& place, Section const& section) {
  auto const file =
      sqlplus_.IncludedFile(place.text.substr(section.start, section.end - section.start));
  if (file.name.empty()) return;
  if (file.is_secret) Hide(place, section);
  auto const leave_out = [&](std::string const& reason) {
    auto note = file.name + " is left out: " + reason;
    if (!not_included_.insert(note).second) return;
    Report(DiagnosticKind::Note, place, section.start, std::move(note));
    Flush(0);
  };
  if (!file.problem.empty()) return leave_out(file.problem);
  if (!options_.include) return leave_out("included files are not read");
  if (sources_.size() > kDeepestInclude)
    return leave_out("files include files more than 20 levels deep");
  // What is left out has been looked for and read as well.
  if (includes_ == kMostIncludes) return leave_out("more than 10000 files are included");
  ++includes_;
  auto included = options_.include(
      {file.name, place.source->Name(), section.command == CommandKind::IncludeBeside});
  if (!included) return leave_out("the file cannot be read");
  if (!included->problem.empty()) return leave_out(included->problem);
  if (std::any_of(sources_.begin(), sources_.end(),
                  [&](Source const* source) { return source->Name() == included->name; }))
    return leave_out("the file includes itself");
  for (auto const& note : file.notes) Report(DiagnosticKind::Note, place, section.start, note);
  Flush(0);
  SqlPlusState::Arguments const arguments(sqlplus_, file.arguments);
  ReadSource(std::move(included->name), std::move(included->text));
}

// Says what stands behind the EXIT that a section was or led to.
void ScriptReader::NoteRest(Place const& place, Section const& section, Splitter& splitter) {
  std::size_t statements = 0;
  std::size_t files = 0;
  for (auto rest = splitter.Next(); rest.kind != Section::Kind::End; rest = splitter.Next()) {
    if (rest.kind == Section::Kind::Statement) ++statements;
    if (rest.command == CommandKind::Include || rest.command == CommandKind::IncludeBeside) ++files;
  }
  auto const count = [](std::size_t number, std::string const& what) {
    return number == 0 ? std::string() : std::to_string(number) + what + (number == 1 ? "" : "s");
  };
  auto left = count(statements, " statement");
  if (statements > 0 && files > 0) left += " and ";
  left += count(files, " included file");
  if (left.empty()) return;
  std::string const by = section.command == CommandKind::Exit ? "EXIT" : "EXIT of an included file";
  Report(DiagnosticKind::Note, place, section.start,
         by + " ends the script; left out behind it: " + left);
  Flush(0);
}

void ScriptReader::NoteVariables(Place const& place, Section const& section) {
  auto const text = place.text.substr(0, section.stop);
  bool const holds_password = HoldsPassword(section, place.text);
  Lexer lexer(text);
  lexer.MoveTo(section.start);
  Token token;
  for (auto use = sqlplus_.FindNotable(text, section.start); use.end != 0;
       use = sqlplus_.FindNotable(text, use.end)) {
    while (token.end() <= use.start && lexer.Offset() < section.stop) token = lexer.Next();
    bool const in_token =
        token.offset <= use.start && use.start < token.end() && token.kind != TokenKind::Fault;
    bool const in_text = token.kind == TokenKind::String;
    if (!in_token || (in_text && !sqlplus_.IsNamed(use.name))) continue;
    // In the midst of a word it may as well be a part of a password.
    bool const starts_word =
        use.start == token.offset + (token.kind == TokenKind::QuotedName ? 1U : 0U);
    if (holds_password && !in_text && !starts_word) continue;
    Report(DiagnosticKind::Note, place, use.start, sqlplus_.NoteOn(use.name));
  }
}

// Hands over what was found in a statement, in the order of the text. The number is that of the
// statement if it was read, else 0.
void ScriptReader::Flush(std::size_t statement) {
  if (pending_.empty()) return;
  std::stable_sort(pending_.begin(), pending_.end(),
                   [](Diagnostic const& a, Diagnostic const& b) { return a.offset < b.offset; });
  for (auto& diagnostic : pending_) {
    diagnostic.statement = statement;
    diagnostic.before = result_.read - (statement != 0 ? 1 : 0);
    result_.diagnostics.push_back(std::move(diagnostic));
  }
  pending_.clear();
}

void ScriptReader::HandOver() {
  if (!options_.hand_over) return;
  result_.bytes = done_ - std::exchange(handed_over_, done_);
  options_.hand_over(std::exchange(static_cast<ReadPiece&>(result_), ReadPiece()));
}

}  // namespace

void ReadScript(std::string name, std::string text, ReadOptions& options, ReadResult& result) {
  ScriptReader reader(options, result);
  reader.ReadSource(std::move(name), std::move(text));
  reader.HandOver();
  ++result.scripts;
}

}  // namespace repora::reader
