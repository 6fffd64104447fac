#include "repora/core/messages.h"

#include <algorithm>

namespace repora {
namespace {

struct Entry {
  unsigned number;
  std::string_view text;
};

constexpr Entry kMessages[] = {
#define REPORA_MESSAGE(number, name, text) {number, text},
#include "repora/resources/messages.def"
#undef REPORA_MESSAGE
};

// The length of a conversion such as "!i!" at the start of a text, 0 when there is none.
std::size_t ConversionLength(std::string_view text) {
  if (text.empty() || text.front() != '!') return 0;
  auto const end = text.find('!', 1);
  return end == std::string_view::npos ? 0 : end + 1;
}

}  // namespace

std::string_view MessageText(unsigned id) {
  auto const* const found =
      std::find_if(std::begin(kMessages), std::end(kMessages),
                   [&](Entry const& message) { return message.number == id; });
  return found == std::end(kMessages) ? std::string_view() : found->text;
}

std::string MessageText(REPMessage message) {
  return std::string(MessageText(static_cast<unsigned>(message)));
}

std::string FormatMessage(std::string_view text, MessageInserts const& inserts) {
  auto const given = std::find(inserts.begin(), inserts.end(), nullptr) - inserts.begin();
  std::string result;
  for (std::size_t i = 0; i < text.size();) {
    auto const next = i + 1 < text.size() ? text[i + 1] : '\0';
    if (text[i] == '%' && next >= '1' && next - '1' < given) {
      result += inserts[static_cast<std::size_t>(next - '1')];
      i += 2 + ConversionLength(text.substr(i + 2));
    } else if (text[i] == '%' && next == '%') {
      result += '%';
      i += 2;
    } else {
      result += text[i++];
    }
  }
  return result;
}

std::string FormatMessage(REPMessage message, MessageInserts const& inserts) {
  return FormatMessage(MessageText(static_cast<unsigned>(message)), inserts);
}

std::string FormatMessage(REPMessage message, int insert) {
  auto const digits = std::to_string(insert);
  return FormatMessage(message, {digits.c_str(), nullptr, nullptr, nullptr});
}

}  // namespace repora
