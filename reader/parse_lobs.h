#pragma once

#include <memory>
#include <vector>

#include "reader/token_stream.h"
#include "repora/storage/lob_partitions.h"
#include "repora/storage/lob_storage.h"
#include "repora/tables/object_columns.h"

namespace repora::reader {

// Whether LOB storage comes: LOB (
bool IsLobStorage(TokenStream const& in);

// [SECUREFILE | BASICFILE]; true when it is there. The first is noted: it is not the kind of LOB
// that models know.
bool AcceptLobKind(TokenStream& in);

// LOB ( column [, column]... ) STORE AS [SECUREFILE | BASICFILE] [segment] [( parameter... )]
std::unique_ptr<REPLOBStorage> ParseLobStorage(TokenStream& in);

// ( parameter... ), of a new LOB segment
std::unique_ptr<REPLOBParameters> ParseLobParameters(TokenStream& in);

// ( parameter... ), of a LOB segment that is changed
std::unique_ptr<REPModifyLOBParameters> ParseModifyLobParameters(TokenStream& in);

// Whether parameters are those of a segment to come or of one that is changed.
enum class LobSegment { New, Changed };

// {LOB column | LOB ( column [, column]... ) | VARRAY varray} ( parameter... ), of a partition; the
// parentheses may be missing for a segment that is changed
std::unique_ptr<REPVarrayLOBParameters> ParseVarrayLobParameters(TokenStream& in,
                                                                 LobSegment segment);

// {LOB storage | varray properties}..., with "," between them or not; the library renders lists of
// them with it.
struct LobStorages {
  std::vector<std::unique_ptr<REPLOBStorage>> lobs;
  std::vector<std::unique_ptr<REPVarrayColumnProps>> varrays;
};

// Takes one more, with a "," before it when one stands between two; false when none comes.
bool ParseLobStorageItem(TokenStream& in, LobStorages& storages);

// ( PARTITION name storage... [( SUBPARTITION name storage... [, ...] )] [, ...] ), behind the LOB
// storage of a column; null when none comes.
std::unique_ptr<REPLOBPartitionList> ParseLobPartitions(TokenStream& in);

}  // namespace repora::reader
