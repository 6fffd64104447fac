// The program as its users run it: exit status, output, messages, files and signals.
#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/cli_run.h"

namespace repora::test {
namespace {

using Json = nlohmann::json;

constexpr int kInterrupted = 130;

class Cli : public testing::Test {
 protected:
  ProgramResult Run(std::vector<std::string> arguments, ProgramInput const& input = {}) {
    return RunProgram(folder.Path(), std::move(arguments), input);
  }
  // Imports one script under the name s.sql.
  ProgramResult Import(std::string const& script, std::vector<std::string> options = {}) {
    folder.Write("s.sql", script);
    options.insert(options.begin(), {"import", "s.sql"});
    return Run(std::move(options));
  }
  TemporaryFolder folder;
};

bool Contains(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(Cli, ShowsHelpAndVersion) {
  for (auto const& arguments : std::vector<std::vector<std::string>>{
           {"--help"}, {"import", "--help"}, {"render", "--help"}, {"--version"}}) {
    auto const result = Run(arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Contains(result.out, "repora ")) << result.out;
    EXPECT_EQ(result.err, "");
  }
  EXPECT_TRUE(Contains(Run({"import", "--help"}).out, "--ignore-duplicate-views"));
}

TEST_F(Cli, WrongUsageIsOneLineAndStatus2) {
  folder.Write("s.sql", "");
  for (auto const& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"frobnicate"},
                                             {"import"},
                                             {"import", "s.sql", "--frobnicate"},
                                             {"import", "s.sql", "--model-type", "conceptual"},
                                             {"import", "s.sql", "--physical-case", "mixed"},
                                             {"import", "s.sql", "--define", "NAME"},
                                             {"import", "s.sql", "--define", "=x"},
                                             {"import", "s.sql", "--json"},
                                             {"import", "s.sql", "--json", "-", "--summary", "-"},
                                             {"render", "s.sql", "--json", "x.json"}}) {
    auto const result = Run(arguments);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
    EXPECT_TRUE(result.err.starts_with("repora: ")) << result.err;
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"s.sql"});
}

struct StatusCase {
  char const* script;
  int status;
  int strict_status;
};

TEST_F(Cli, ExitStatusTellsWhetherAllStatementsAreDone) {
  for (auto const& [script, status, strict_status] :
       std::vector<StatusCase>{{"CREATE SEQUENCE S;", 0, 0},
                               {"", 0, 1},                                       // note
                               {"CREATE TABLE T (A NUMBER, A NUMBER);", 0, 1},   // warning
                               {"CREATE SEQUENCE S; CREATE SEQUENCE S;", 0, 1},  // duplicate
                               {"CREATE SEQUENCE S KEEP;", 0, 1},                // note
                               {"COMMIT;", 0, 1},                    // outside the model
                               {"ALTER SEQUENCE S NOCACHE;", 1, 1},  // failed
                               {"CREATE TABLE T OF X;", 1, 1},       // unsupported
                               {"CREATE SEQUENCE;", 1, 1},           // unreadable
                               {"CREATE TABLE T (A VARCHAR2(5) DEFAULT 'x", 1, 1}}) {
    EXPECT_EQ(Import(script).status, status) << script;
    EXPECT_EQ(Import(script, {"--strict"}).status, strict_status) << script;
  }
}

