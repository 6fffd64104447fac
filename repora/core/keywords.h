#pragma once

#include <string_view>

// The enumerations of the object model that have keywords of their own. Value 0 is "not given"; any
// other value can be stored, and one outside the list renders as empty text.

enum class REPFileSize_e : int { None, SmallFile, BigFile };
enum class REPStandby_e : int { None, Protected, Unprotected };
enum class REPCompress_e : int { None, Compress, NoCompress };
enum class REPLogging_e : int { None, Logging, NoLogging, ForceLogging, NoForceLogging };
enum class REPSort_e : int { None, NoSort, Sort, Asc, Desc };
enum class REPDeferrable_e : int { None, Deferrable, NotDeferrable };
enum class REPInitially_e : int { None, Immediate, Deferred };
enum class REPEnable_e : int {
  None,
  Enable,
  Disable,
  EnableTableLock,
  DisableTableLock,
  EnableAllTriggers,
  DisableAllTriggers
};
enum class REPValidate_e : int { None, Validate, NoValidate };
enum class REPRely_e : int { None, Rely, NoRely };
enum class REPDelete_e : int { None, Cascade, SetNull };
// SHRINK SPACE and what follows it.
enum class REPShrink_e : int { None, Space, Compact, Cascade, CompactCascade };
enum class REPReturnAs_e : int { None, Locator, Value };
enum class REPOrganization_e : int { None, Heap, Index, External };
enum class REPSelectOpt_e : int { None, All, Unique, Distinct };
enum class REPOrderBy_e : int { None, Asc, Desc };
enum class REPOrderNulls_e : int { None, First, Last };
enum class REPStorageRow_e : int { None, Enable, Disable };
enum class REPCache_e : int { None, NoCache, Cache, CacheReads };
enum class REPCycle_e : int { None, NoCycle, Cycle };
enum class REPOrder_e : int { None, NoOrder, Order };
enum class REPIndexType_e : int { None, Unique, Bitmap };
enum class REPNewValues_e : int { None, Including, Excluding };
enum class REPBuild_e : int { None, Immediate, Deferred };
enum class REPParallel_e : int { None, NoParallel, Parallel, ParallelDegree };
enum class REPRefresh_e : int { None, Never, Refresh };
enum class REPRefreshWith_e : int { None, PrimaryKey, RowId };
enum class REPRefreshOn_e : int { None, Demand, Commit };
enum class REPRefreshConstraints_e : int { None, Enforced, Trusted };
enum class REPRefreshFast_e : int { None, Fast, Complete, Force };
enum class REPMaster_e : int { None, Master, Local };
enum class REPSubqueryType_e : int { None, Union, UnionAll, Intersect, Minus };
enum class REPJoinType_e : int {
  None,
  Join,
  Inner,
  Cross,
  Natural,
  NaturalCross,
  Full,
  FullOuter,
  Left,
  LeftOuter,
  Right,
  RightOuter,
  NaturalFull,
  NaturalFullOuter,
  NaturalLeft,
  NaturalLeftOuter,
  NaturalRight,
  NaturalRightOuter
};

namespace repora {

std::string_view Keyword(REPFileSize_e value);
std::string_view Keyword(REPStandby_e value);
std::string_view Keyword(REPCompress_e value);
std::string_view Keyword(REPLogging_e value);
std::string_view Keyword(REPSort_e value);
std::string_view Keyword(REPDeferrable_e value);
std::string_view Keyword(REPInitially_e value);
std::string_view Keyword(REPEnable_e value);
std::string_view Keyword(REPValidate_e value);
std::string_view Keyword(REPRely_e value);
std::string_view Keyword(REPDelete_e value);
std::string_view Keyword(REPShrink_e value);
std::string_view Keyword(REPReturnAs_e value);
// Always starts with "ORGANIZATION ", alone for values outside the list.
std::string_view Keyword(REPOrganization_e value);
std::string_view Keyword(REPSelectOpt_e value);
std::string_view Keyword(REPOrderBy_e value);
std::string_view Keyword(REPOrderNulls_e value);
std::string_view Keyword(REPStorageRow_e value);
std::string_view Keyword(REPCache_e value);
std::string_view Keyword(REPCycle_e value);
std::string_view Keyword(REPOrder_e value);
std::string_view Keyword(REPIndexType_e value);
std::string_view Keyword(REPNewValues_e value);
std::string_view Keyword(REPBuild_e value);
std::string_view Keyword(REPParallel_e value);
std::string_view Keyword(REPRefresh_e value);
std::string_view Keyword(REPRefreshWith_e value);
std::string_view Keyword(REPRefreshOn_e value);
std::string_view Keyword(REPRefreshConstraints_e value);
std::string_view Keyword(REPRefreshFast_e value);
std::string_view Keyword(REPMaster_e value);
std::string_view Keyword(REPSubqueryType_e value);
std::string_view Keyword(REPJoinType_e value);

}  // namespace repora
