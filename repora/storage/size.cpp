#include "repora/storage/size.h"

#include <string_view>

namespace {

// The type that a unit letter stands for; None for other characters. B counts single bytes.
REPSizeType_e TypeOfUnit(char letter) {
  switch (letter) {
    case 'B':
    case 'b': return REPSizeType_e::Number;
    case 'K':
    case 'k': return REPSizeType_e::Kilobytes;
    case 'M':
    case 'm': return REPSizeType_e::Megabytes;
    case 'G':
    case 'g': return REPSizeType_e::Gigabytes;
    case 'T':
    case 't': return REPSizeType_e::Terabytes;
    default: return REPSizeType_e::None;
  }
}

}  // namespace

void REPSizeClause::SetSize(char const* text) {
  std::string_view number(text ? text : "");
  auto const unit = number.empty() ? REPSizeType_e::None : TypeOfUnit(number.back());
  if (unit != REPSizeType_e::None) number.remove_suffix(1);
  type_ = unit == REPSizeType_e::None ? REPSizeType_e::Number : unit;
  value_ = repora::Text(number);
}

std::string REPSizeClause::AsString(char const* prefix) const {
  std::string text;
  switch (type_) {
    case REPSizeType_e::None:
    case REPSizeType_e::KeywordOnly: break;
    case REPSizeType_e::Null: text = "NULL"; break;
    case REPSizeType_e::Number: text = value_.str(); break;
    case REPSizeType_e::Kilobytes: text = value_.str() + "K"; break;
    case REPSizeType_e::Megabytes: text = value_.str() + "M"; break;
    case REPSizeType_e::Gigabytes: text = value_.str() + "G"; break;
    case REPSizeType_e::Terabytes: text = value_.str() + "T"; break;
    case REPSizeType_e::Unlimited: text = "UNLIMITED"; break;
  }
  if (prefix && !text.empty()) text.insert(0, prefix);
  return text;
}
