#include "repora/model/shared_text.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace repora {

SharedText::Block* SharedText::Make(std::string_view text) {
  if (text.size() > UINT32_MAX) throw std::length_error("text of 4 GiB or more");
  auto const part = ChunkMemory::Take(ChunkMemory::kContents, sizeof(Block) + text.size() + 1);
  auto* const block =
      new (part.memory) Block{ShareCount(part.in_chunk), static_cast<std::uint32_t>(text.size())};
  std::memcpy(block->Chars(), text.data(), text.size());
  block->Chars()[text.size()] = '\0';
  return block;
}

void SharedText::Destroy(Block* block) {
  ChunkMemory::Give(ChunkMemory::kContents, {block, block->count.InChunk()},
                    sizeof(Block) + block->size + 1);
}

}  // namespace repora
