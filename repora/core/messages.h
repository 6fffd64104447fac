#pragma once

#include <array>
#include <string>
#include <string_view>

#include "repora/core/message_ids.h"

namespace repora {

// The text of a message as it stands in the message table; empty for a number without one.
std::string_view MessageText(unsigned id);
// A word that stands in other messages, or a whole message without inserts.
std::string MessageText(REPMessage message);

// An insert of a message: a text, or an integer for placeholders like "%1!i!".
using MessageInserts = std::array<char const*, 4>;

// A message text with its placeholders filled: %1 to %4 stand for the inserts, of which only those
// before the first null count; "%1!i!", "%1!d!", "%1!u!" and "%1!s!" are read as "%1"; "%%" is a
// percent sign. A placeholder without an insert stays as it is.
std::string FormatMessage(std::string_view text, MessageInserts const& inserts);
std::string FormatMessage(REPMessage message, MessageInserts const& inserts);

// A message with one integer insert.
std::string FormatMessage(REPMessage message, int insert);

}  // namespace repora
