#include "repora/storage/compression.h"

#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace repora {

void WriteCompression(MOXActionSummaryItem& item, REPCompress_e compression,
                      std::string_view prefix_length) {
  if (compression == REPCompress_e::Compress) {
    SetInteger(item, ORVTypes::pCompressType, codes::kCompress);
    SetTextIfGiven(item, ORVTypes::pCompressPrefixLength, prefix_length);
  }
  if (compression == REPCompress_e::NoCompress) {
    SetInteger(item, ORVTypes::pCompressType, codes::kNoCompress);
    item.RemoveProperty(ORVTypes::pCompressPrefixLength);
  }
}

std::string CompressionText(REPCompress_e compression, std::string_view prefix_length) {
  SqlText sql(Keyword(compression));
  if (compression == REPCompress_e::Compress) sql.Option(prefix_length);
  return sql.Take();
}

}  // namespace repora

REPProcess_e REPCompressionClause::Process(MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  repora::WriteCompression(*item, compression_, compression_size_);
  return REPProcessOK;
}

std::string REPCompressionClause::AsString() const {
  return repora::CompressionText(compression_, compression_size_);
}