TEST_F(Cli, MessagesLookLikeACompilers) {
  auto const result = Import(
      "CREATE SEQUENCE S1;\n"
      "  CREATE SEQUENCE S1;\n"
      "ALTER SEQUENCE S9 NOCACHE;\n"
      "CREATE TABLE T (A NUMBER, A NUMBER) CLUSTER C (Z);\n"
      "\tCREATE SEQUENCE größe START AT 5;\n"
      "CREATE SEQUENCE S2 KEEP;\n"
      "CREATE SEQUENCE \"茶😀e\xCC\x81\"\t, 5;\n");
  EXPECT_EQ(result.err,
            "s.sql:2:3: duplicate REP-1: Duplicate Object Not Created - CREATE SEQUENCE S1;\n"
            "s.sql:3:1: warning REP-10: Alter Sequence - S9 Failed.  Unable to locate S9 in the "
            "model.\n"
            "s.sql:3:1: error: Error in ALTER SEQUENCE S9 NOCACHE;.\n"
            "s.sql:4:1: warning REP-69: Create / Alter  Table - T failed.  Unable to create "
            "duplicate column A.\n"
            "s.sql:4:1: semantic error REP-6: Cluster Column - Z not found in Table - T.\n"
            "s.sql:4:1: error: Error in CREATE TABLE T( A NUMBER, A NUMBER) CLUSTER C(Z);.\n"
            "s.sql:5:30: syntax error: expected WITH, found 'AT'\n"
            "   CREATE SEQUENCE größe START AT 5;\n"
            "                               ^\n"
            "s.sql:6:20: note: clause KEEP is skipped\n"
            // Tea and the face are two places wide, the accent none.
            "s.sql:7:24: syntax error: expected an option of the sequence, found ','\n"
            "  CREATE SEQUENCE \"茶😀e\xCC\x81\" , 5;\n"
            "                          ^\n");
  EXPECT_EQ(result.out,
            "Scripts\n"
            "  s.sql  5 read, 2 ok, 1 duplicate, 2 failed, 2 unread; 12 clauses: 2 held, 10 left\n"
            "Objects created\n"
            "  Table     1\n"
            "  Column    1\n"
            "  Sequence  2\n"
            "  Cluster   1  1 placeholder\n"
            "Messages\n"
            "  2 syntax errors, 1 semantic error, 2 warnings, 1 note\n"
            "Statements\n"
            "  5 read, 2 ok, 1 duplicate, 2 failed, 2 unread; 12 clauses: 2 held, 10 left\n");
}

TEST_F(Cli, LongTextsAreCutOnTheTerminalAndWholeInTheJson) {
  std::string columns = "A NUMBER";
  for (int i = 0; i < 100; ++i) columns += ", C" + std::to_string(i) + " NUMBER";
  auto const result = Import(
      "CREATE TABLE T (" + columns + ") CLUSTER C (Z); CREATE TABLE U (" + columns + " BAD);",
      {"--json", "out.json"});
  std::istringstream lines(result.err);
  for (std::string line; std::getline(lines, line);) EXPECT_LT(line.size(), 240U);
  EXPECT_TRUE(Contains(result.err, "s.sql:1:1: error: Error in CREATE TABLE T( A NUMBER, C0 "));
  EXPECT_TRUE(Contains(result.err, "...\n"));
  EXPECT_TRUE(Contains(result.err, "..., C97 NUMBER") || Contains(result.err, "C99 NUMBER BAD);\n"))
      << result.err;
  auto const json = Json::parse(folder.Read("out.json"));
  auto const text = json["messages"][1]["text"].get<std::string>();
  EXPECT_TRUE(text.ends_with("C99 NUMBER) CLUSTER C(Z);.")) << text;
}

TEST_F(Cli, ControlCharactersOfAScriptDoNotReachTheTerminal) {
  auto const result = Import(
      "CREATE SEQUENCE \"a\x1b[31m\" \x1b]0;x\x07;\nCREATE SEQUENCE \"\x1b[2J\";"
      "CREATE SEQUENCE \"\x1b[2J\";");
  EXPECT_EQ(result.status, 1);
  EXPECT_FALSE(Contains(result.err, "\x1b"));
  EXPECT_FALSE(Contains(result.err, "\x07"));
}

TEST_F(Cli, ColoursOnlyWhenAskedTo) {
  folder.Write("s.sql", "CREATE SEQUENCE;");
  EXPECT_FALSE(Contains(Run({"import", "s.sql"}).err, "\x1b["));
  auto const always =
      Run({"import", "s.sql", "--color", "always"}, {.environment = {"NO_COLOR=1"}});
  EXPECT_TRUE(Contains(always.err, "\x1b[1;31msyntax error\x1b[0m"));
  EXPECT_TRUE(Contains(always.out, "\x1b[1mStatements\x1b[0m"));
}

