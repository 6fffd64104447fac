#include "tests/golden_checks.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "repora/core/letters.h"
#include "repora/model/metamodel.h"

namespace repora::test {
namespace {

// --- Running a case ---

class Recorder final : public cli::SessionObserver {
 public:
  explicit Recorder(std::vector<exporter::Message>& messages) : messages_(messages) {}
  void OnMessage(exporter::Message const& message, reader::Source const* /*source*/,
                 std::size_t /*offset*/) override {
    messages_.push_back(message);
  }

 private:
  std::vector<exporter::Message>& messages_;
};

template <class Value>
Value Choose(std::string const& word, std::map<std::string, Value> const& choices) {
  auto const found = choices.find(word);
  if (found == choices.end()) throw std::runtime_error("unknown value of a setting: " + word);
  return found->second;
}

cli::ImportSettings SettingsOf(GoldenCase const& golden) {
  cli::ImportSettings settings;
  for (auto const& [name, value] : golden.settings) {
    if (name == "logical-case")
      settings.logical_case = Choose<eREPLogical>(value, {{"as-is", eREPLogicalAsIs},
                                                          {"lower", eREPLogicalLower},
                                                          {"upper", eREPLogicalUpper},
                                                          {"mixed", eREPLogicalMixed}});
    if (name == "physical-case")
      settings.physical_case = Choose<eREPPhysical>(value, {{"as-is", eREPPhysicalAsIs},
                                                            {"lower", eREPPhysicalLower},
                                                            {"upper", eREPPhysicalUpper}});
    if (name == "model-type")
      settings.model_type =
          Choose<std::int32_t>(value, {{"logical", 1}, {"physical", 2}, {"both", 3}});
    if (name == "ignore-duplicate-views")
      settings.ignore_duplicate_views = Choose<bool>(value, {{"yes", true}, {"no", false}});
  }
  return settings;
}

// --- Values and objects as golden files write them ---

std::string Quoted(std::string_view text) {
  std::string quoted(1, '"');
  for (auto const c : text) {
    if (c == '\n') {
      quoted += "\\n";
    } else if (c == '\r') {
      quoted += "\\r";
    } else {
      if (c == '"' || c == '\\') quoted += '\\';
      quoted += c;
    }
  }
  return quoted + '"';
}

// The name of an object; "(NAME)" for a column that bears the name of what it shows, "()" for
// another object without a name.
std::string OwnNameOf(MemoryModelSet const& model, PropertySet const& properties) {
  auto const* const name = properties.Find(MOXTypes::pName);
  if (name && !name->View().empty()) return name->String();
  auto const* const shown = properties.Find(ORVTypes::pParentAttributeRef);
  auto const* const parent = shown ? model.PropertiesOf(shown->ShortId()) : nullptr;
  if (!parent) return "()";
  auto const parent_name = OwnNameOf(model, *parent);
  return parent_name.starts_with('(') ? parent_name : "(" + parent_name + ")";
}

// The names from below the root down to the object.
std::string PathOf(MemoryModelSet const& model, std::uint32_t id) {
  auto const* const properties = model.PropertiesOf(id);
  if (!properties) return std::string("?").append(std::to_string(id));
  auto const owner = model.OwnerOf(id);
  if (owner == 0) return {};
  auto const above = PathOf(model, owner);
  auto const own = OwnNameOf(model, *properties);
  return above.empty() ? own : above + "." + own;
}

template <class Elements, class Format>
std::string ListOf(Elements const& elements, Format format) {
  std::string list(1, '[');
  for (auto const& element : elements) {
    if (list.size() > 1) list += ',';
    list += format(element);
  }
  return list + ']';
}

std::string ValueText(MemoryModelSet const& model, QELValue const& value) {
  auto const reference = [&](std::uint32_t id) {
    return std::string("@").append(PathOf(model, id));
  };
  switch (value.Kind()) {
    case QELValue::eEmpty: break;
    case QELValue::eInteger: return std::to_string(value.Integer());
    case QELValue::eBoolean: return value.Boolean() ? "true" : "false";
    case QELValue::eText: return Quoted(value.View());
    case QELValue::eShortId: return reference(value.ShortId());
    case QELValue::eTextVector: {
      std::vector<std::string> texts;
      value.GetStringVector(texts);
      return ListOf(texts, Quoted);
    }
    case QELValue::eShortIdVector: {
      std::vector<QELShortId> ids;
      value.GetShortIdVector(ids);
      return ListOf(ids, [&](QELShortId id) { return reference(id.Id()); });
    }
    case QELValue::eInt64Vector: {
      std::vector<std::int64_t> pairs;
      value.GetInt64Vector(pairs);
      return ListOf(pairs, [&](std::int64_t pair) {
        auto const bits = static_cast<std::uint64_t>(pair);
        return std::string("(")
            .append(reference(static_cast<std::uint32_t>(bits >> 32)))
            .append(",")
            .append(reference(static_cast<std::uint32_t>(bits)))
            .append(")");
      });
    }
  }
  return "nothing";
}

template <class Infos>
MOXId IdOf(Infos const& infos, std::string const& name) {
  for (auto const& info : infos)
    if (name == info.name) return info.id;
  throw std::runtime_error("the vocabulary has no " + name);
}

// Words of an expectation. Blanks inside quotes belong to a word.
std::vector<std::string> WordsOf(std::string const& text) {
  std::vector<std::string> words;
  bool quoted = false;
  bool between = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ' && !quoted) {
      between = true;
      continue;
    }
    if (between) words.emplace_back();
    between = false;
    if (text[i] == '"') quoted = !quoted;
    words.back() += text[i];
    if (text[i] == '\\' && quoted && i + 1 < text.size()) words.back() += text[++i];
  }
  if (quoted) throw std::runtime_error("a quote is not closed");
  return words;
}

