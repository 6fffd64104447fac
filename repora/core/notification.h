#pragma once

#include <cstdint>

// What a notification tells the host. The values 0 to 3 and 11 are not sent.
enum eRENotify : int {
  eRENotifyBegin = 4,           // count: number of statements
  eRENotifyProgress = 5,        // count: statements done so far
  eRENotifyDuplicate = 6,       // code and message
  eRENotifyUnsupported = 7,     // code and message
  eRENotifyInformation = 8,     // code and message
  eRENotifyWarning = 9,         // code and message
  eRENotifySemantic = 10,       // code and message
  eRENotifyBuildTotal = 12,     // count: items to build
  eRENotifyBuildPosition = 13,  // count: items built so far
  eRENotifyAdvisories = 14,     // the build published advisories
};

class REPNotifyWnd;

// One notification. Each processor reuses one record for all of its notifications; the texts are
// valid only while the window handles it.
struct REPNotification {
  REPNotifyWnd* window;  // the receiver
  std::uint32_t id;      // 0
  std::uint32_t code;    // 0
  eRENotify kind;
  std::int32_t count;
  std::uint32_t reserved;    // 0
  char const* code_text;     // "REP-" and a number, or "--------->"; null without a message
  char const* message_text;  // null without a message
};

// The host's window: receives the notifications on the thread that runs the processor, which waits
// until the call returns.
class REPNotifyWnd {
 public:
  virtual ~REPNotifyWnd() = default;
  virtual void OnNotify(REPNotification const& notification) = 0;
};