TEST_F(Cli, JsonHoldsStatementsMessagesAndObjects) {
  auto const result = Import(
      "CREATE SEQUENCE S;\nCREATE SEQUENCE S;\nALTER SEQUENCE X NOCACHE;\nCREATE SEQUENCE;\n"
      "CREATE TABLE O.T (A NUMBER) TABLESPACE USERS;\nCOMMIT;\nCREATE TABLE Q OF R;\n",
      {"--json", "out.json"});
  EXPECT_EQ(result.status, 1);
  auto const json = Json::parse(folder.Read("out.json"));
  EXPECT_EQ(json["statements"], Json::parse(R"({"read": 5, "ok": 2, "duplicate": 1,
      "unsupported": 1, "error": 1, "unread": 1, "outside": 1})"));

  std::vector<std::string> kinds;
  for (auto const& message : json["messages"]) {
    EXPECT_EQ(message["file"], "s.sql");
    EXPECT_FALSE(message["text"].get<std::string>().empty());
    kinds.push_back(message["kind"].get<std::string>() + "/" + message["code"].get<std::string>() +
                    "/" + std::to_string(message["line"].get<int>()) + "/" +
                    std::to_string(message["statement"].get<int>()));
  }
  EXPECT_EQ(kinds, (std::vector<std::string>{"duplicate/REP-1/2/2", "warning/REP-10/3/3",
                                             "error/--------->/3/3", "syntax//4/0", "note//6/0",
                                             "unsupported/REP-2/7/5", "note//7/5"}));

  std::map<std::string, Json> created;
  for (auto const& object : json["objects"])
    if (object["origin"] == "created") created[object["type"]] = object;
  EXPECT_EQ(json["objects"][0]["type"], "oModel");
  EXPECT_EQ(json["objects"][0]["origin"], "loaded");
  ASSERT_EQ(created.size(), 5U);
  auto const& storage = created["oOraclePhysicalStorage"];
  EXPECT_EQ(created["oEntity"]["properties"]["pOracleRegularStorageRef"]["ref"], storage["id"]);
  EXPECT_EQ(storage["properties"]["pOracleTablespaceRef"]["ref"],
            created["oOracleTablespace"]["id"]);
  EXPECT_EQ(created["oAttribute"]["owner"], created["oEntity"]["id"]);
  EXPECT_EQ(created["oEntity"]["properties"]["pDBOwner"], "O");
}

// One statement of each fate, one that fails as a whole, and one that is not for the model.
constexpr char const* kLedgerScript =
    "CREATE TABLE T (\n"
    "  A NUMBER DEFAULT 1 NOT NULL,\n"
    "  B DATE COLLATE X) ROWDEPENDENCIES;\n"
    "ALTER SEQUENCE MISSING NOCACHE;\n"
    "ALTER TABLE T ENABLE ALL TRIGGERS;\n"
    "INSERT INTO T VALUES (1);\n";

TEST_F(Cli, LedgerIsATableByClause) {
  auto const result = Import(kLedgerScript, {"--ledger", "--quiet"});
  EXPECT_EQ(result.out,
            "Ledger\n"
            "                                    held  as text  rendered only  left\n"
            "  ALTER SEQUENCE                       -        -              -     1  first left at "
            "s.sql:4:1\n"
            "    NOCACHE                            -        -              -     1  first left at "
            "s.sql:4:24\n"
            "  ALTER TABLE                          -        -              1     -\n"
            "    ENABLE                             -        -              1     -\n"
            "  CREATE TABLE                         1        -              -     -\n"
            "    COLLATE                            -        -              -     1  first left at "
            "s.sql:3:10\n"
            "    DEFAULT                            -        1              -     -\n"
            "    NOT NULL                           1        -              -     -\n"
            "    ROWDEPENDENCIES                    1        -              -     -\n"
            "    column                             2        -              -     -\n"
            "  INSERT                               -        -              -     1  first left at "
            "s.sql:6:1\n"
            "  all clauses, statements included     5        1              2     4\n"
            "  all words                           12        2              6    14\n");
  EXPECT_EQ(Import("CREATE SEQUENCE S;", {"--ledger", "--json", "-"}).out.front(), '{');
}

