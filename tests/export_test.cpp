// The JSON contract and the closing report, from a model made by hand.
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "export/json_export.h"
#include "export/ledger.h"
#include "export/report.h"
#include "repora/model/memory_model.h"

namespace repora::exporter {
namespace {

using Json = nlohmann::ordered_json;

std::string Export(MemoryModelSet& model, LoadedObjects loaded, std::vector<Message> messages = {},
                   StatementCounts counts = {}) {
  std::string text;
  EXPECT_TRUE(WriteJson(counts, messages, model, loaded, {}, [&](std::string_view piece) {
    text += piece;
    return true;
  }));
  return text;
}

TEST(JsonExport, WritesEveryKindOfValueByItsNameInTheVocabulary) {
  MemoryModelSet model;
  LoadedObjects const loaded{model.HighestId()};
  auto const id = model.AddObject(ORVTypes::oEntity, 1, "EMP");
  auto list = QELValue();
  list += QELShortId(4);
  list += QELShortId(5);
  auto pairs = QELValue();
  pairs += (std::int64_t{3} << 32) | 9;
  pairs += static_cast<std::int64_t>((std::uint64_t{0xFFFFFFFE} << 32) | 0xFFFFFFFF);
  model.SetProperty(id, ORVTypes::pOracleCache, QELValue::FromBoolean(false));
  model.SetProperty(id, ORVTypes::pOraclePartitionType, QELValue::FromInteger(-1));
  model.SetProperty(id, ORVTypes::pOracleTablespaceRef, QELValue(QELShortId(7)));
  model.SetProperty(id, ORVTypes::pIndexMemberOrderList, list);
  model.SetProperty(id, ORVTypes::pPartitionValues,
                    QELValue(std::vector<std::string>{"10", "MAXVALUE"}));
  model.SetProperty(id, ORVTypes::pMigrationMapping, pairs);
  model.SetProperty(id, ORVTypes::pComment, QELValue());

  auto const json = Json::parse(Export(model, loaded));
  auto const& object = json["objects"].back();
  auto const properties = object["properties"];
  EXPECT_EQ(
      properties.dump(),
      R"({"pName":"EMP","pComment":null,"pOracleCache":false,"pOracleTablespaceRef":{"ref":7},)"
      R"("pIndexMemberOrderList":[{"ref":4},{"ref":5}],)"
      R"("pMigrationMapping":[{"parent":3,"child":9},{"parent":4294967294,"child":4294967295}],)"
      R"("pOraclePartitionType":-1,"pPartitionValues":["10","MAXVALUE"]})");
  auto expected = Json::parse(R"({"type": "oEntity", "owner": 1, "name": "EMP",
                                  "origin": "created"})");
  for (auto const& [key, value] : expected.items()) EXPECT_EQ(object[key], value) << key;
  EXPECT_EQ(object["id"], id);
}

TEST(JsonExport, ListsTheWholeModelInIdOrder) {
  MemoryModelSet model;
  LoadedObjects const loaded{model.HighestId()};
  model.InsertObject(1000, ORVTypes::oEntity, 1, {});
  model.InsertObject(500, ORVTypes::oSequence, 1, {});
  auto const json = Json::parse(Export(model, loaded));
  EXPECT_EQ(json["objects"].size(), model.ObjectCount());
  std::uint32_t last = 0;
  for (auto const& object : json["objects"]) {
    EXPECT_LT(last, object["id"].get<std::uint32_t>());
    last = object["id"];
    EXPECT_EQ(object["origin"], last <= loaded.highest_id ? "loaded" : "created");
  }
  EXPECT_EQ(json["objects"][0]["type"], "oModel");
  EXPECT_EQ(json["objects"].back()["name"], "");
}

TEST(JsonExport, WritesCountsAndMessagesInTheirFields) {
  MemoryModelSet model;
  Message message{MessageKind::Warning, "REP-39", "text", "hr.sql", 12, 1, 4};
  StatementCounts counts{12, 9, 1, 2, 3, 4, 5};
  auto const json = Json::parse(Export(model, {}, {message, Message()}, counts));
  EXPECT_EQ(json["statements"].dump(),
            R"({"read":12,"ok":9,"duplicate":1,"unsupported":2,"error":3,"unread":4,"outside":5})");
  EXPECT_EQ(json["messages"][0].dump(),
            R"({"kind":"warning","code":"REP-39","text":"text","file":"hr.sql","line":12,)"
            R"("column":1,"statement":4})");
  EXPECT_EQ(json["messages"].size(), 2U);
}

TEST(JsonExport, StaysValidForAnyBytes) {
  MemoryModelSet model;
  std::string every_byte;
  for (int i = 0; i < 256; ++i) every_byte += static_cast<char>(i);
  auto const id = model.AddObject(ORVTypes::oEntity, 1, "caf\xE9 \xC3\xA9 \xED\xA0\x80 \xF0\x9F");
  model.SetProperty(id, ORVTypes::pComment, QELValue(std::string_view(every_byte)));
  Message message;
  message.text =
      "Gr\xF6\xDF"
      "e";
  auto const json = Json::parse(Export(model, {}, {message}));
  auto const name = json["objects"].back()["name"].get<std::string>();
  EXPECT_TRUE(name.starts_with("caf\xEF\xBF\xBD \xC3\xA9 ")) << name;
  auto const comment = json["objects"].back()["properties"]["pComment"].get<std::string>();
  EXPECT_EQ(comment.substr(0, 128), every_byte.substr(0, 128));
  EXPECT_EQ(json["messages"][0]["text"],
            "Gr\xEF\xBF\xBD\xEF\xBF\xBD"
            "e");
}

TEST(JsonExport, StopsWhenTheSinkWantsNoMore) {
  MemoryModelSet model;
  for (int i = 0; i < 20000; ++i) model.AddObject(ORVTypes::oEntity, 1, "A_TABLE");
  int pieces = 0;
  EXPECT_FALSE(WriteJson({}, {}, model, {}, {}, [&](std::string_view) { return ++pieces < 3; }));
  EXPECT_EQ(pieces, 3);
}

TEST(Report, CountsCreatedObjectsByTypeUnderTheirPhysicalNames) {
  MemoryModelSet model;
  LoadedObjects const loaded{model.HighestId()};
  for (int i = 0; i < 12; ++i) model.AddObject(ORVTypes::oAttribute, 1, "A");
  model.AddObject(ORVTypes::oEntity, 1, "T");
  model.SetProperty(model.AddObject(ORVTypes::oOracleTablespace, 1, "USERS"),
                    ORVTypes::pDoNotGenerate, QELValue::FromBoolean(true));
  MessageCounts messages;
  messages.Add(MessageKind::Warning);
  messages.Add(MessageKind::Warning);
  messages.Add(MessageKind::Syntax);
  messages.Add(MessageKind::Duplicate);
  Ledger ledger;
  ledger.SetScripts({"a.sql", "empty.sql"});
  for (auto const* const result : {"ok", "ok", "duplicate", "error", "unread", "outside"}) {
    ledger.StartStatement(0, result, {});
    bool const ok = result == std::string("ok");
    ledger.Add(ledger.RowOf("CREATE TABLE", ""), ok ? Fate::Held : Fate::Left, 3, {});
  }
  EXPECT_EQ(ReportText(ledger, messages, model, loaded, false),
            "Scripts\n"
            "  a.sql      4 read, 2 ok, 1 duplicate, 1 failed, 1 unread, 1 outside the model; "
            "6 clauses: 2 held, 4 left\n"
            "  empty.sql  0 read; 0 clauses\n"
            "Objects created\n"
            "  Table        1\n"
            "  Column      12\n"
            "  Tablespace   1  1 placeholder\n"
            "Messages\n"
            "  1 syntax error, 2 warnings\n"
            "Statements\n"
            "  4 read, 2 ok, 1 duplicate, 1 failed, 1 unread, 1 outside the model; "
            "6 clauses: 2 held, 4 left\n");
}

TEST(Report, OfNothingSaysSo) {
  MemoryModelSet model;
  EXPECT_EQ(ReportText({}, {}, model, {model.HighestId()}, false),
            "Scripts\n  none\nObjects created\n  none\nMessages\n  none\n"
            "Statements\n  0 read; 0 clauses\n");
}

}  // namespace
}  // namespace repora::exporter
