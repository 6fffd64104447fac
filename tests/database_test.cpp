#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "repora/database/alter_database.h"
#include "repora/database/control_files.h"
#include "repora/database/create_database.h"
#include "tests/run_fixture.h"

namespace {

using repora::test::Job;
using repora::test::Properties;

REPFileSpec* File(char const* name) {
  auto* const file = new REPFileSpec;
  file->SetFilename(name);
  return file;
}

TEST(Database, TimeZonesAndUndoTablespacesAsValues) {
  REPTimeZoneClause zone;
  zone.SetTimeZone("CET");
  EXPECT_EQ(zone.AsString(), "") << "no kind";
  zone.SetKind(REPTimeZone_e::Region);
  EXPECT_EQ(zone.AsString(), "CET");
  zone.SetKind(REPTimeZone_e::Offset);
  zone.SetHour(12);
  EXPECT_EQ(zone.AsString(), "+12:0");
  zone.SetKind(static_cast<REPTimeZone_e>(3));
  EXPECT_EQ(zone.AsString(), "");

  REPUndoTableSpaceClause undo;
  undo.SetFileSize(REPFileSize_e::BigFile);
  undo.SetDataFiles(new REPDataFileClause);
  undo.GetDataFiles()->AddFileSpec(File("u"));
  EXPECT_EQ(undo.AsString(), "") << "no name";
  undo.SetTablespace("UNDO");
  auto const copy = std::make_unique<REPUndoTableSpaceClause>(undo);
  undo.GetDataFiles()->AddFileSpec(File("t"));
  undo.SetFileSize(static_cast<REPFileSize_e>(3));
  EXPECT_EQ(undo.AsString(), " UNDO TABLESPACE UNDO DATAFILE ('t', 'u')");
  EXPECT_EQ(copy->AsString(), " BIGFILE UNDO TABLESPACE UNDO DATAFILE 'u'");
}

TEST(Database, LogFilesOfEveryShape) {
  REPLogFileClause clause;
  clause.AddLogFileSpec();
  auto* const second = clause.AddLogFileSpec();
  second->SetGroup("007 and more");
  second->SetFileSpec(File("b"));
  clause.AddLogFileSpec()->SetGroup("-3");
  EXPECT_EQ(clause.AsString(), "LOGFILE , GROUP 7 'b', ");
  EXPECT_EQ(clause.GetLogFileSpec(0)->GetGroup(), -1);

  REPRedoLogFileSpec redo;
  redo.SetGroup(nullptr);
  redo.SetReuse(true);
  redo.AddFilename("a");
  redo.AddFilename("b");
  EXPECT_EQ(redo.AsString(), "GROUP 0 ('a', 'b') REUSE");
  REPLogFileDesc const group;
  EXPECT_EQ(group.AsString(), "");

  Job job;
  job.Run([&](REPProcessor& processor) {
    auto* const owner =
        processor.CreateItem(processor.GetRoot(), ORVTypes::oOracleDatabase, nullptr);
    EXPECT_EQ(clause.Process(&processor, owner), REPProcessOK);
    EXPECT_EQ(redo.Process(&processor, owner), REPProcessOK);
    std::vector<MOXActionSummaryItem*> files;
    processor.FindSummaryChildrenByType(owner->Id(), ORVTypes::oOracleLogFile, files);
    std::string all;
    for (auto const* file : files) all += "[" + Properties(*file) + "]";
    EXPECT_EQ(all,
              "[pFileNames= pOracleReuseFile=false]"
              "[pFileNames=b pGroupId=7 pOracleReuseFile=false]"
              "[pFileNames= pOracleReuseFile=false]"
              "[pFileNames=a, b pGroupId=0 pOracleReuseFile=true]");
    EXPECT_EQ(clause.Process(&processor, nullptr), REPProcessError);
    EXPECT_EQ(redo.Process(nullptr, owner), REPProcessError);
    EXPECT_EQ(REPUndoTableSpaceClause().Process(&processor, nullptr), REPProcessError);
  });
}

// Whatever the operands, a clause renders and only those that the model holds raise no message.
TEST(Database, EveryClauseOfAlterWithoutOperands) {
  Job job;
  job.Run([&](REPProcessor& processor) {
    for (int type = -1; type <= 62; ++type) {
      REPAlterDatabase alter;
      alter.SetAlterDBType(static_cast<REPAlterDBType_e>(type));
      EXPECT_EQ(alter.Process(&processor), REPProcessOK) << type;
      bool const is_clause = type >= 1 && type <= 61;
      EXPECT_EQ(alter.AsString() == "ALTER DATABASE",
                !is_clause || alter.GetAlterDBType() == REPAlterDBType_e::StandbyDatabase ||
                    alter.GetAlterDBType() == REPAlterDBType_e::Redo)
          << type << alter.AsString();
    }
    REPName const name(repora::kDefaultDatabase);
    auto const* const database =
        processor.FindItemPtr(processor.GetRoot(), ORVTypes::oOracleDatabase, &name);
    ASSERT_TRUE(database);
    EXPECT_EQ(Properties(*database), "pForceLogging=false pName='DB_NAME' pOracleArchiveLog=false");
  });
  auto const warnings = job.window.Of(eRENotifyWarning);
  EXPECT_EQ(warnings.size(), 51U) << "ten clauses have an effect or need none";
  EXPECT_EQ(warnings.at(0).message, "Unsupported Statement - ALTER DATABASE MOUNT");
}

TEST(Database, OperandsOutsideTheirRange) {
  REPAlterDatabase alter;
  alter.SetDBMount(static_cast<REPDBMount_e>(3));
  alter.SetDBOpenMode(static_cast<REPDBOpenMode_e>(-1));
  alter.SetDBLogs(static_cast<REPDBLogs_e>(3));
  alter.SetDBRecover(static_cast<REPDBRecover_e>(99));
  alter.SetStandby(static_cast<REPDBStandby_e>(99));
  alter.SetRedo(static_cast<REPDBRedo_e>(99));
  alter.SetBackupTrace(true);
  alter.SetBackupResetlogs(static_cast<REPDBResetlogs_e>(3));
  struct {
    REPAlterDBType_e type;
    char const* text;
  } const cases[] = {
      {REPAlterDBType_e::Mount, "ALTER DATABASE MOUNT"},
      {REPAlterDBType_e::Open, "ALTER DATABASE OPEN"},
      {REPAlterDBType_e::Recover, "ALTER DATABASE RECOVER"},
      {REPAlterDBType_e::StandbyDatabase, "ALTER DATABASE"},
      {REPAlterDBType_e::Redo, "ALTER DATABASE"},
      {REPAlterDBType_e::BackupControlfile, "ALTER DATABASE BACKUP CONTROLFILE TO TRACE"}};
  for (auto const& expected : cases) {
    alter.SetAlterDBType(expected.type);
    EXPECT_EQ(alter.AsString(), expected.text);
  }
  alter.SetAlterDBType(REPAlterDBType_e::RenameFile);
  alter.SetRenameFilename("old");
  alter.SetRenameFilename("new");
  alter.AddRenameFilename("12");
  EXPECT_EQ(alter.AsString(), "ALTER DATABASE RENAME FILE TO 'new', 12");
}

TEST(Database, ObjectsOfAnEarlierRunAreAltered) {
  Job job;
  job.Run([](REPProcessor& processor) {
    REPCreateDatabase create;
    create.SetDatabase(new REPName("Sales.World"));
    create.SetTempTablespace("temp");
    EXPECT_EQ(create.Process(&processor), REPProcessOK);
  });
  job.Run([](REPProcessor& processor) {
    REPAlterDatabase alter;
    alter.SetDatabaseName("SALES.WORLD");
    alter.SetAlterDBType(REPAlterDBType_e::DefaultTempTablespace);
    alter.SetTablespaceName("TEMP");
    EXPECT_EQ(alter.Process(&processor), REPProcessOK);
    REPCreateDatabase again;
    again.SetDatabase(new REPName("sales.world"));
    EXPECT_EQ(again.Process(&processor), REPProcessDuplicate);
    EXPECT_EQ(processor.FindSummaryItemPtr(processor.GetRoot(), ORVTypes::oOracleTablespace),
              repora::TablespaceOf(&processor, "Temp"));
  });
  EXPECT_TRUE(job.window.Of(eRENotifyWarning).empty());
}

TEST(Database, NothingIsDoneWithoutAProcessor) {
  EXPECT_EQ(REPCreateDatabase().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPAlterDatabase().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreatePFile().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateSPFile().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateControlfile().Process(nullptr), REPProcessUnsupported);
  REPProcessor idle;  // outside a run
  EXPECT_EQ(REPCreateDatabase().Process(&idle), REPProcessError);
  EXPECT_EQ(REPAlterDatabase().Process(&idle), REPProcessError);
  EXPECT_EQ(REPCreateControlfile().AsString(), "CREATE CONTROLFILE DATABASE");
}

}  // namespace