TEST_F(Cli, LedgerOfTheJsonHoldsEveryClauseWithItsPlace) {
  auto const ledger = Json::parse(Import(kLedgerScript, {"--json", "-", "--quiet"}).out)["ledger"];
  EXPECT_EQ(ledger["clauses"], Json::parse(R"({"held":5,"text":1,"rendered":2,"left":4})"));
  EXPECT_EQ(ledger["scripts"][0]["statements"]["outside"], 1);
  EXPECT_EQ(ledger["statements"].size(), 4U);
  EXPECT_EQ(
      ledger["statements"][1],
      Json::parse(
          R"({"statement":"ALTER SEQUENCE","result":"error","file":"s.sql","line":4,"column":1,)"
          R"("clauses":[{"clause":"","fate":"left","line":4,"column":1},)"
          R"({"clause":"NOCACHE","fate":"left","line":4,"column":24}]})"));
  auto const& table = ledger["table"];
  auto const collate = std::find_if(table.begin(), table.end(),
                                    [](Json const& row) { return row["clause"] == "COLLATE"; });
  ASSERT_NE(collate, table.end());
  EXPECT_EQ(*collate,
            Json::parse(
                R"({"statement":"CREATE TABLE","clause":"COLLATE","held":0,"text":0,"rendered":0,)"
                R"("left":1,"first":{"file":"s.sql","line":3,"column":10},)"
                R"("first_left":{"file":"s.sql","line":3,"column":10}})"));
}

