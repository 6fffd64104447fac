#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace repora::exporter {

// What a message is about. The names are part of the JSON contract.
enum class MessageKind {
  Information,
  Warning,
  Semantic,
  Duplicate,
  Unsupported,
  Error,   // the run's own report of a failed statement
  Syntax,  // from the reader: could not be read
  Note,    // from the reader: something was left out
};

inline constexpr std::array<std::string_view, 8> kMessageKindNames = {
    "information", "warning", "semantic", "duplicate", "unsupported", "error", "syntax", "note"};

constexpr std::string_view NameOf(MessageKind kind) {
  return kMessageKindNames[static_cast<std::size_t>(kind)];
}

// One message of a run. Without a place in a script, file is empty and the numbers are 0.
struct Message {
  MessageKind kind = MessageKind::Information;
  std::string code;  // "REP-39"; empty for messages of the reader
  std::string text;
  std::string file;
  std::size_t line = 0;       // from 1
  std::size_t column = 0;     // from 1
  std::size_t statement = 0;  // from 1 over the statements read; 0: belongs to none
};

struct StatementCounts {
  std::size_t read = 0;
  std::size_t ok = 0;
  std::size_t duplicate = 0;
  std::size_t unsupported = 0;
  std::size_t error = 0;
  std::size_t unread = 0;   // known to the model, but could not be read
  std::size_t outside = 0;  // without a place in a data model
};

// What the model held before a run: objects above that id were created by it.
struct LoadedObjects {
  std::uint32_t highest_id = 0;
  bool Contains(std::uint32_t id) const { return id <= highest_id; }
};

}  // namespace repora::exporter