// --- Expectations ---

class Checker {
 public:
  explicit Checker(GoldenOutcome& outcome) : outcome_(outcome), model_(outcome.session->Model()) {}

  // What is wrong; empty when the expectation holds. Throws for one that makes no sense.
  std::string Check(std::string const& line) {
    auto const blank = std::min(line.find(' '), line.size());
    auto const rest = line.substr(std::min(blank + 1, line.size()));
    static std::map<std::string, std::string (Checker::*)(std::string const&)> const kinds = {
        {"object", &Checker::Object},     {"no", &Checker::Absent},
        {"count", &Checker::Count},       {"message", &Checker::Message},
        {"messages", &Checker::Messages}, {"render", &Checker::Render},
        {"counts", &Checker::Counts}};
    auto const found = kinds.find(line.substr(0, blank));
    if (found == kinds.end()) throw std::runtime_error("not an expectation");
    return (this->*found->second)(rest);
  }

 private:
  // object TYPE PATH PROPERTY=VALUE...
  std::string Object(std::string const& rest) {
    auto const words = WordsOf(rest);
    if (words.size() < 2) throw std::runtime_error("object needs a type and a name");
    auto const ids = Find(words[0], words[1]);
    if (ids.size() != 1) return std::to_string(ids.size()) + " objects match; " + Names(words[0]);
    std::string wrong;
    for (std::size_t i = 2; i < words.size(); ++i) {
      auto const equals = words[i].find('=');
      if (equals == std::string::npos) throw std::runtime_error("no = in " + words[i]);
      auto const path = words[i].substr(0, equals);
      auto const actual = ValueAt(ids[0], path);
      if (actual != words[i].substr(equals + 1)) wrong += path + " is " + actual + "; ";
    }
    return wrong;
  }

  // no object TYPE PATH, no property TYPE PATH PROPERTY...
  std::string Absent(std::string const& rest) {
    auto const words = WordsOf(rest);
    if (words.size() == 3 && words[0] == "object")
      return Find(words[1], words[2]).empty() ? "" : "there is one";
    if (words.size() < 4 || words[0] != "property")
      throw std::runtime_error("no object TYPE NAME, or no property TYPE NAME PROPERTY...");
    auto const ids = Find(words[1], words[2]);
    if (ids.size() != 1) return std::to_string(ids.size()) + " objects match; " + Names(words[1]);
    std::string wrong;
    for (std::size_t i = 3; i < words.size(); ++i)
      if (auto const actual = ValueAt(ids[0], words[i]); actual != "nothing")
        wrong += words[i] + " is " + actual + "; ";
    return wrong;
  }

  // count TYPE NUMBER
  std::string Count(std::string const& rest) {
    auto const words = WordsOf(rest);
    if (words.size() != 2) throw std::runtime_error("count TYPE NUMBER");
    auto const actual = std::to_string(Created(words[0]).size());
    return actual == words[1] ? "" : "there are " + actual + "; " + Names(words[0]);
  }

