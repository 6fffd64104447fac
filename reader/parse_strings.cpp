#include "reader/parse_strings.h"

namespace repora::reader {
namespace {

struct StringParts {
  std::string_view text;  // between the quotes and delimiters
  bool delimited;         // q'..', where a quote stands for itself
};

StringParts PartsOf(std::string_view string) {
  auto const quote = string.find('\'');
  bool const delimited = quote > 0 && (string[quote - 1] == 'q' || string[quote - 1] == 'Q');
  auto delimiter = std::size_t{0};
  if (delimited) {
    auto const at = [&](std::size_t i) { return static_cast<unsigned char>(string[quote + i]); };
    // One beyond ASCII is as long as its character.
    ++delimiter;
    if (at(1) >= 0xC2)
      while (delimiter < 4 && (at(delimiter + 1) & 0xC0U) == 0x80) ++delimiter;
  }
  auto const edge = 1 + delimiter;
  return {string.substr(quote + edge, string.size() - quote - 2 * edge), delimited};
}

StringParts TakeString(TokenStream& in) {
  if (in.Peek().kind != TokenKind::String) in.Fail("a string");
  return PartsOf(in.TextOf(in.Next()));
}

}  // namespace

std::string ParseString(TokenStream& in) {
  auto const [text, delimited] = TakeString(in);
  if (delimited) return std::string(text);
  std::string value;
  for (std::size_t i = 0; i < text.size(); ++i) {
    value += text[i];
    if (text[i] == '\'') ++i;
  }
  return value;
}

std::string ParseQuotedText(TokenStream& in) {
  auto const [text, delimited] = TakeString(in);
  if (!delimited) return std::string(text);
  std::string quoted;
  for (auto const letter : text) {
    quoted += letter;
    if (letter == '\'') quoted += letter;
  }
  return quoted;
}

}  // namespace repora::reader
