#include "repora/core/keywords.h"

#include "repora/core/keyword_table.h"

namespace repora {
std::string_view Keyword(REPFileSize_e value) {
  static constexpr std::string_view keywords[] = {"SMALLFILE", "BIGFILE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPStandby_e value) {
  static constexpr std::string_view keywords[] = {"PROTECTED", "UNPROTECTED"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPCompress_e value) {
  static constexpr std::string_view keywords[] = {"COMPRESS", "NOCOMPRESS"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPLogging_e value) {
  static constexpr std::string_view keywords[] = {"LOGGING", "NOLOGGING", "FORCE LOGGING",
                                                  "NO FORCE LOGGING"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPSort_e value) {
  static constexpr std::string_view keywords[] = {"NOSORT", "SORT", "ASC", "DESC"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPDeferrable_e value) {
  static constexpr std::string_view keywords[] = {"DEFERRABLE", "NOT DEFERRABLE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPInitially_e value) {
  static constexpr std::string_view keywords[] = {"INITIALLY IMMEDIATE", "INITIALLY DEFERRED"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPEnable_e value) {
  static constexpr std::string_view keywords[] = {"ENABLE",
                                                  "DISABLE",
                                                  "ENABLE TABLE LOCK",
                                                  "DISABLE TABLE LOCK",
                                                  "ENABLE ALL TRIGGERS",
                                                  "DISABLE ALL TRIGGERS"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPValidate_e value) {
  static constexpr std::string_view keywords[] = {"VALIDATE", "NOVALIDATE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRely_e value) {
  static constexpr std::string_view keywords[] = {"RELY", "NORELY"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPDelete_e value) {
  static constexpr std::string_view keywords[] = {"CASCADE", "SET NULL"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPShrink_e value) {
  static constexpr std::string_view keywords[] = {"SHRINK SPACE", "SHRINK SPACE COMPACT",
                                                  "SHRINK SPACE CASCADE",
                                                  "SHRINK SPACE COMPACT CASCADE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPReturnAs_e value) {
  static constexpr std::string_view keywords[] = {"LOCATOR", "VALUE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPOrganization_e value) {
  static constexpr std::string_view keywords[] = {"ORGANIZATION HEAP", "ORGANIZATION INDEX",
                                                  "ORGANIZATION EXTERNAL"};
  auto const keyword = FindKeyword(value, keywords);
  return keyword.empty() ? "ORGANIZATION " : keyword;
}

std::string_view Keyword(REPSelectOpt_e value) {
  static constexpr std::string_view keywords[] = {"ALL", "UNIQUE", "DISTINCT"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPOrderBy_e value) {
  static constexpr std::string_view keywords[] = {"ASC", "DESC"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPOrderNulls_e value) {
  static constexpr std::string_view keywords[] = {"NULLS FIRST", "NULLS LAST"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPStorageRow_e value) {
  static constexpr std::string_view keywords[] = {"ENABLE STORAGE IN ROW",
                                                  "DISABLE STORAGE IN ROW"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPCache_e value) {
  static constexpr std::string_view keywords[] = {"NOCACHE", "CACHE", "CACHE READS"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPCycle_e value) {
  static constexpr std::string_view keywords[] = {"NOCYCLE", "CYCLE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPOrder_e value) {
  static constexpr std::string_view keywords[] = {"NOORDER", "ORDER"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPIndexType_e value) {
  static constexpr std::string_view keywords[] = {"UNIQUE", "BITMAP"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPNewValues_e value) {
  static constexpr std::string_view keywords[] = {"INCLUDING", "EXCLUDING"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPBuild_e value) {
  static constexpr std::string_view keywords[] = {"BUILD IMMEDIATE", "BUILD DEFERRED"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPParallel_e value) {
  static constexpr std::string_view keywords[] = {"NOPARALLEL", "PARALLEL", "PARALLEL"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRefresh_e value) {
  static constexpr std::string_view keywords[] = {"NEVER REFRESH", "REFRESH"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRefreshWith_e value) {
  static constexpr std::string_view keywords[] = {"WITH PRIMARY KEY", "WITH ROWID"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRefreshOn_e value) {
  static constexpr std::string_view keywords[] = {"ON DEMAND", "ON COMMIT"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRefreshConstraints_e value) {
  static constexpr std::string_view keywords[] = {"ENFORCED CONSTRAINTS", "TRUSTED CONSTRAINTS"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRefreshFast_e value) {
  static constexpr std::string_view keywords[] = {"FAST", "COMPLETE", "FORCE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPMaster_e value) {
  static constexpr std::string_view keywords[] = {"MASTER", "LOCAL"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPSubqueryType_e value) {
  static constexpr std::string_view keywords[] = {"UNION", "UNION ALL", "INTERSECT", "MINUS"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPJoinType_e value) {
  static constexpr std::string_view keywords[] = {"JOIN",
                                                  "INNER JOIN",
                                                  "CROSS JOIN",
                                                  "NATURAL JOIN",
                                                  "NATURAL CROSS JOIN",
                                                  "FULL JOIN",
                                                  "FULL OUTER JOIN",
                                                  "LEFT JOIN",
                                                  "LEFT OUTER JOIN",
                                                  "RIGHT JOIN",
                                                  "RIGHT OUTER JOIN",
                                                  "NATURAL FULL JOIN",
                                                  "NATURAL FULL OUTER JOIN",
                                                  "NATURAL LEFT JOIN",
                                                  "NATURAL LEFT OUTER JOIN",
                                                  "NATURAL RIGHT JOIN",
                                                  "NATURAL RIGHT OUTER JOIN"};
  return FindKeyword(value, keywords);
}

}  // namespace repora