  // message KIND [CODE] [LINE:COLUMN] [START OF THE TEXT], in the order of the messages
  std::string Message(std::string const& rest) {
    std::istringstream in(rest);
    std::string kind;
    in >> kind;
    if (std::find(exporter::kMessageKindNames.begin(), exporter::kMessageKindNames.end(), kind) ==
        exporter::kMessageKindNames.end())
      throw std::runtime_error("no kind of message: " + kind);
    auto const next_word = [&] {
      in >> std::ws;
      auto const place = in.tellg();
      std::string word;
      in >> word;
      in.clear();
      in.seekg(place);
      return word;
    };
    std::string code;
    std::string position;
    if (auto const word = next_word(); word.starts_with("REP-") || word.starts_with("BUILD-"))
      in >> code;
    if (auto const word = next_word(); word.find(':') != std::string::npos &&
                                       word.find_first_not_of("0123456789:") == std::string::npos)
      in >> position;
    std::string text;
    std::getline(in >> std::ws, text);
    for (auto i = next_message_; i < outcome_.messages.size(); ++i) {
      auto const& message = outcome_.messages[i];
      if (NameOf(message.kind) != kind || (!code.empty() && message.code != code) ||
          (!position.empty() && PositionOf(message) != position) ||
          !Quoted(message.text).starts_with(Quoted(text).substr(0, Quoted(text).size() - 1)))
        continue;
      next_message_ = i + 1;
      return {};
    }
    return "no such message among the remaining ones:" + RemainingMessages(next_message_);
  }

  // messages NUMBER
  std::string Messages(std::string const& rest) {
    return std::to_string(outcome_.messages.size()) == rest
               ? ""
               : "there are " + std::to_string(outcome_.messages.size()) + ":" +
                     RemainingMessages(0);
  }

  // render |TEXT|, one for each statement in turn
  std::string Render(std::string const& rest) {
    if (rest.size() < 2 || rest.front() != '|' || rest.back() != '|')
      throw std::runtime_error("render |TEXT|");
    if (next_render_ >= outcome_.rendered.size()) return "there is no such statement";
    auto const quoted = Quoted(outcome_.rendered[next_render_++]);
    std::string actual;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i)
      if (quoted[i] != '\\' || quoted[i + 1] != '"') actual += quoted[i];
    return actual == rest.substr(1, rest.size() - 2) ? "" : "it renders as |" + actual + "|";
  }

  // counts NAME=NUMBER...
  std::string Counts(std::string const& rest) {
    auto const& counts = outcome_.session->Statements();
    std::map<std::string, std::size_t> const actual = {
        {"read", counts.read},           {"ok", counts.ok},
        {"duplicate", counts.duplicate}, {"unsupported", counts.unsupported},
        {"error", counts.error},         {"unread", counts.unread},
        {"outside", counts.outside}};
    std::string wrong;
    for (auto const& word : WordsOf(rest)) {
      auto const equals = word.find('=');
      auto const found = actual.find(word.substr(0, equals));
      if (equals == std::string::npos || found == actual.end())
        throw std::runtime_error("no such count: " + word);
      if (std::to_string(found->second) != word.substr(equals + 1))
        wrong += found->first + " is " + std::to_string(found->second) + "; ";
    }
    return wrong;
  }

  std::vector<std::uint32_t> All(std::string const& type) {
    auto const* const ids = model_.GetTypeIndex()->ObjectsOfType(IdOf(AllTypes(), type));
    return ids ? *ids : std::vector<std::uint32_t>();
  }
  std::vector<std::uint32_t> Created(std::string const& type) {
    auto ids = All(type);
    std::erase_if(ids, [&](auto id) { return outcome_.session->Loaded().Contains(id); });
    return ids;
  }

  // By the end of their path; a path that starts with "/" is a whole one.
  std::vector<std::uint32_t> Find(std::string const& type, std::string path) {
    std::erase(path, '"');
    // The n-th of those without a name.
    std::size_t place = 0;
    if (auto const sign = path.rfind("()#"); sign != std::string::npos) {
      place = std::stoul(path.substr(sign + 3));
      path.resize(sign + 2);
    }
    auto ids = All(type);
    std::erase_if(ids, [&](auto id) {
      auto const actual = PathOf(model_, id);
      if (path.starts_with("/")) return actual != path.substr(1);
      return actual != path && !actual.ends_with("." + path);
    });
    if (place > 0) ids = place <= ids.size() ? decltype(ids){ids[place - 1]} : decltype(ids){};
    return ids;
  }

  std::string Names(std::string const& type) {
    std::string names = type + ":";
    for (auto const id : Created(type)) names.append(" ").append(PathOf(model_, id));
    return names;
  }

  // "pX" or, through references, "pX->pY".
  std::string ValueAt(std::uint32_t id, std::string const& path) {
    auto const arrow = path.find("->");
    auto const property = IdOf(AllProperties(), path.substr(0, arrow));
    auto const* const properties = model_.PropertiesOf(id);
    auto const* const value = properties ? properties->Find(property) : nullptr;
    if (arrow == std::string::npos || !value) return value ? ValueText(model_, *value) : "nothing";
    return ValueAt(value->ShortId(), path.substr(arrow + 2));
  }

  static std::string PositionOf(exporter::Message const& message) {
    return std::to_string(message.line) + ":" + std::to_string(message.column);
  }

  std::string RemainingMessages(std::size_t first) const {
    std::string text;
    for (auto i = first; i < outcome_.messages.size(); ++i) {
      auto const& message = outcome_.messages[i];
      text.append("\n  message ").append(NameOf(message.kind)).append(" ").append(message.code);
      text.append(" ").append(PositionOf(message)).append(" ").append(message.text);
    }
    return text;
  }

  GoldenOutcome& outcome_;
  MemoryModelSet& model_;
  std::size_t next_message_ = 0;
  std::size_t next_render_ = 0;
};

}  // namespace

