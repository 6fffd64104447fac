#include "repora/model/shared_text.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace repora {

SharedText::SharedText(std::string_view text) {
  if (text.empty()) return;
  if (text.size() > UINT32_MAX) throw std::length_error("text of 4 GiB or more");
  auto* const memory = ::operator new(sizeof(Block) + text.size() + 1);
  block_ = new (memory) Block{1, static_cast<std::uint32_t>(text.size())};
  std::memcpy(block_->Chars(), text.data(), text.size());
  block_->Chars()[text.size()] = '\0';
}

SharedText SharedText::Adopt(void* block) {
  SharedText text;
  text.block_ = static_cast<Block*>(block);
  return text;
}

SharedText SharedText::Share(void* block) {
  auto text = Adopt(block);
  if (text.block_) ++text.block_->references;
  return text;
}

void SharedText::Release(Block* block) {
  if (block && --block->references == 0) ::operator delete(block);
}

}  // namespace repora