TEST_F(Cli, JsonOnStandardOutputStandsAlone) {
  auto const result = Import("CREATE SEQUENCE S;", {"--json", "-"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Json::parse(result.out)["statements"]["ok"], 1);
  EXPECT_TRUE(Contains(result.err, "Sequence  1\n"));
  auto const quiet = Import("CREATE SEQUENCE S;", {"--json", "-", "--quiet"});
  EXPECT_TRUE(Json::accept(quiet.out));
  EXPECT_EQ(quiet.err, "");
}

TEST_F(Cli, QuietKeepsTheMessagesOnly) {
  auto const result = Import("CREATE SEQUENCE S; CREATE SEQUENCE S;", {"--quiet"});
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(Contains(result.err, "duplicate REP-1"));
}

TEST_F(Cli, SettingsReachTheModel) {
  Import("CREATE TABLE &name (item_id NUMBER);",
         {"--logical-case", "mixed", "--physical-case", "lower", "--model-type", "logical",
          "--define", "name=ORDER_ITEM", "--json", "a.json"});
  auto const json = Json::parse(folder.Read("a.json"));
  EXPECT_EQ(json["objects"][0]["properties"]["pType"], 1);
  for (auto const& object : json["objects"])
    if (object["type"] == "oEntity") {
      EXPECT_EQ(object["name"], "Order Item");
      EXPECT_EQ(object["properties"]["pPhysicalName"], "order_item");
    }
  EXPECT_TRUE(Contains(folder.Read("a.json"), "Order Item"));
}

TEST_F(Cli, SummaryFileHoldsTheObjects) {
  auto const result = Import("CREATE SEQUENCE ORDER_SEQ;", {"--summary", "run.txt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(Contains(folder.Read("run.txt"), "ORDER_SEQ"));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"run.txt", "s.sql"}));
}

// Each password holds SECRET, and nothing else does.
constexpr char const* kScriptOfPasswords =
    "CREATE USER a IDENTIFIED BY SECRET1 ACCOUNT LOCK;\n"
    "CREATE USER a IDENTIFIED BY SECRET2;\n"
    "CREATE USER b IDENTIFIED BY VALUES 'SECRET3' PROFILE A;\n"
    "CREATE ROLE r IDENTIFIED BY \"SECRET4\";\n"
    "CREATE DATABASE LINK l CONNECT TO u IDENTIFIED BY SECRET5\n"
    "  AUTHENTICATED BY v IDENTIFIED BY \"a SECRET6\" USING 'DB';\n"
    "CREATE DATABASE LINK l CONNECT TO u IDENTIFIED BY SECRET7;\n"
    "CREATE DATABASE d USER SYS IDENTIFIED BY SECRET8 USER SYSTEM IDENTIFIED BY SECRET9;\n";

TEST_F(Cli, RedactLeavesNoPasswordInAnyOutput) {
  folder.Write("s.sql", kScriptOfPasswords);
  auto const output = [&](std::vector<std::string> options) {
    for (auto const* const name : {"out.json", "out.txt"}) folder.Write(name, "");
    auto const result = Run(std::move(options));
    EXPECT_EQ(result.status, 0) << result.err;
    return result.out + result.err + folder.Read("out.json") + folder.Read("out.txt");
  };
  std::vector<std::string> const import = {"import",   "s.sql",     "--json",
                                           "out.json", "--summary", "out.txt"};
  std::vector<std::string> const render = {"render", "s.sql"};
  auto const redacted = [](std::vector<std::string> options) {
    options.emplace_back("--redact");
    return options;
  };

  auto const shown = output(import);
  for (auto const* const secret : {"SECRET1", "SECRET2", "SECRET3", "SECRET4", "SECRET7"})
    EXPECT_TRUE(Contains(shown, secret)) << secret;
  EXPECT_FALSE(Contains(shown, "SECRET5")) << "a link's password is no property of it";
  auto const hidden = output(redacted(import));
  EXPECT_FALSE(Contains(hidden, "SECRET")) << hidden;
  auto const json = Json::parse(folder.Read("out.json"));
  std::vector<std::string> codes;
  for (auto const& object : json["objects"])
    if (object["type"] == "oScriptTemplate") codes.push_back(object["properties"]["pTemplateCode"]);
  EXPECT_EQ(codes, (std::vector<std::string>{"CREATE USER a IDENTIFIED BY **** ACCOUNT LOCK ",
                                             "CREATE USER b IDENTIFIED BY **** PROFILE A",
                                             "CREATE ROLE r IDENTIFIED BY ****;"}));
  EXPECT_TRUE(Contains(hidden,
                       "Duplicate Object Not Created - CREATE DATABASE LINK l CONNECT TO u "
                       "IDENTIFIED BY ****\n"))
      << hidden;

  EXPECT_TRUE(Contains(output(render), "SECRET6"));
  EXPECT_EQ(output(redacted(render)),
            "CREATE USER a IDENTIFIED BY **** ACCOUNT LOCK \n/\n"
            "CREATE USER a IDENTIFIED BY ****\n/\n"
            "CREATE USER b IDENTIFIED BY **** PROFILE A\n/\n"
            "CREATE ROLE r IDENTIFIED BY ****;\n/\n"
            "CREATE DATABASE LINK l CONNECT TO u IDENTIFIED BY **** AUTHENTICATED BY v IDENTIFIED "
            "BY **** USING 'DB'\n/\n"
            "CREATE DATABASE LINK l CONNECT TO u IDENTIFIED BY ****\n/\n"
            "CREATE DATABASE d USER SYS IDENTIFIED BY **** USER SYSTEM IDENTIFIED BY ****;\n/\n");
}

// What could not be read is no rendered text: it shows no password with and without --redact.
TEST_F(Cli, SyntaxErrorsShowNoPassword) {
  for (std::string const script : {
           "CREATE USER a IDENTIFIED SECRET;",
           "CREATE USER a PASSWORD SECRET;",
           "CREATE USER a IDENTIFIED BY x@SECRET;",
           "CREATE USER a IDENTIFIED BY x SECRET;",
           "CREATE USER a IDENTIFIED BY \"SECRET;",
           "CREATE USER a IDENTIFIED BY 'SECRET;",
           "CREATE USER a IDENTIFIED BY x /* SECRET",
           "CREATE USER a IDENTIFIED BY \"x&SECRET\";",
           "CREATE USR a IDENTIFIED BY SECRET;",
           "CREATE ROLE r SECRET;",
           "CREATE DATABASE LINK l CONNECT TO u IDENTIFIED 'SECRET';",
           "CREATE DATABASE LINK l CONNECT u/SECRET;",
           "CREATE SEQUENCE s\nCREATE USER a IDENTIFIED BY SECRET;",
           "ALTER USER a IDENTIFIED BY x REPLACE SECRET;",
           "ALTER USER a IDENTIFIED BY 'SECRET",
           "ALTER ROLE r IDENTIFIED BY SECRET;",
           "SET ROLE r IDENTIFIED BY 'SECRET",
           "GRANT CONNECT TO a IDENTIFIED BY SECRET;",
           // In the line of a fault
           "CREATE USER a IDENTIFIED BY SECRET; CREATE SEQUENCE;",
           "CREATE USER a IDENTIFIED BY\n\"SECRET\"; CREATE SEQUENCE;",
           "CREATE SEQUENCE; CREATE USER a IDENTIFIED BY SECRET;",
           "COMMENT ON TABLE t IS 'a'b'; CREATE USER a IDENTIFIED BY SECRET;",
           "CREATE SEQUENCE; CONNECT a/SECRET",
       }) {
    auto const result = Import(script + "\n", {"--quiet", "--json", "out.json"});
    EXPECT_TRUE(Contains(result.err, "s.sql:") || Contains(script, "&")) << script;
    auto const json = Json::parse(folder.Read("out.json"));
    EXPECT_FALSE(Contains(result.err + json["messages"].dump(), "SECRET")) << result.err;
  }
  auto const err = Import("CREATE USER a IDENTIFIED BY x QUOTA 1K IN ts;\nCREATE SEQUENCE;\n").err;
  EXPECT_TRUE(
      err.starts_with("s.sql:1:40: syntax error: expected ON\n"
                      "s.sql:2:16: syntax error: expected a name, found the end of the "
                      "statement\n  CREATE SEQUENCE;\n"))
      << err;
}

TEST_F(Cli, RenderPrintsEveryStatementBeforeASlash) {
  folder.Write("s.sql",
               "create sequence s1 cache 5;\nalter view v read only;\n"
               "create table t (a number) pctfree 5;\n");
  auto const result = Run({"render", "s.sql"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out,
            "CREATE SEQUENCE s1 Cache 5;\n/\nCREATE TABLE t( a NUMBER) PCTFREE 5;\n/\n");
  EXPECT_TRUE(Contains(result.err, "s.sql:2:14: note: clause READ ONLY is skipped\n"));
  EXPECT_EQ(Run({"render", "-"}, {.in = "create sequence s1;"}).out, "CREATE SEQUENCE s1;\n/\n");
}

TEST_F(Cli, ReadsStandardInput) {
  auto const result = Run({"import", "-"}, {.in = "CREATE SEQUENCE S;\nCREATE SEQUENCE S START;"});
  EXPECT_TRUE(Contains(result.err, "<stdin>:2:24: syntax error: ")) << result.err;
  EXPECT_TRUE(Contains(result.out, "Sequence  1\n"));
}

TEST_F(Cli, SeveralScriptsAreOneRun) {
  folder.Write("a.sql", "CREATE SEQUENCE S;\nDEFINE n = 5\n");
  folder.Write("b.sql", "CREATE SEQUENCE S;\nCREATE SEQUENCE T INCREMENT BY &n;\n");
  auto const result = Run({"import", "a.sql", "b.sql", "--json", "o.json"});
  EXPECT_TRUE(result.err.starts_with("b.sql:1:1: duplicate")) << result.err;
  EXPECT_TRUE(Contains(folder.Read("o.json"), R"("pIncrement":"5")"));
}

TEST_F(Cli, AnyInputIsReadAsFarAsItGoes) {
  struct Input {
    char const* what;
    std::string text;
    int status;
    char const* message;  // on standard error
    char const* object;   // in the report; empty: none created
  };
  using namespace std::string_literals;
  auto const binary =
      "\x7f"
      "ELF\x02\x01\x01\0\0\0\xff\xfe; garbage"s;  // with its NUL bytes
  for (auto const& [what, text, status, message, object] : std::vector<Input>{
           {"empty", "", 0, "s.sql:1:1: note: no statements\n", ""},
           {"only comments", "-- nothing\n/* here */\n", 0, "s.sql:1:1: note: no statements\n", ""},
           {"only commands", "SET ECHO OFF\nPROMPT hello\n", 0, "s.sql:1:1: note: no statements\n",
            ""},
           {"binary", binary, 1, "s.sql:1:", ""},
           {"CRLF", "CREATE SEQUENCE A;\r\nCREATE SEQUENCE A\r\n/\r\n", 0, "s.sql:2:1: duplicate",
            "Sequence  1\n"},
           {"old Mac lines", "CREATE SEQUENCE A;\rCREATE SEQUENCE B;", 0, "", "Sequence  2\n"},
           {"BOM",
            "\xEF\xBB\xBF"
            "CREATE SEQUENCE A; CREATE SEQUENCE A;",
            0, "s.sql:1:20: duplicate", "Sequence  1\n"},
           {"Latin-1", "CREATE SEQUENCE GR\xD6SSE; CREATE SEQUENCE GR\xD6SSE;", 0,
            "s.sql:1:25: duplicate REP-1: Duplicate Object Not Created - CREATE SEQUENCE "
            "GR\xEF\xBF\xBDSSE;",
            "Sequence  1\n"},
           {"open string", "CREATE SEQUENCE A;\nCREATE TABLE T (B CHAR DEFAULT 'x", 1,
            "s.sql:2:32: syntax error: string is not closed; a quote within a string is written as "
            "two\n",
            "Sequence  1\n"},
           {"open comment", "CREATE SEQUENCE A;\n/* CREATE SEQUENCE B;", 1,
            "s.sql:2:1: syntax error: comment is not closed\n", "Sequence  1\n"},
           {"open name", "CREATE SEQUENCE A;\nCREATE SEQUENCE \"B", 1,
            "s.sql:2:17: syntax error: quoted name is not closed\n", "Sequence  1\n"},
           {"open parenthesis", "CREATE SEQUENCE A;\nCREATE TABLE T (B CHAR", 1,
            "s.sql:2:16: syntax error: parenthesis is not closed\n", "Sequence  1\n"},
           {"one long line", std::string(3000000, ' ') + "CREATE SEQUENCE A; CREATE BAD;", 1,
            "s.sql:1:3000027: syntax error", "Sequence  1\n"}}) {
    auto const result = Import(text, {"--json", "out.json"});
    EXPECT_EQ(result.status, status) << what << "\n" << result.err;
    EXPECT_TRUE(Contains(result.err, message)) << what << "\n" << result.err;
    EXPECT_TRUE(Contains(result.out, *object ? object : "  none\n")) << what << result.out;
    EXPECT_LT(result.err.size(), 2000U) << what;
    EXPECT_TRUE(Json::accept(folder.Read("out.json"))) << what;
  }
}

TEST_F(Cli, AFileThatCannotBeReadIsNamedWithTheReason) {
  folder.Write("good.sql", "CREATE SEQUENCE S;");
  folder.Write("file", "");
  std::filesystem::create_directory(folder.Path() / "folder");
  std::filesystem::create_symlink("loop.sql", folder.Path() / "loop.sql");
  auto const before = folder.Names();
  for (auto const& [file, reason] : std::vector<std::pair<std::string, std::string>>{
           {"missing.sql", "No such file or directory"},
           {"folder", "Is a directory"},
           {"file/x.sql", "Not a directory"},
           {"loop.sql", "Too many levels of symbolic links"},
           {"/proc/self/mem", "Input/output error"},
           {"", "No such file or directory"}}) {
    auto const result = Run({"import", "good.sql", file, "--json", "o.json", "--summary", "o.txt"});
    EXPECT_EQ(result.status, 2) << file;
    EXPECT_EQ(result.err, "repora: cannot read '" + file + "': " + reason + "\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(folder.Names(), before) << file;
  }
}

TEST_F(Cli, AFileThatCannotBeWrittenIsNamedAndNothingIsLeftBehind) {
  folder.Write("s.sql", "CREATE SEQUENCE S;");
  folder.Write("old.json", "old");
  std::filesystem::create_directory(folder.Path() / "folder");
  auto const before = folder.Names();
  for (std::string const option : {"--json", "--summary"}) {
    for (auto const& [file, reason] : std::vector<std::pair<std::string, std::string>>{
             {"none/out", "No such file or directory"},
             {"folder", "Is a directory"},
             {"s.sql/out", "Not a directory"},
             {"/dev/full", "No space left on device"}}) {
      auto const result = Run({"import", "s.sql", option, file});
      EXPECT_EQ(result.status, 2) << option << file;
      EXPECT_EQ(result.err, "repora: cannot write '" + file + "': " + reason + "\n");
      EXPECT_EQ(folder.Names(), before) << option << file;
    }
  }
  // What stood there stays when the run comes to nothing.
  EXPECT_EQ(Run({"import", "missing.sql", "--json", "old.json"}).status, 2);
  EXPECT_EQ(folder.Read("old.json"), "old");
}

TEST_F(Cli, OutputsDoNotOverwriteScriptsOrEachOther) {
  folder.Write("s.sql", "CREATE SEQUENCE S;\n");
  std::filesystem::create_symlink("s.sql", folder.Path() / "link.sql");
  for (auto const* output : {"s.sql", "./s.sql", "link.sql"}) {
    auto const run = Run({"import", "--json", output, "s.sql"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "repora: '" + std::string(output) +
                           "' is one of the scripts; name another output file\n");
  }
  EXPECT_EQ(Run({"import", "--json", "o", "--summary", "o", "s.sql"}).err,
            "repora: --json and --summary both name 'o'\n");
  EXPECT_EQ(folder.Read("s.sql"), "CREATE SEQUENCE S;\n");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"link.sql", "s.sql"}));
}

TEST_F(Cli, OutputsReplaceFilesAndKeepLinksAndPermissions) {
  folder.Write("s.sql", "CREATE SEQUENCE S;");
  folder.Write("real.json", "old");
  using std::filesystem::perms;
  auto const mode = perms::owner_read | perms::owner_write | perms::group_read;
  std::filesystem::permissions(folder.Path() / "real.json", mode);
  std::filesystem::create_symlink("real.json", folder.Path() / "link.json");
  EXPECT_EQ(Run({"import", "s.sql", "--json", "link.json"}).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "link.json"));
  EXPECT_TRUE(Json::accept(folder.Read("real.json")));
  EXPECT_EQ(std::filesystem::status(folder.Path() / "real.json").permissions(), mode);
  EXPECT_EQ(Run({"import", "s.sql", "--json", "/dev/null"}).status, 0);
}

TEST_F(Cli, AReaderThatGoesAwayIsAnErrorOfWriting) {
  folder.Write("s.sql", "CREATE SEQUENCE S;");
  for (auto const& arguments : std::vector<std::vector<std::string>>{
           {"render", "s.sql"}, {"import", "s.sql"}, {"import", "s.sql", "--json", "-"}}) {
    auto const result = Run(arguments, {.closed_output = true});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "repora: cannot write standard output: Broken pipe\n");
  }
}

TEST_F(Cli, CtrlCDuringTheRunAppliesNothing) {
  std::string script = "ALTER SEQUENCE X NOCACHE;\n";
  for (int i = 0; i < 300000; ++i) script += "CREATE SEQUENCE S" + std::to_string(i) + ";\n";
  folder.Write("s.sql", script);
  bool sent = false;
  auto const result = Run({"import", "s.sql", "--json", "o.json", "--summary", "o.txt"},
                          {.watch = [&](std::string const& err, pid_t process) {
                            if (sent || !Contains(err, "REP-10")) return;
                            sent = true;
                            ::kill(process, SIGINT);
                          }});
  EXPECT_TRUE(sent);
  EXPECT_EQ(result.status, kInterrupted);
  EXPECT_TRUE(result.err.ends_with("repora: interrupted\n")) << result.err;
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"s.sql"});
}

