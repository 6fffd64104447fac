#pragma once

#include <cstdint>
#include <vector>

#include "reader/lexer.h"

namespace repora::reader {

// Follows the nesting of a PL/SQL unit to find the ";" that ends it when no "/" line does.
class PlsqlBlocks {
 public:
  void Clear();
  // Takes the next token of the unit, from its first one on; true when that token ends the unit as
  // far as nesting tells.
  bool Take(Token const& token);
  // Whether all that was opened is closed.
  bool IsClosed() const { return levels_.empty() && parentheses_ == 0; }

 private:
  enum class Level : std::uint8_t {
    Package,       // of a package, type body or compound trigger, closed by END
    Declarations,  // of a subprogram or block, still before its BEGIN
    Block,         // opened by BEGIN, CASE, IF or LOOP, closed by END
  };
  enum class Header : std::uint8_t { None, Package, Subprogram };

  void TakeWord(Token const& token);
  bool IsForeignBody(Token const& token) const;
  void OpenBody();
  void Begin();

  std::vector<Level> levels_;
  Header header_ = Header::None;  // what waits for its IS or AS
  std::uint32_t parentheses_ = 0;
  bool trigger_ = false;         // the unit is a trigger
  bool after_name_dot_ = false;  // or after the % of an attribute: what follows is a name
  Word previous_ = K_NONE;       // the word just before
  // How many tokens ago the IS or AS of a subprogram stood; 0: further back.
  std::uint32_t since_body_ = 0;
};

}  // namespace repora::reader
