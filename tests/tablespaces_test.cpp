#include "repora/database/tablespaces.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "repora/database/alter_tablespace.h"
#include "repora/database/file_specs.h"
#include "tests/run_fixture.h"

namespace {

using repora::test::Job;
using repora::test::Properties;

MOXActionSummaryItem* Add(REPProcessor& processor, MOXId type, char const* text) {
  REPName const name(text);
  MOXActionSummaryItem* item = nullptr;
  processor.AddItem(processor.GetRoot(), type, &name, item);
  return item;
}

MOXActionSummaryItem* AddTablespace(REPProcessor& processor, char const* name = "TS") {
  return Add(processor, ORVTypes::oOracleTablespace, name);
}

// The names of the files under an owner, in the order in which they were made.
std::string FilesOf(REPProcessor const& processor, MOXActionSummaryItem const& owner) {
  std::vector<MOXActionSummaryItem*> files;
  processor.FindSummaryChildrenByType(owner.Id(), ORVTypes::oOraclePhysicalFile, files);
  std::string names;
  for (auto const* file : files) names += "[" + std::string(file->Name()) + "]";
  return names;
}

REPFileSpec* File(std::vector<char const*> const& names) {
  auto* const file = new REPFileSpec;
  for (auto name = names.rbegin(); name != names.rend(); ++name) file->SetFilename(*name);
  return file;
}

REPNameList* Names(std::vector<char const*> const& texts) {
  auto* const names = new REPNameList;
  for (auto const* text : texts) names->AddTail(new REPName(text));
  return names;
}

TEST(FileSpecs, NamesStandInOrder) {
  REPFileSpec file;
  file.SetReuse(true);
  EXPECT_EQ(file.AsString(), " REUSE");
  file.SetFilename("c");
  file.SetFilename(nullptr);
  file.SetFilename("a");
  file.SetSizeClause("10m");
  ASSERT_EQ(file.GetNumFilenames(), 3);
  EXPECT_STREQ(file.GetFilename(2), "c");
  EXPECT_EQ(file.AsString(), "('a', '', 'c') SIZE 10M REUSE");
  EXPECT_THROW(file.GetFilename(3), std::invalid_argument);

  REPAutoExtendClause autoextend;
  autoextend.SetOff(true);
  file.SetAutoExtendClause(autoextend);
  REPFileSpec const copy(file);
  EXPECT_EQ(copy.AsString(), file.AsString()) << "a clause that is not present is not rendered";
  autoextend.SetClausePresent(true);
  file.SetAutoExtendClause(autoextend);
  EXPECT_EQ(file.AsString(), copy.AsString() + " AUTOEXTEND OFF");
}

TEST(FileSpecs, ListsPutParenthesesAroundTwo) {
  REPFileSpecList list;
  REPDataFileClause clause;
  EXPECT_EQ(list.AsString(true), "");
  EXPECT_EQ(clause.AsString(), "DATAFILE ");
  list.AddTail(File({"b"}));
  clause.AddFileSpec(File({"b"}));
  EXPECT_EQ(list.AsString(true), "'b'");
  EXPECT_EQ(clause.AsString(), "DATAFILE 'b'");
  list.AddHead(File({"a"}));
  clause.AddFileSpec(File({"a"}));
  clause.AddFileSpec(nullptr);
  EXPECT_EQ(list.AsString(true), "('a', 'b')");
  EXPECT_EQ(list.AsString(false), "'a', 'b'");
  EXPECT_EQ(clause.AsString(), "DATAFILE ('a', 'b')");
  EXPECT_EQ(clause.FilesAsString(), "('a', 'b')");
  EXPECT_EQ(clause.GetNumFileSpecs(), 2);
  EXPECT_STREQ(clause.GetFileSpec(0)->GetFilename(0), "a");
  EXPECT_THROW(list.GetFileSpec(-1), std::invalid_argument);
}

TEST(FileSpecs, ResultsOfFilesThatAreThere) {
  Job job;
  job.Run([](REPProcessor& processor) {
    auto* const owner = Add(processor, ORVTypes::oOracleDatabase, "DB");
    std::unique_ptr<REPFileSpec> const first(File({"a", "", "+D", "+D", "A", "b"}));
    EXPECT_EQ(first->Process(&processor, owner), REPProcessOK) << "the last name counts";
    EXPECT_EQ(FilesOf(processor, *owner), "[a][][+D][+D][b]");

    std::unique_ptr<REPFileSpec> const second(File({"c", "b", "+D", ""}));
    EXPECT_EQ(second->Process(&processor, owner), REPProcessDuplicate);

    REPFileSpecList list;
    REPDataFileClause clause;
    for (auto const* name : {"a", "d"}) list.AddTail(File({name}));
    for (auto const* name : {"e", "a"}) clause.AddFileSpec(File({name}));
    EXPECT_EQ(list.Process(&processor, owner), REPProcessDuplicate);
    EXPECT_EQ(clause.Process(&processor, owner), REPProcessOK);
    EXPECT_EQ(FilesOf(processor, *owner), "[a][][+D][+D][b][c][+D][][d][e]");

    for (auto* const item : {owner, static_cast<MOXActionSummaryItem*>(nullptr)}) {
      auto* const to = item ? nullptr : &processor;
      EXPECT_EQ(first->Process(to, item), REPProcessError);
      EXPECT_EQ(list.Process(to, item), REPProcessError);
      EXPECT_EQ(clause.Process(to, item), REPProcessError);
    }
    EXPECT_EQ(REPAutoExtendClause().Process(&processor, nullptr), REPProcessError);
    EXPECT_EQ(REPExtentMgmtClause().Process(&processor, nullptr), REPProcessError);
  });
  auto const warnings = job.window.Of(eRENotifyWarning);
  ASSERT_EQ(warnings.size(), 4U);
  EXPECT_EQ(warnings[0].message, "Datafile A already exists for Database DB.");
}

TEST(FileSpecs, SizesOfAutomaticExtension) {
  struct {
    REPSizeType_e type;
    std::string text, properties;
  } const cases[] = {
      {REPSizeType_e::None, "", ""},
      {REPSizeType_e::KeywordOnly, "", "pAutoExtendNextValue='' "},
      {REPSizeType_e::Null, " NEXT NULL MAXSIZE NULL", "pAutoExtendNextValue='NULL' "},
      {REPSizeType_e::Number, " NEXT 5 MAXSIZE 5",
       "pAutoExtendMaxSize='5' pAutoExtendNextValue='5' "},
      {REPSizeType_e::Terabytes, " NEXT 5T MAXSIZE 5T",
       "pAutoExtendMaxSize='5T' pAutoExtendNextValue='5T' "},
      {REPSizeType_e::Unlimited, " NEXT UNLIMITED MAXSIZE UNLIMITED",
       "pAutoExtendNextValue='UNLIMITED' pOracleMaxExtentType=0 "},
  };
  Job job;
  job.Run([&](REPProcessor& processor) {
    for (auto const& expected : cases) {
      REPSizeClause size("5");
      size.SetType(expected.type);
      REPAutoExtendClause clause;
      clause.SetSizeClause(size);
      clause.SetMaxSizeClause(size);
      EXPECT_EQ(clause.AsString(), "AUTOEXTEND ON" + expected.text);
      auto* const file =
          processor.CreateItem(processor.GetRoot(), ORVTypes::oOraclePhysicalFile, nullptr);
      clause.Process(&processor, file);
      EXPECT_EQ(Properties(*file), "") << "the clause is not present";
      clause.SetClausePresent(true);
      clause.Process(&processor, file);
      auto written = "pAutoExtend=true " + expected.properties;
      written.pop_back();
      EXPECT_EQ(Properties(*file), written);
    }
  });
}

TEST(Tablespaces, ExtentManagement) {
  struct {
    int extent;
    std::string clause, create, temporary, properties;
  } const cases[] = {
      {0, "", "", "", "pExtentSize='1M' pName='TS0'"},
      {1, " EXTENT MANAGEMENT DICTIONARY SIZE 1M", " EXTENT MANAGEMENT DICTIONARY",
       " EXTENT MANAGEMENT DICTIONARY", "pExtentManagementType=922 pExtentSize='1M' pName='TS1'"},
      {2, " EXTENT MANAGEMENT LOCAL SIZE 1M", " EXTENT MANAGEMENT LOCAL",
       " EXTENT MANAGEMENT LOCAL",
       "pExtentManagementType=923 pExtentSize='1M' pLocalExtentManagementType=903 pName='TS2'"},
      {4, " EXTENT MANAGEMENT LOCAL UNIFORM SIZE 1M", " EXTENT MANAGEMENT LOCAL UNIFORM SIZE 1M",
       " EXTENT MANAGEMENT LOCAL UNIFORM SIZE 1M",
       "pExtentManagementType=923 pExtentSize='1M' pLocalExtentManagementType=921 pName='TS4'"},
      {5, " EXTENT MANAGEMENT UNIFORM SIZE 1M", " EXTENT MANAGEMENT ", " UNIFORM SIZE 1M",
       "pExtentManagementType=923 pExtentSize='1M' pLocalExtentManagementType=921 pName='TS5'"},
      {6, "", "", "", "pExtentSize='1M' pName='TS6'"},
  };
  Job job;
  job.Run([&](REPProcessor& processor) {
    for (auto const& expected : cases) {
      auto const extent = static_cast<REPExtent_e>(expected.extent);
      REPExtentMgmtClause clause;
      clause.SetExtent(extent);
      clause.SetSize("1M");
      EXPECT_EQ(clause.AsString(), expected.clause);
      auto const name = "TS" + std::to_string(expected.extent);
      auto* const item = AddTablespace(processor, name.c_str());
      clause.Process(&processor, item);
      EXPECT_EQ(Properties(*item), expected.properties);

      REPCreateTablespace create;
      create.SetExtent(extent);
      create.SetExtentSize("1M");
      EXPECT_EQ(create.AsString(), "CREATE TABLESPACE " + expected.create + ";");
      REPCreateTemporaryTablespace temporary;
      temporary.SetExtent(extent);
      temporary.SetExtentSize("1M");
      EXPECT_EQ(temporary.AsString(), "CREATE TEMPORARY TABLESPACE " + expected.temporary + ";");
    }
  });
}

// Values that a statement has no words for are as good as none.
TEST(Tablespaces, ValuesOutsideTheirRange) {
  REPCreateTablespace create;
  REPCreateTemporaryTablespace temporary;
  REPAlterTablespace alter;
  create.SetTablespace(new REPName("C"));
  temporary.SetTablespace(new REPName("T"));
  alter.SetTablespace(new REPName("A"));
  create.SetOnOff(REPOnOff_e::OfflineNormal);
  create.SetLogging(REPLogging_e::ForceLogging);
  create.SetCompress(REPCompress_e::Compress);  // no storage to stand with
  create.SetTempPerm(static_cast<REPTempPerm_e>(3));
  create.SetRetention(static_cast<REPRetention_e>(-1));
  create.SetFileSize(static_cast<REPFileSize_e>(3));
  temporary.SetSegment(static_cast<REPSegment_e>(3));
  temporary.SetFlashback(static_cast<REPFlashback_e>(3));
  alter.SetOnOff(REPOnOff_e::DatafileOffline);
  alter.SetDataTempOnOff(REPOnOff_e::Offline);
  alter.SetBackup(static_cast<REPBackup_e>(3));
  alter.SetReadWrite(static_cast<REPReadWrite_e>(3));
  alter.SetCompress(static_cast<REPCompress_e>(3));
  alter.SetRenameToList(Names({"b"}));
  EXPECT_EQ(create.AsString(), "CREATE TABLESPACE C;");
  EXPECT_EQ(temporary.AsString(), "CREATE TEMPORARY TABLESPACE T;");
  EXPECT_EQ(alter.AsString(), "ALTER TABLESPACE A");
  Job job;
  job.Run([&](REPProcessor& processor) {
    EXPECT_EQ(create.Process(&processor), REPProcessOK);
    EXPECT_EQ(temporary.Process(&processor), REPProcessOK);
    auto* const altered = AddTablespace(processor, "A");
    EXPECT_EQ(alter.Process(&processor), REPProcessOK);
    auto const find = [&](REPName* name) {
      return Properties(
          *processor.FindItemPtr(processor.GetRoot(), ORVTypes::oOracleTablespace, name));
    };
    EXPECT_EQ(find(create.GetTablespace()), "pCompressType=919 pName='C' pTablespaceType=2");
    EXPECT_EQ(find(temporary.GetTablespace()), "pName='T' pTablespaceType=1");
    EXPECT_EQ(Properties(*altered), "pName='A'");
    EXPECT_EQ(create.Process(nullptr), REPProcessError);
    EXPECT_EQ(temporary.Process(nullptr), REPProcessError);
    EXPECT_EQ(alter.Process(nullptr), REPProcessError);
  });
}

TEST(Tablespaces, GroupNamesThatStandForNone) {
  for (auto const* text : {"", "''"}) {
    REPCreateTemporaryTablespace create;
    REPAlterTablespace alter;
    create.SetTablespace(new REPName("TS"));
    alter.SetTablespace(new REPName("TS"));
    create.SetGroupName(new REPName(text));
    alter.SetGroupName(new REPName(text));
    EXPECT_EQ(create.AsString(), "CREATE TEMPORARY TABLESPACE TS TABLESPACE GROUP '';");
    EXPECT_EQ(alter.AsString(), "ALTER TABLESPACE TS TABLESPACE GROUP ''");
    Job job;
    job.Run([&](REPProcessor& processor) {
      create.Process(&processor);
      auto* const tablespace = processor.FindItemPtr(
          processor.GetRoot(), ORVTypes::oOracleTablespace, create.GetTablespace());
      auto const without_group = Properties(*tablespace);
      EXPECT_EQ(without_group, "pName='TS' pTablespaceType=1");
      tablespace->SetProperty(ORVTypes::pTablespaceGroupRef, QELValue(QELShortId(1)));
      alter.Process(&processor);
      EXPECT_EQ(Properties(*tablespace), without_group);
    });
  }
}

TEST(Tablespaces, RefusedRenamesOfFilesDecideTheResult) {
  Job job;
  job.Run([](REPProcessor& processor) {
    auto* const tablespace = AddTablespace(processor);
    std::unique_ptr<REPFileSpec>(File({"a.dbf", "b.dbf", "c.dbf"}))
        ->Process(&processor, tablespace);
    REPAlterTablespace alter;
    alter.SetTablespace(new REPName("TS"));
    alter.SetRenameFromList(Names({"a.dbf", "b.dbf", "nowhere", "c.dbf"}));
    alter.SetRenameToList(Names({"b.dbf", "x.dbf", "y.dbf"}));
    EXPECT_EQ(alter.AsString(),
              "ALTER TABLESPACE TS RENAME DATA FILE a.dbf, b.dbf, nowhere, c.dbf TO b.dbf, x.dbf, "
              "y.dbf");
    EXPECT_EQ(alter.Process(&processor), REPProcessDuplicate);
    EXPECT_EQ(FilesOf(processor, *tablespace), "[a.dbf][x.dbf][c.dbf]");
  });
  auto const warnings = job.window.Of(eRENotifyWarning);
  ASSERT_EQ(warnings.size(), 2U);
  EXPECT_EQ(warnings[0].code, "REP-13");
  EXPECT_EQ(warnings[1].code, "REP-12");
}

// A name that something refers to, but that no statement made, is taken as well.
TEST(Tablespaces, RenamingToAPlaceholderIsRefused) {
  Job job;
  job.Run([](REPProcessor& processor) {
    auto* const tablespace = AddTablespace(processor);
    REPAlterTablespace alter;
    alter.SetTablespace(new REPName("TS"));
    alter.SetRename(new REPName("WANTED"));
    alter.SetReadWrite(REPReadWrite_e::ReadOnly);
    processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleTablespace, alter.GetRename());
    EXPECT_EQ(alter.Process(&processor), REPProcessDuplicate);
    EXPECT_EQ(Properties(*tablespace), "pName='TS'");
  });
}

}  // namespace