// Whether a process has a handler for Ctrl-C yet.
bool CatchesInterrupts(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("SigCgt:"))
      return (std::stoull(line.substr(7), nullptr, 16) & (1ULL << (SIGINT - 1))) != 0;
  return false;
}

TEST_F(Cli, CtrlCEndsTheWaitForInput) {
  bool caught = false;
  auto const interrupt = [&](std::string const& err, pid_t process) {
    if (!err.empty()) return;
    for (int i = 0; i < 2000 && !caught; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      caught = CatchesInterrupts(process);
    }
    ::kill(process, SIGINT);
  };
  auto const result = Run({"import", "-"}, {.keep_in_open = true, .watch = interrupt});
  EXPECT_TRUE(caught);
  EXPECT_EQ(result.status, kInterrupted);
  EXPECT_EQ(result.err, "repora: interrupted\n");
}

TEST(Corpus, EveryScriptIsImported) {
  std::filesystem::path const corpus = REPORA_CORPUS_DIR;
  if (!std::filesystem::exists(corpus)) GTEST_SKIP() << corpus << " is not there";
  TemporaryFolder const folder;
  int scripts = 0;
  for (auto const& entry : std::filesystem::recursive_directory_iterator(corpus)) {
    auto const extension = entry.path().extension();
    if (extension != ".sql" && extension != ".tps") continue;
    ++scripts;
    auto const result =
        RunProgram(folder.Path(), {"import", entry.path().string(), "--json", "out.json"});
    EXPECT_TRUE(result.status == 0 || result.status == 1) << entry.path() << result.status;
    auto const json = Json::parse(folder.Read("out.json"));
    auto const& counts = json["statements"];
    EXPECT_GT(
        counts["read"].get<int>() + counts["unread"].get<int>() + counts["outside"].get<int>(), 0)
        << entry.path();
  }
  EXPECT_GT(scripts, 0);
}

}  // namespace
}  // namespace repora::test
