#include "cli/message_printer.h"

#include <algorithm>

#include "reader/script_reader.h"

namespace repora::cli {
namespace {

using exporter::Message;
using exporter::MessageKind;

constexpr std::size_t kTextLimit = 200;        // characters
constexpr std::size_t kBytesBeforeCaret = 70;  // of a long line
constexpr std::size_t kBytesBehindCaret = 40;

std::string Label(MessageKind kind, Style const& style) {
  switch (kind) {
    case MessageKind::Syntax: return style.Red("syntax error");
    case MessageKind::Semantic: return style.Red("semantic error");
    case MessageKind::Error:
    case MessageKind::Unsupported: return style.Red(NameOf(kind));
    case MessageKind::Warning:
    case MessageKind::Duplicate: return style.Yellow(NameOf(kind));
    case MessageKind::Information:
    case MessageKind::Note: return style.Cyan(NameOf(kind));
  }
  return {};
}

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

// The line around an offset, as much as fits, and a caret below it. Looks at no more of the script
// than it shows: a line may be as long as the script.
std::string LineAndCaret(reader::Source const& source, std::size_t offset, Style const& style) {
  auto const script = source.Text();
  auto const place = std::min(offset, script.size());
  auto begin = place;
  while (begin > 0 && place - begin < kBytesBeforeCaret && !IsLineEnd(script[begin - 1])) --begin;
  bool const cut_before = begin > 0 && !IsLineEnd(script[begin - 1]);
  while (cut_before && begin < place && IsContinuation(script[begin])) ++begin;
  auto end = place;
  while (end < script.size() && end - place < kBytesBehindCaret && !IsLineEnd(script[end])) ++end;
  while (end < script.size() && IsContinuation(script[end])) ++end;
  bool const cut_behind = end < script.size() && !IsLineEnd(script[end]);
  if (begin == end || source.IsHidden(begin, end)) return {};

  auto const before = (cut_before ? "..." : "") + Printable(script.substr(begin, place - begin));
  auto const behind = Printable(script.substr(place, end - place)) + (cut_behind ? "..." : "");
  return "  " + before + behind + "\n  " + std::string(DisplayWidth(before), ' ') +
         style.Green("^") + "\n";
}

std::string Place(Message const& message) {
  if (message.file.empty()) return "repora: ";
  auto const file = Printable(message.file);
  if (message.line == 0) return file + ": ";
  return file + ":" + std::to_string(message.line) + ":" + std::to_string(message.column) + ": ";
}

}  // namespace

std::string MessageText(Message const& message, reader::Source const* source, std::size_t offset,
                        Style const& style) {
  auto text = style.Bold(Place(message));
  // What is said of a whole script needs no label.
  if (message.kind != MessageKind::Note || message.line > 0) {
    text += Label(message.kind, style);
    // The run marks its own reports of failures with an arrow for a code.
    if (!message.code.empty() && message.kind != MessageKind::Error)
      text.append(" ").append(message.code);
    text += ": ";
  }
  text.append(PrintableSummary(message.text, kTextLimit)).append("\n");
  if (message.kind == MessageKind::Syntax && source) text += LineAndCaret(*source, offset, style);
  return text;
}

}  // namespace repora::cli
