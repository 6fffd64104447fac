#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What became of each clause of a statement that was read: the base of the ledger.
namespace repora::reader {

struct Token;

// What becomes of a clause in a statement that is processed without a fault.
enum class Fate : std::uint8_t {
  Held,      // its meaning is in the model
  Text,      // the model has it as a text of the script
  Rendered,  // only the statement has it
  Left,      // skipped with a note
};

// A clause reaches from its first word to the next clause; the first one starts the statement.
struct ClauseTrace {
  std::string_view name;  // its keywords, "NOT NULL", or what it is, "column"
  Fate fate = Fate::Held;
  std::size_t offset = 0;   // of its first word, in the source
  std::uint32_t words = 0;  // tokens
  bool in_query = false;    // kept as a text when the object of the query keeps its SQL
};

// What the parse functions of a statement took and said, by the numbers of its tokens.
class ClauseMarks {
 public:
  void Clear();
  // A word taken as one of the grammar. In ascending order.
  void AddKeyword(std::size_t token) { keywords_.push_back(static_cast<std::uint32_t>(token)); }
  // Something of the grammar that starts without a keyword. The name lives as long as the program.
  void AddClause(std::size_t token, char const* name) { named_.push_back({token, name}); }
  // Tokens that are kept as a text, whatever is in it.
  void AddText(std::size_t token, std::size_t end) { texts_.push_back({token, end}); }
  // Tokens that are a query, taken apart.
  void AddQuery(std::size_t token, std::size_t end) { queries_.push_back({token, end}); }
  // A token where something is skipped.
  void AddLeft(std::size_t token, std::string_view what) {
    left_.push_back({token, std::string(what)});
  }
  // Takes back the words and clauses from a token on.
  void Forget(std::size_t token);

  // Appends the clauses of a statement. The words of its kind are its first clause. The names of
  // what is left live until the next Clear.
  void Resolve(std::string_view kind, std::size_t tokens_of_kind, std::vector<Token> const& tokens,
               std::vector<ClauseTrace>& clauses);

 private:
  struct Named {
    std::size_t token;
    char const* name;
  };
  struct Range {
    std::size_t token;
    std::size_t end;
  };
  struct Left {
    std::size_t token;
    std::string what;
  };
  struct Start {
    std::size_t token;
    std::size_t end;  // behind what the name covers
    std::string_view name;
    Fate fate;
  };

  bool IsInQuery(std::size_t token) const;
  void NoteOwner(std::size_t start);
  void PlaceLeft(std::size_t token, std::string_view name);

  std::vector<std::uint32_t> keywords_;
  std::vector<Named> named_;
  std::vector<Range> texts_;
  std::vector<Range> queries_;
  std::vector<Left> left_;
  std::vector<Start> starts_;
  std::vector<std::uint32_t> owners_;  // of tokens: number of the start they belong to, 0 for none
};

}  // namespace repora::reader
