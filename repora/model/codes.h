#pragma once

#include <cstdint>
#include <string_view>

// The integer codes of the model's value lists, and the texts that serve as codes.
namespace repora::codes {

// ORVTypes::pType of the model root
inline constexpr std::int32_t kModelLogical = 1;
inline constexpr std::int32_t kModelPhysical = 2;
inline constexpr std::int32_t kModelLogicalAndPhysical = 3;

// ORVTypes::pType of an attribute
inline constexpr std::int32_t kAttributeType = 100;

// ORVTypes::pOracleBuffPool
inline constexpr std::int32_t kBufferPoolKeep = 900;
inline constexpr std::int32_t kBufferPoolRecycle = 901;
inline constexpr std::int32_t kBufferPoolDefault = 902;

// ORVTypes::pTimezoneOption
inline constexpr std::int32_t kTimestamp = 903;
inline constexpr std::int32_t kTimestampWithTimeZone = 904;
inline constexpr std::int32_t kTimestampWithLocalTimeZone = 905;

// ORVTypes::pUseParallel
inline constexpr std::int32_t kParallel = 904;
inline constexpr std::int32_t kNoParallel = 905;

// ORVTypes::pCharacterSemantics
inline constexpr std::int32_t kByteSemantics = 907;
inline constexpr std::int32_t kCharSemantics = 908;

// ORVTypes::pDataOrganizationType
inline constexpr std::int32_t kIndexOrganized = 912;
inline constexpr std::int32_t kExternal = 913;

// ORVTypes::pTableMapping
inline constexpr std::int32_t kMappingTable = 915;
inline constexpr std::int32_t kNoMapping = 916;

// ORVTypes::pCompressType
inline constexpr std::int32_t kNoCompress = 918;
inline constexpr std::int32_t kCompress = 919;

// ORVTypes::pAccessParameterType
inline constexpr std::int32_t kAccessParametersText = 0;
inline constexpr std::int32_t kAccessParametersQuery = 1;

// ORVTypes::pRejectLimitType
inline constexpr std::int32_t kRejectUnlimited = 0;
inline constexpr std::int32_t kRejectNumber = 1;

// ORVTypes::pOracleDataStorageType
inline constexpr std::int32_t kHeapStorage = 0;
inline constexpr std::int32_t kIndexOrExternalStorage = 1;
inline constexpr std::int32_t kClusteredStorage = 2;

// ORVTypes::pOracleCommitType
inline constexpr std::int32_t kCommitDelete = 0;
inline constexpr std::int32_t kCommitPreserve = 1;

// ORVTypes::pOracleMaxExtentType
inline constexpr std::int32_t kMaxExtentsUnlimited = 0;

// ORVTypes::pStorageFileType
inline constexpr std::int32_t kBigFile = 0;
inline constexpr std::int32_t kSmallFile = 1;

// ORVTypes::pTablespaceType
inline constexpr std::int32_t kUndoTablespace = 0;
inline constexpr std::int32_t kTemporaryTablespace = 1;
inline constexpr std::int32_t kPermanentTablespace = 2;

// ORVTypes::pTablespaceSystemType
inline constexpr std::int32_t kSystemTablespace = 0;
inline constexpr std::int32_t kSysauxTablespace = 1;

// ORVTypes::pExtentManagementType
inline constexpr std::int32_t kExtentsInDictionary = 922;
inline constexpr std::int32_t kExtentsLocal = 923;

// ORVTypes::pLocalExtentManagementType
inline constexpr std::int32_t kLocalExtentsUnspecified = 903;
inline constexpr std::int32_t kLocalExtentsAutoAllocate = 920;
inline constexpr std::int32_t kLocalExtentsUniform = 921;

// ORVTypes::pSegmentManagementType
inline constexpr std::int32_t kSegmentsAuto = 926;
inline constexpr std::int32_t kSegmentsManual = 927;

// ORVTypes::pRedundancyType
inline constexpr std::int32_t kRedundancyHigh = 0;
inline constexpr std::int32_t kRedundancyNormal = 1;
inline constexpr std::int32_t kRedundancyExternal = 2;

// ORVTypes::pOracleOptimalSizeType
inline constexpr std::int32_t kOptimalNull = 0;
inline constexpr std::int32_t kOptimalSize = 1;

// ORVTypes::pTriggerFire
inline constexpr std::int32_t kFireAfter = 0;
inline constexpr std::int32_t kFireBefore = 1;
inline constexpr std::int32_t kFireInsteadOf = 4;

// ORVTypes::pType of a trigger: a mask of its DML events
inline constexpr std::int32_t kTriggerUpdate = 1;
inline constexpr std::int32_t kTriggerInsert = 2;
inline constexpr std::int32_t kTriggerDelete = 4;

// ORVTypes::pTriggerScope
inline constexpr std::int32_t kForEachRow = 1;

// ORVTypes::pTriggerDisabled
inline constexpr std::int32_t kTriggerIsEnabled = 0;
inline constexpr std::int32_t kTriggerIsDisabled = 1;

// ORVTypes::pType of a stored procedure or function
inline constexpr std::int32_t kStoredCode = 0;

// ORVTypes::pNullOption
inline constexpr std::int32_t kNull = 0;
inline constexpr std::int32_t kNotNull = 1;

// ORVTypes::pKeyGroupType
inline constexpr std::string_view kPrimaryKey = "PK";
inline constexpr std::string_view kAlternateKey = "AK";  // unique
inline constexpr std::string_view kForeignKey = "IF";
inline constexpr std::string_view kIndexEntry = "IE";  // a plain index

// ORVTypes::pType of a relationship
inline constexpr std::int32_t kIdentifying = 2;
inline constexpr std::int32_t kNonIdentifying = 7;
inline constexpr std::int32_t kViewReference = 16;  // from a view to what its FROM list names

// ORVTypes::pRelationshipNoNulls
inline constexpr std::int32_t kNullsAllowed = 100;
inline constexpr std::int32_t kNoNulls = 101;

// ORVTypes::pRelationshipParentDeleteRule and the other rules of a relationship
inline constexpr std::int32_t kNoRule = 0;
inline constexpr std::int32_t kDeleteCascade = 10005;
inline constexpr std::int32_t kDeleteSetNull = 10006;

// ORVTypes::pSelectType
inline constexpr std::int32_t kSelectAll = 1;
inline constexpr std::int32_t kSelectDistinct = 2;
inline constexpr std::int32_t kSelectUnique = 3;

// ORVTypes::pViewWithCheck
inline constexpr std::int32_t kViewCheckOption = 1;
inline constexpr std::int32_t kViewReadOnly = 2;

// ORVTypes::pUseIndex
inline constexpr std::int32_t kUsingIndex = 908;
inline constexpr std::int32_t kUsingNoIndex = 909;

// ORVTypes::pBuildClause
inline constexpr std::int32_t kBuildImmediate = 906;
inline constexpr std::int32_t kBuildDeferred = 907;

// ORVTypes::pQueryRewriteState
inline constexpr std::int32_t kRewriteEnabled = 920;
inline constexpr std::int32_t kRewriteDisabled = 921;

// ORVTypes::pRefreshState
inline constexpr std::int32_t kRefreshed = 910;
inline constexpr std::int32_t kNeverRefreshed = 911;

// ORVTypes::pRefreshType
inline constexpr std::int32_t kRefreshFast = 912;
inline constexpr std::int32_t kRefreshComplete = 913;
inline constexpr std::int32_t kRefreshForce = 914;

// ORVTypes::pRefreshOnWhat
inline constexpr std::int32_t kRefreshOnDemand = 915;
inline constexpr std::int32_t kRefreshOnCommit = 916;

// ORVTypes::pRefreshWithKey
inline constexpr std::int32_t kRefreshWithPrimaryKey = 917;
inline constexpr std::int32_t kRefreshWithRowId = 918;

// ORVTypes::pRefreshMasterRollbackSegState and pRefreshLocalRollbackSegState
inline constexpr std::int32_t kRollbackSegmentDefault = 902;
inline constexpr std::int32_t kRollbackSegmentNamed = 919;

// ORVTypes::pOracleUsingConstraintType
inline constexpr std::int32_t kConstraintsEnforced = 0;
inline constexpr std::int32_t kConstraintsTrusted = 1;

// ORVTypes::pOracleIndexPartitionType
inline constexpr std::int32_t kIndexPartitionGlobal = 0;
inline constexpr std::int32_t kIndexPartitionLocal = 1;

// ORVTypes::pOracleIndexGlobalPartitionType
inline constexpr std::int32_t kGlobalPartitionHash = 0;
inline constexpr std::int32_t kGlobalPartitionRange = 1;

// ORVTypes::pOracleIndexGlobalHashPartitionType
inline constexpr std::int32_t kGlobalHashListed = 0;
inline constexpr std::int32_t kGlobalHashByQuantity = 1;

// ORVTypes::pOracleTablespaceUsageType
inline constexpr std::int32_t kTablespaceUsageDefault = 0;

// ORVTypes::pType of a context
inline constexpr std::int32_t kContextInitializedExternally = 0;
inline constexpr std::int32_t kContextAccessedGlobally = 1;
inline constexpr std::int32_t kContextInitializedGlobally = 2;

// ORVTypes::pConnectionType
inline constexpr std::int32_t kConnectAsCurrentUser = 0;
inline constexpr std::int32_t kConnectAsNamedUser = 1;

// ORVTypes::pOraclePartitionType
inline constexpr std::int32_t kNotPartitioned = 0;
inline constexpr std::int32_t kRangePartitioning = 1;
inline constexpr std::int32_t kListPartitioning = 2;
inline constexpr std::int32_t kHashPartitioning = 3;
inline constexpr std::int32_t kCompositePartitioning = 4;

// ORVTypes::pOracleHashPartitionType
inline constexpr std::int32_t kHashPartitionsListed = 0;
inline constexpr std::int32_t kHashPartitionsByQuantity = 1;

// ORVTypes::pOracleCompositeSubpartitionType
inline constexpr std::int32_t kSubpartitionByList = 0;
inline constexpr std::int32_t kSubpartitionByHash = 1;

// ORVTypes::pHashSubpartitionType
inline constexpr std::int32_t kHashSubpartitionsByTemplate = 0;
inline constexpr std::int32_t kHashSubpartitionsByQuantity = 1;

// ORVTypes::pOracleTemplateSubpartitionType
inline constexpr std::int32_t kTemplateListed = 0;
inline constexpr std::int32_t kTemplateByQuantity = 1;

// ORVTypes::pOraclePartitionLevelSubpartitionType
inline constexpr std::int32_t kSubpartitionsByQuantity = 1;
inline constexpr std::int32_t kSubpartitionsListed = 2;

// Storage kinds: ORVTypes::pType of a physical storage item
inline constexpr std::int32_t kUnclassifiedStorage = 0;
inline constexpr std::int32_t kRegularStorage = 1;
inline constexpr std::int32_t kIndexStorage = 2;
inline constexpr std::int32_t kOverflowStorage = 3;

}  // namespace repora::codes
