#include "repora/core/operator.h"

#include <iterator>
#include <string_view>

std::string REPOperator::AsString() const {
  // The first one belongs to kind 1.
  static constexpr std::string_view texts[] = {"+",
                                               "-",
                                               "PRIOR",
                                               "CONNECT_BY_ROOT",
                                               "*",
                                               "/",
                                               "+",
                                               "-",
                                               "||",
                                               "UNION",
                                               "UNION ALL",
                                               "INTERSECT",
                                               "MINUS",
                                               "MULTISET EXCEPT",
                                               "MULTISET INTERSECT",
                                               "MULTISET UNION"};
  if (type_ == REPOperType_e::UserDefined) return user_defined_.str();
  auto const kind = static_cast<int>(type_);
  if (kind < 1 || kind > static_cast<int>(std::size(texts))) return {};
  return std::string(texts[kind - 1]);
}