reader::ReadResult ReadGolden(GoldenCase const& golden) {
  reader::ReadOptions options;
  for (auto const& [name, value] : golden.settings)
    if (auto const equals = value.find('='); name == "define")
      options.defines[ToUpper(value.substr(0, equals))] = value.substr(equals + 1);
  reader::ReadResult result;
  reader::ReadScript(golden.file, golden.sql, options, result);
  return result;
}

std::unique_ptr<GoldenOutcome> RunGolden(GoldenCase const& golden) {
  auto outcome = std::make_unique<GoldenOutcome>();
  outcome->read = ReadGolden(golden);
  for (auto const& statement : outcome->read.statements)
    outcome->rendered.push_back(statement.object->AsString());
  Recorder recorder(outcome->messages);
  outcome->session = std::make_unique<cli::ImportSession>(SettingsOf(golden), recorder);
  outcome->session->Ledger().KeepDetails();
  bool more = true;
  EXPECT_TRUE(outcome->session->Run([&](reader::ReadPiece& piece) {
    piece = std::move(outcome->read);
    return std::exchange(more, false);
  }));
  return outcome;
}

std::vector<GoldenLine> FindFailures(GoldenCase const& golden, GoldenOutcome& outcome) {
  Checker checker(outcome);
  std::vector<GoldenLine> failures;
  for (auto const& [number, text] : golden.expectations) {
    std::string wrong;
    try {
      wrong = checker.Check(text);
    } catch (std::exception const& error) {
      wrong = std::string("cannot be checked: ").append(error.what());
    }
    if (!wrong.empty()) failures.push_back({number, text + "\n" + wrong});
  }
  return failures;
}

std::string RoundTripFault(std::string const& rendered) {
  reader::ReadOptions options;
  reader::ReadResult again;
  reader::ReadScript("rendered.sql", rendered + "\n/\n", options, again);
  for (auto const& diagnostic : again.diagnostics)
    if (diagnostic.kind == reader::DiagnosticKind::Syntax)
      return rendered + "\n  is not read: " + diagnostic.text;
  if (again.statements.size() != 1)
    return rendered + "\n  is read as " + std::to_string(again.statements.size()) + " statements";
  auto const second = again.statements[0].object->AsString();
  return second == rendered ? "" : rendered + "\n  comes back as\n" + second;
}

std::size_t CheckRoundTrips(std::vector<std::filesystem::path> const& folders,
                            std::filesystem::path const& exception_list, bool all_used) {
  auto const exceptions = LoadRoundTripExceptions(exception_list);
  std::set<int> used;
  std::size_t statements = 0;
  for (auto const& folder : folders) {
    for (auto const& entry : std::filesystem::recursive_directory_iterator(folder)) {
      if (entry.path().extension() != ".sql") continue;
      std::stringstream text;
      text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      GoldenCase script;
      script.sql = text.str();
      for (auto const& statement : ReadGolden(script).statements) {
        ++statements;
        auto const rendered = statement.object->AsString();
        auto const fault = RoundTripFault(rendered);
        if (fault.empty()) continue;
        auto const listed =
            std::find_if(exceptions.begin(), exceptions.end(), [&](RoundTripException const& one) {
              return one.file == entry.path().stem() && rendered.starts_with(one.title);
            });
        if (listed == exceptions.end())
          ADD_FAILURE() << entry.path() << "\n" << fault;
        else
          used.insert(listed->line);
      }
    }
  }
  for (auto const& one : exceptions) {
    EXPECT_FALSE(one.reason.empty()) << "line " << one.line;
    EXPECT_TRUE(!all_used || used.count(one.line) != 0) << one.title << " comes back as it was";
  }
  return statements;
}

}  // namespace repora::test
