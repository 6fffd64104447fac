#pragma once

#include <string>
#include <string_view>

#include "repora/core/keywords.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;

namespace repora {

// Compression and, when it is not empty, the prefix length of COMPRESS n. NOCOMPRESS takes away a
// prefix length that the item has; values other than the two write nothing.
void WriteCompression(MOXActionSummaryItem& item, REPCompress_e compression,
                      std::string_view prefix_length);
// COMPRESS [n] or NOCOMPRESS; empty for other values.
std::string CompressionText(REPCompress_e compression, std::string_view prefix_length);

}  // namespace repora

// COMPRESS [n] | NOCOMPRESS
class REPCompressionClause {
 public:
  REPCompressionClause() = default;
  REPCompressionClause(REPCompressionClause const&) = default;
  explicit REPCompressionClause(REPCompressionClause const* other)
      : REPCompressionClause(repora::CopyOf(other)) {}
  REPCompressionClause& operator=(REPCompressionClause const&) = default;
  REPCompressionClause& operator=(REPCompressionClause const* other) {
    return *this = repora::CopyOf(other);
  }
  virtual ~REPCompressionClause() = default;

  virtual std::string AsString() const;

  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompression() const { return compression_; }
  void SetCompressionSize(char const* text) { compression_size_ = text; }

  // Writes the clause on the item; without an item the result is REPProcessError.
  REPProcess_e Process(MOXActionSummaryItem* item) const;

 private:
  REPCompress_e compression_{};
  repora::Text compression_size_;  // the prefix length of COMPRESS n
};
