#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "repora/core/keywords.h"
#include "repora/core/statement.h"
#include "repora/storage/size.h"

class MOXActionSummaryItem;
class REPName;

// Options that creating and altering tablespaces and databases have in common.

enum class REPTempPerm_e : int { None, Temporary, Permanent };
// The first two serve CREATE, the first five ALTER, the others the files of a tablespace.
enum class REPOnOff_e : int {
  None,
  Online,
  Offline,
  OfflineNormal,
  OfflineTemporary,
  OfflineImmediate,
  DatafileOnline,
  DatafileOffline,
  TempfileOnline,
  TempfileOffline
};
enum class REPExtent_e : int { None, Dictionary, Local, LocalAutoAllocate, LocalUniform, Uniform };
enum class REPSegment_e : int { None, Manual, Auto };
enum class REPFlashback_e : int { None, On, Off };
enum class REPRetention_e : int { None, Guarantee, NoGuarantee };
enum class REPReadWrite_e : int { None, ReadOnly, ReadWrite };
enum class REPBackup_e : int { None, Begin, End };

namespace repora {

// As in core/keywords.h.
std::string_view Keyword(REPTempPerm_e value);
std::string_view Keyword(REPOnOff_e value);
std::string_view Keyword(REPExtent_e value);
std::string_view Keyword(REPSegment_e value);
std::string_view Keyword(REPFlashback_e value);
std::string_view Keyword(REPRetention_e value);
std::string_view Keyword(REPReadWrite_e value);
std::string_view Keyword(REPBackup_e value);

// Writers of an option on a tablespace; values that say nothing to the model write nothing.
void WriteCompress(MOXActionSummaryItem& tablespace, REPCompress_e value);
void WriteFileSize(MOXActionSummaryItem& item, REPFileSize_e value);
void WriteExtents(MOXActionSummaryItem& tablespace, REPExtent_e value, REPSizeClause const& size);
void WriteSegments(MOXActionSummaryItem& tablespace, REPSegment_e value);
void WriteFlashback(MOXActionSummaryItem& tablespace, REPFlashback_e value);
void WriteRetention(MOXActionSummaryItem& tablespace, REPRetention_e value);
void WriteLogging(MOXActionSummaryItem& tablespace, REPLogging_e value);
// Online and offline only: the ways of taking a tablespace offline change nothing.
void WriteOnOff(MOXActionSummaryItem& tablespace, REPOnOff_e value);

// Whether a name of a tablespace group stands for none: it is empty or reads ''.
bool IsNoGroup(REPName const& name);
// " TABLESPACE GROUP " and the name, '' for none; empty for null.
std::string GroupText(REPName const* name);

}  // namespace repora

// EXTENT MANAGEMENT {DICTIONARY | LOCAL [AUTOALLOCATE | UNIFORM [SIZE size]]}
class REPExtentMgmtClause final {
 public:
  // With a leading blank.
  virtual std::string AsString() const;

  void SetExtent(REPExtent_e extent) { extent_ = extent; }
  REPExtent_e GetExtent() const { return extent_; }
  void SetSize(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSize() const { return size_; }

  // Writes the clause on a tablespace; without an item the result is REPProcessError.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* tablespace) const;

 private:
  REPExtent_e extent_{};
  REPSizeClause size_;  // of a uniform extent
};
