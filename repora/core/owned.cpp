#include "repora/core/owned.h"

#include <algorithm>
#include <limits>

namespace repora {

int ToInt(char const* text) {
  if (!text) return 0;
  while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
  bool const negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  long long number = 0;
  for (; *text >= '0' && *text <= '9'; ++text)
    number =
        std::min<long long>(number * 10 + (*text - '0'), 1LL + std::numeric_limits<int>::max());
  if (negative) number = -number;
  return static_cast<int>(std::clamp<long long>(number, std::numeric_limits<int>::min(),
                                                std::numeric_limits<int>::max()));
}

}  // namespace repora
