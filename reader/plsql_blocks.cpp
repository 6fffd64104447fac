#include "reader/plsql_blocks.h"

#include <utility>

namespace repora::reader {

void PlsqlBlocks::Clear() {
  auto levels = std::move(levels_);
  levels.clear();
  *this = PlsqlBlocks();
  levels_ = std::move(levels);
}

bool PlsqlBlocks::Take(Token const& token) {
  bool ends = false;
  if (since_body_ > 0 && ++since_body_ > 3) since_body_ = 0;
  if (token.kind == TokenKind::Word) {
    if (!after_name_dot_) TakeWord(token);
  } else if (token.punctuation == '(') {
    ++parentheses_;
  } else if (token.punctuation == ')') {
    if (parentheses_ > 0) --parentheses_;
  } else if (token.punctuation == ';') {
    parentheses_ = 0;
    header_ = Header::None;  // of a declaration without a body
    ends = levels_.empty();
  }
  previous_ = after_name_dot_ ? K_NONE : token.word;
  after_name_dot_ = token.punctuation == '.' || token.punctuation == '%';
  return ends;
}

void PlsqlBlocks::TakeWord(Token const& token) {
  if (IsForeignBody(token)) {
    levels_.pop_back();
    since_body_ = 0;
    return;
  }
  switch (token.word) {
    case K_PACKAGE:
    case K_TYPE:
      if (levels_.empty() && parentheses_ == 0 && !trigger_) header_ = Header::Package;
      break;
    case K_PROCEDURE:
    case K_FUNCTION:
      // In the header of a trigger it is a name.
      if (parentheses_ == 0 && !(trigger_ && levels_.empty())) header_ = Header::Subprogram;
      break;
    case K_TRIGGER:
      if (levels_.empty()) trigger_ = true;
      break;
    case K_COMPOUND:
      if (trigger_ && levels_.empty()) levels_.push_back(Level::Package);
      break;
    case K_STATEMENT:
    case K_ROW:
      // A timing point of a compound trigger: BEFORE EACH ROW IS.
      if (trigger_ && levels_.size() == 1 && levels_.back() == Level::Package)
        header_ = Header::Subprogram;
      break;
    case K_IS:
    case K_AS: OpenBody(); break;
    case K_DECLARE: levels_.push_back(Level::Declarations); break;
    case K_BEGIN: Begin(); break;
    case K_CASE:
    case K_IF:
    case K_LOOP:
      if (previous_ != K_END && !levels_.empty()) levels_.push_back(Level::Block);
      break;
    case K_END:
      if (!levels_.empty()) levels_.pop_back();
      break;
    default: break;
  }
}

// Whether the body that was just opened is one of another language and has no END: AS LANGUAGE C,
// IS EXTERNAL NAME. The first of the two words alone may be the name of a variable.
bool PlsqlBlocks::IsForeignBody(Token const& token) const {
  if (since_body_ != 3) return false;
  if (previous_ == K_LANGUAGE)
    return token.word == K_JAVA || token.word == K_JAVASCRIPT || token.length == 1;
  return previous_ == K_EXTERNAL &&
         (token.word == K_LIBRARY || token.word == K_NAME || token.word == K_LANGUAGE);
}

void PlsqlBlocks::OpenBody() {
  // A constructor returns SELF AS RESULT.
  if (header_ == Header::None || parentheses_ > 0 || previous_ == K_SELF) return;
  bool const package = header_ == Header::Package;
  levels_.push_back(package ? Level::Package : Level::Declarations);
  header_ = Header::None;
  since_body_ = package ? 0 : 1;
}

void PlsqlBlocks::Begin() {
  if (!levels_.empty() && levels_.back() == Level::Declarations)
    levels_.back() = Level::Block;
  else if (levels_.size() == 1 && levels_.back() == Level::Package)
    levels_.back() = Level::Block;  // what a package does when it is first used
  else
    levels_.push_back(Level::Block);
}

}  // namespace repora::reader
