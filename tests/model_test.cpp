#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "repora/model/builder.h"
#include "repora/model/datatypes_map.h"
#include "repora/model/item.h"
#include "repora/model/memory_model.h"
#include "repora/model/metamodel.h"

namespace {

using repora::MemoryModelSet;
using Ids = std::vector<std::uint32_t>;

QELValue Reference(std::uint32_t id) {
  return QELValue(QELShortId(id));
}

QELValue References(Ids const& ids) {
  QELValue value;
  for (auto const id : ids) value += QELShortId(id);
  return value;
}

QELValue Pair(std::uint64_t parent, std::uint64_t child) {
  QELValue value;
  value += static_cast<std::int64_t>(parent << 32 | child);
  return value;
}

// --- Values and properties ---

TEST(Value, IsNeutralToReadersOfOtherKinds) {
  for (auto const& value : {QELValue("12"), References({3, 9}), Reference(7),
                            QELValue(std::vector<std::string>{"10", "x"})}) {
    EXPECT_EQ(value.Integer(), 0);
    EXPECT_FALSE(value.Boolean());
    EXPECT_EQ(value.ShortId(), value == Reference(7) ? 7U : 0U);
    EXPECT_EQ(value.String(), value == QELValue("12") ? "12" : "");
    auto const text = value.AsString(true);
    QELValue(value).Clean();
    EXPECT_EQ(value.AsString(true), text) << "after a copy was cleaned";
  }
  EXPECT_EQ(References({3, 9}).AsString(true), "3, 9");
  EXPECT_EQ(QELValue::FromInteger(-5).AsString(true), "-5");
  EXPECT_TRUE(QELValue::HasValue(QELValue(static_cast<char const*>(nullptr))));
}

TEST(Value, EqualityDistinguishesKindsAndContents) {
  auto const values = [] {
    return std::vector{QELValue(),         QELValue(""),
                       QELValue("a"),      QELValue::FromInteger(1),
                       Reference(1),       Pair(1, 2),
                       References({1, 2}), QELValue::FromBoolean(true),
                       References({1}),    QELValue(std::vector<std::string>{"a"})};
  };
  auto const left = values();
  auto const right = values();
  for (std::size_t i = 0; i < left.size(); ++i)
    for (std::size_t j = 0; j < right.size(); ++j)
      EXPECT_EQ(left[i] == right[j], i == j) << i << " and " << j;
}

TEST(Value, AppendingLeavesCopiesAndOtherKindsAlone) {
  auto original = References({1});
  auto const copy = original;
  original += QELShortId(2);
  std::vector<QELShortId> elements;
  ASSERT_TRUE(original.GetShortIdVector(elements));
  EXPECT_EQ(elements, (std::vector{QELShortId(1), QELShortId(2)}));
  EXPECT_TRUE(copy == References({1}));

  auto at_once = QELValue::FromShortIds(Ids{1});
  at_once += QELShortId(2);
  EXPECT_TRUE(at_once == original);
  EXPECT_TRUE(QELValue::FromShortIds(Ids{}) == QELValue());

  original += "text";
  original += std::int64_t{3};
  EXPECT_TRUE(original == References({1, 2}));
  QELValue text("scalar");
  text += "element";
  EXPECT_EQ(text.String(), "scalar");
}

TEST(Properties, StaySortedAndUniqueAndCopiesGrow) {
  repora::PropertySet one;
  one.Set(14, QELValue("one"));
  auto properties = one;
  for (MOXId id = 30; id > 0; --id) properties.Set(id * 7 % 31, QELValue("many"));
  properties.Set(5, QELValue("replaced"));
  properties.Remove(6);
  properties.Remove(6);
  EXPECT_EQ(properties.size(), 29U);
  EXPECT_TRUE(std::is_sorted(properties.begin(), properties.end(),
                             [](auto const& a, auto const& b) { return a.id < b.id; }));
  EXPECT_EQ(properties.Find(5)->View(), "replaced");
  EXPECT_EQ(properties.Find(6), nullptr);
  EXPECT_EQ(one.size(), 1U);
}

// --- Summary ---

// A summary as a run makes it, and the build that follows.
class Job {
 public:
  explicit Job(MemoryModelSet& model_set) : set(model_set), map(&model_set) {}
  ~Job() { summary->RemoveReference(); }

  MOXActionSummaryItem& Add(MOXActionSummary::Types_e kind, std::uint32_t id, MOXId type,
                            std::uint32_t owner, char const* name) {
    auto* const item = new MOXActionSummaryItem;
    item->SetId(id);
    item->SetType(type);
    item->SetOwner(owner);
    item->SetName(name);
    summary->AddItem(kind, item);
    item->RemoveReference();
    return *item;
  }
  MOXActionSummaryItem& Create(std::uint32_t id, MOXId type, std::uint32_t owner,
                               char const* name) {
    return Add(MOXActionSummary::eCreated, id, type, owner, name);
  }
  MOXActionSummaryItem& Load(std::uint32_t id, MOXId type, std::uint32_t owner) {
    map.AddMapping(id, id);
    return Add(MOXActionSummary::eExisting, id, type, owner, "");
  }

  bool Build() {
    auto const builder = MOX::BuilderFactory().CreateBuilder(&set, {}, 0);
    auto const validator = IVOUtilityPack::CreateBuilderValidator(&set);
    builder->SetIdMap(&map);
    builder->SetValidator(validator.get());
    builder->SetCallback(callback);
    return builder->Build(summary, 0, "test");
  }

  MemoryModelSet& set;
  MOXBuilderIdMap map;
  MOXBuilderCallbackI* callback = nullptr;
  MOXActionSummary* summary = new MOXActionSummary;
};

std::string Written(std::function<void(std::FILE*)> const& write) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::tmpfile(), std::fclose);
  write(file.get());
  std::string text(static_cast<std::size_t>(std::ftell(file.get())), '\0');
  std::rewind(file.get());
  text.resize(std::fread(text.data(), 1, text.size(), file.get()));
  return text;
}

TEST(Dump, IsReadableAndStable) {
  MemoryModelSet set;
  Job run(set);
  run.Create(2, ORVTypes::oView, 1, "replaced by the next");
  auto& changed = run.Load(2, ORVTypes::oEntity, 1);
  changed.RemoveProperty(ORVTypes::pDoNotGenerate);
  changed.RemoveProperty(MOXTypes::pName);
  changed.SetProperty(MOXTypes::pName, QELValue("back"));
  auto& created = run.Create(40, ORVTypes::oKeyGroup, 2, "a\"b");
  created.SetProperty(ORVTypes::pComment, QELValue("two\r\nlines\t\\ \x01"));
  created.SetProperty(ORVTypes::pIsUnique, QELValue::FromBoolean(true));
  created.SetProperty(ORVTypes::pKeyGroupRef, Reference(7));
  created.SetProperty(ORVTypes::pIndexMemberOrderList, References({4, 5}));
  created.SetProperty(ORVTypes::pPartitionValues, QELValue(std::vector<std::string>{"10", "'x'"}));
  created.SetProperty(ORVTypes::pMigrationMapping, Pair(3, 0xFFFFFFFF));
  created.SetProperty(ORVTypes::pTriggerFire, QELValue());
  created.SetProperty(999999, QELValue::FromInteger(-1));

  auto const text = Written([&](std::FILE* file) { run.summary->Dump(file, nullptr, "Title"); });
  EXPECT_EQ(text.substr(0, text.find("#40")),
            "Title\n"
            "#2 oEntity owner #1 \"\" existing\n"
            "  pName: \"back\"\n"
            "  pDoNotGenerate removed\n");
  for (char const* line :
       {"#40 oKeyGroup owner #2 \"a\\\"b\" created\n",
        "  pComment: \"two\\r\\nlines\\t\\\\ \\x01\"\n", "  pIsUnique: true\n",
        "  pKeyGroupRef: #7\n", "  pIndexMemberOrderList: [#4, #5]\n",
        "  pPartitionValues: [\"10\", \"'x'\"]\n", "  pMigrationMapping: [#3>#4294967295]\n",
        "  pTriggerFire: (empty)\n", "  999999: -1\n"})
    EXPECT_NE(text.find(line), std::string::npos) << line << "in\n" << text;
  EXPECT_EQ(Written([&](std::FILE* file) { run.summary->Dump(file, &set, ""); }),
            text.substr(text.find('#')));
  run.summary->Dump(nullptr, &set, "");

  MemoryModelSet other;
  for (auto* model : {&set, &other}) {
    bool const other_way = model == &other;
    for (std::uint32_t const id : other_way ? Ids{202, 201} : Ids{201, 202})
      model->InsertObject(id, ORVTypes::oEntity, 1, created.Properties());
  }
  EXPECT_EQ(set.DumpText(), other.DumpText());
  EXPECT_EQ(Written([&](std::FILE* file) { set.Dump(file); }), set.DumpText());
}

// --- Metamodel and datatypes ---

TEST(Metamodel, KnowsWhichTypesCarryWhichPropertiesAndTheirNames) {
  repora::Metamodel const metamodel;
  auto const carries = [&](MOXId type, MOXId property) {
    return MOXUtilityPack::FindAssociation(&metamodel, type, property) != nullptr;
  };
  EXPECT_TRUE(carries(ORVTypes::oEntity, ORVTypes::pDBOwner));
  EXPECT_FALSE(carries(ORVTypes::oAttribute, ORVTypes::pDBOwner));
  EXPECT_FALSE(carries(0, MOXTypes::pName));
  EXPECT_FALSE(carries(4000000000U, 4000000000U));
  EXPECT_EQ(metamodel.AssociationOf(ORVTypes::oEntity, MOXTypes::pName)
                ->GetBoolean(MOXTypes::pIsDeprecated),
            MOXAssociation::kNotSet);
  for (auto const& type : repora::AllTypes())
    EXPECT_TRUE(carries(type.id, MOXTypes::pName)) << type.name;
  // What no object carries cannot reach a model.
  for (auto const& property : repora::AllProperties())
    EXPECT_EQ(std::any_of(repora::AllTypes().begin(), repora::AllTypes().end(),
                          [&](auto const& type) { return carries(type.id, property.id); }),
              property.id != MOXTypes::pIsDeprecated)
        << property.name;

  EXPECT_EQ(metamodel.NameOfType(ORVTypes::oEntity, ORVTypes::tPhysicalName), "Table");
  EXPECT_EQ(metamodel.NameOfType(ORVTypes::oEntity, 0), "Entity");
  EXPECT_EQ(metamodel.NameOfType(ORVTypes::oEntity, 77), "");
  EXPECT_EQ(metamodel.NameOfType(MOXTypes::pName, 0), "");
  EXPECT_STREQ(repora::VocabularyName(ORVTypes::oEntity), "oEntity");
  EXPECT_STREQ(repora::VocabularyName(ORVTypes::pSingleTable), "pSingleTable");
  EXPECT_EQ(repora::VocabularyName(0), nullptr);
  EXPECT_EQ(repora::PropertyDisplayName(ORVTypes::oEntity), nullptr);
}

TEST(Datatypes, EverySpellingFindsTheDomainOfItsDatatype) {
  MemoryModelSet set;
  auto const& map = KALDatatypesMapI::GetReference();
  auto const domain_of = [&](char const* text, int version = 0) -> std::string {
    QELValue id("stale");
    if (!map.FindBuiltInId(*map.GetDbms(1, version, 0), text, id)) {
      EXPECT_FALSE(QELValue::HasValue(id));
      return "";
    }
    for (auto const domain : *set.GetTypeIndex()->ObjectsOfType(ORVTypes::oDomain))
      if (*set.PropertiesOf(domain)->Find(MOXTypes::pBuiltInId) == id)
        return set.PropertiesOf(domain)->Find(MOXTypes::pName)->String();
    return "no domain";
  };
  std::pair<char const*, char const*> const cases[] = {
      {"VARCHAR2(30)", "VARCHAR2"},
      {"varchar2 ( 30 CHAR )", "VARCHAR2"},
      {"CHAR", "CHAR"},
      {"CHAR VARYING(3)", "VARCHAR2"},
      {"NATIONAL  CHARACTER\tVARYING(10)", "NVARCHAR2"},
      {"DECIMAL(8,2)", "NUMBER"},
      {"DOUBLE PRECISION", "FLOAT"},
      {"LONG RAW", "LONG RAW"},
      {"TIMESTAMP(6)", "TIMESTAMP"},
      {"INTERVAL DAY(2) TO SECOND(6)", "INTERVAL DAY TO SECOND"},
      {" TIMESTAMP(6)WITH LOCAL TIME ZONE ", "TIMESTAMP WITH LOCAL TIME ZONE"},
      {"XMLType", "XMLTYPE"},
      {"SYS.XMLtype", "XMLTYPE"},
      {"", ""},
      {"()", ""},
      {"NUMBERS", ""},
      {"VARCHAR2)", ""},
      {"SCOTT.NUMBER", ""},
      {"LONGRAW", ""},
      {"A_NAME_LONGER_THAN_EVERY_DATATYPE_THAT_THERE_IS_IN_ORACLE", ""}};
  for (auto const& [text, domain] : cases) EXPECT_EQ(domain_of(text), domain) << text;
  EXPECT_EQ(domain_of("TIMESTAMP(6)", 8), "");
  EXPECT_EQ(domain_of("TIMESTAMP(6)", 9), "TIMESTAMP");
  QELValue id;
  EXPECT_FALSE(map.FindBuiltInId(KALDbmsI(), "DATE", id)) << "a descriptor of another map";
}

// --- Model ---

TEST(Model, StartsWithRootAndTriggerTemplate) {
  MemoryModelSet set({.dbms_version = 11});
  MOXObject root;
  set.GetModel()->GetRootObject(root);
  EXPECT_EQ(root.Type(), ORVTypes::oModel);
  EXPECT_EQ(root.Owner().Id(), 0U);
  QELValue value;
  EXPECT_EQ(root.GetProperty(ORVTypes::pDBMSVersion, value, false), eSuccess);
  EXPECT_EQ(value.Integer(), 11);
  EXPECT_NE(root.GetProperty(ORVTypes::pComment, value, false), eSuccess);
  EXPECT_FALSE(QELValue::HasValue(value));
  UZTUnificationPack::SetModelUnderConstruction(root, true);
  EXPECT_TRUE(set.IsUnderConstruction());
  UZTUnificationPack::ClearModelUnderConstruction(root);
  EXPECT_FALSE(set.IsUnderConstruction());

  MOXObject found;
  auto const& built_ins = ORVBuiltInObjectIndex::GetInstance();
  EXPECT_FALSE(built_ins.FindBuiltInObject(set.GetModel(), 132, ORVTypes::oTriggerTemplate, found));
  ASSERT_TRUE(built_ins.FindBuiltInObject(set.GetModel(), 131, ORVTypes::oTriggerTemplate, found));
  EXPECT_EQ(found.Owner().Id(), root.Id());
  found.GetProperty(ORVTypes::pTemplateCode, value, false);
  EXPECT_TRUE(value.View().ends_with(" %Scope\r\n %TriggerWhen\r\n"));
}

TEST(Model, TakesAnyIdsAndIteratesThemInOrder) {
  MemoryModelSet set;
  auto const gap = static_cast<std::uint32_t>(set.ObjectCount()) + 1;
  for (auto const id : Ids{900, 500, 700, 600, 1000, 950, 4000, 650})
    EXPECT_TRUE(set.InsertObject(id, ORVTypes::oView, 1, {})) << id;
  for (auto const id : Ids{0, 1, 500, 650, 4000})
    EXPECT_FALSE(set.InsertObject(id, ORVTypes::oView, 1, {})) << id;
  EXPECT_EQ(set.AddObject(ORVTypes::oView, 500, nullptr), 4001U);
  EXPECT_EQ(*set.GetTypeIndex()->ObjectsOfType(ORVTypes::oView),
            (Ids{500, 600, 650, 700, 900, 950, 1000, 4000, 4001}));
  EXPECT_EQ(set.GetTypeIndex()->ObjectsOfType(ORVTypes::oSequence), nullptr);

  std::size_t seen = 0;
  std::uint32_t last = 0;
  MOXObjectIterator iterator;
  MOXObject object;
  for (set.GetModel()->CreateIterator(iterator); ++iterator; ++seen) {
    iterator.GetValue(object);
    EXPECT_GT(object.Id(), last);
    EXPECT_TRUE(set.Has(object.Id()));
    last = object.Id();
  }
  EXPECT_EQ(seen, gap - 1 + 9);
  EXPECT_FALSE(++iterator);
  for (auto const id : Ids{0U, gap, 499U, 601U, 4002U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(set.GetModel()->FindObject(id, object)) << id;
    EXPECT_FALSE(set.SetProperty(id, MOXTypes::pName, QELValue("x"))) << id;
  }
  ASSERT_TRUE(set.InsertObject(0xFFFFFFFF, ORVTypes::oView, 1, {}));
  EXPECT_EQ(set.AddObject(ORVTypes::oView, 1, "NO ROOM"), 0U);
  Job run(set);
  run.Create(500, ORVTypes::oView, 1, "NO ROOM EITHER");
  auto const before = set.DumpText();
  EXPECT_FALSE(run.Build());
  EXPECT_EQ(set.DumpText(), before);
}

// --- Advisory channel ---

class Listener final : public MOXSubscriberI {
 public:
  explicit Listener(std::function<void()> react = [] {}) : react_(std::move(react)) {}
  void Notify(MOXPublishedEventI const& event) override {
    react_();
    heard += event.Advisory().Code() + " ";
  }
  std::string heard;

 private:
  std::function<void()> react_;
};

TEST(Advisories, SubscribersMayComeLeaveAndPublishWhileBeingTold) {
  MemoryModelSet set;
  auto& channel = *set.GetAdvisoryChannel();
  long held = 0;
  auto const publish = [&](char const* code) {
    long told = 0;
    long dropped = 0;
    channel.Publish(MOXAdvisory(code, MOXAdvisory::eWarning, "text"), told, held, dropped);
    return told;
  };
  Listener late;
  Listener last;
  Listener* self = nullptr;
  Listener leaver([&] {
    channel.Unsubscribe(self);
    channel.Unsubscribe(&last);
    channel.Subscribe(&late);
    for (int i = 0; i < 100; ++i) publish("B");  // the held ones move in memory
  });
  self = &leaver;
  Listener stayer;
  for (Listener* listener : {static_cast<Listener*>(nullptr), &leaver, &stayer, &stayer, &last})
    channel.Subscribe(listener);
  EXPECT_EQ(publish("A"), 2);
  EXPECT_EQ(leaver.heard, "A ");
  EXPECT_TRUE(stayer.heard.ends_with("B B A "));
  EXPECT_EQ(late.heard.size(), 200U);
  EXPECT_EQ(last.heard, "");
  EXPECT_EQ(publish("C"), 2);
  std::vector<MOXAdvisory> advisories(5);
  channel.GetAdvisories(advisories);
  EXPECT_EQ(advisories.size(), 102U);
  EXPECT_EQ(advisories.front().Code(), "A");
}

// --- Builder and validator ---

std::string Advisories(MemoryModelSet& set) {
  std::vector<MOXAdvisory> advisories;
  set.GetAdvisoryChannel()->GetAdvisories(advisories);
  std::string text;
  for (auto const& advisory : advisories) {
    EXPECT_EQ(advisory.Severity(), MOXAdvisory::eWarning);
    text += advisory.Code() + ' ' + advisory.Message() + '\n';
  }
  return text;
}

TEST(Builder, CreatesChangesAndRemovesAcrossRuns) {
  MemoryModelSet set;
  auto const start = set.ObjectCount();
  {
    Job run(set);
    auto& table = run.Create(100, ORVTypes::oEntity, 1, "EMP");
    table.SetProperty(MOXTypes::pName, QELValue("Emp"));
    table.SetProperty(ORVTypes::pDoNotGenerate, QELValue::FromBoolean(true));
    table.SetProperty(ORVTypes::pOracleCache, QELValue::FromBoolean(true));
    run.Create(101, ORVTypes::oAttribute, 100, "ENAME");
    ASSERT_TRUE(run.Build());
  }
  EXPECT_EQ(set.ObjectCount(), start + 2);
  EXPECT_EQ(set.OwnerOf(101), 100U);
  EXPECT_EQ(set.PropertiesOf(100)->Find(MOXTypes::pName)->View(), "Emp");
  EXPECT_EQ(set.PropertiesOf(101)->Find(MOXTypes::pName)->View(), "ENAME");
  {
    Job run(set);
    MOXObjectIterator iterator;
    MOXObject object;
    set.GetModel()->CreateIterator(iterator);
    while (++iterator) {
      iterator.GetValue(object);
      run.Load(object.Id(), object.Type(), object.Owner().Id());
    }
    auto& table = *run.summary->CreatedObjects().Find(100);
    table.RemoveProperty(ORVTypes::pDoNotGenerate);
    table.SetProperty(MOXTypes::pName, QELValue("STAFF"));
    run.summary->CreatedObjects().Find(101)->SetOwner(102);
    run.Create(102, ORVTypes::oEntity, 1, "DEPT");
    ASSERT_TRUE(run.Build());
  }
  EXPECT_EQ(set.ObjectCount(), start + 3);
  auto const& table = *set.PropertiesOf(100);
  EXPECT_EQ(table.Find(ORVTypes::pDoNotGenerate), nullptr);
  EXPECT_TRUE(table.Find(ORVTypes::pOracleCache)->Boolean());
  EXPECT_EQ(table.Find(MOXTypes::pName)->View(), "STAFF");
  EXPECT_EQ(set.OwnerOf(101), 102U);
  EXPECT_EQ(Advisories(set), "");
}

TEST(Builder, GivesFreshIdsWhereTheModelHasTheirs) {
  MemoryModelSet set;
  auto const taken = set.AddObject(ORVTypes::oEntity, 1, "OLD");
  Job run(set);
  run.map.AddMapping(7000, taken);  // the summary's own number for the old table
  run.Add(MOXActionSummary::eExisting, 7000, ORVTypes::oEntity, 1, "")
      .SetProperty(ORVTypes::pComment, Reference(taken));
  run.map.AddMapping(taken + 1, taken);  // says nothing about an object that the run creates
  run.Create(taken, ORVTypes::oEntity, 1, "NEW");
  auto& column = run.Create(taken + 1, ORVTypes::oAttribute, taken, "C");
  column.SetProperty(ORVTypes::pKeyGroupRef, Reference(taken));
  column.SetProperty(ORVTypes::pColumnsRef, References({taken + 1, taken, 7000, 1}));
  column.SetProperty(ORVTypes::pMigrationMapping, Pair(taken, 7000));
  ASSERT_TRUE(run.Build());

  auto const fresh = set.HighestId();
  EXPECT_GT(fresh, 7000U);
  EXPECT_EQ(set.PropertiesOf(taken)->Find(MOXTypes::pName)->View(), "OLD");
  EXPECT_EQ(set.PropertiesOf(taken)->Find(ORVTypes::pComment)->ShortId(), fresh);
  EXPECT_EQ(set.PropertiesOf(fresh)->Find(MOXTypes::pName)->View(), "NEW");
  EXPECT_EQ(set.OwnerOf(taken + 1), fresh);
  auto const& properties = *set.PropertiesOf(taken + 1);
  EXPECT_EQ(properties.Find(ORVTypes::pKeyGroupRef)->ShortId(), fresh);
  EXPECT_TRUE(*properties.Find(ORVTypes::pColumnsRef) == References({taken + 1, fresh, taken, 1}));
  EXPECT_TRUE(*properties.Find(ORVTypes::pMigrationMapping) == Pair(fresh, taken));
  EXPECT_TRUE(column.Properties().Find(ORVTypes::pColumnsRef) &&
              *column.Properties().Find(ORVTypes::pColumnsRef) ==
                  References({taken + 1, taken, 7000, 1}))
      << "the summary itself was changed";
}

class Watcher final : public MOXBuilderCallbackI {
 public:
  bool Advise(Events_e event, unsigned long first, unsigned long second) override {
    told.push_back({event == eFinished ? 1UL : 0UL, first, second});
    return !impatient;
  }
  std::vector<std::vector<unsigned long>> told;
  bool impatient = false;
};

TEST(Builder, TellsProgressUntilItIsAskedToStop) {
  using Told = std::vector<unsigned long>;
  for (std::uint32_t const items : {0U, 3U, 5000U}) {
    MemoryModelSet set;
    Job run(set);
    for (std::uint32_t i = 0; i < items; ++i) run.Create(1000 + i, ORVTypes::oView, 1, "");
    Watcher watcher;
    run.callback = &watcher;
    ASSERT_TRUE(run.Build());
    EXPECT_LT(watcher.told.size(), 110U);
    EXPECT_EQ(watcher.told.front(), (Told{0, 0, items}));
    EXPECT_EQ(watcher.told.at(watcher.told.size() - 2), (Told{0, items, items}));
    EXPECT_EQ(watcher.told.back(), (Told{1, items, items}));

    watcher = Watcher();
    watcher.impatient = true;
    auto const before = set.ObjectCount();
    ASSERT_TRUE(run.Build());
    EXPECT_EQ(watcher.told, (std::vector<Told>{{0, 0, items}}));
    EXPECT_EQ(set.ObjectCount(), before + items);
  }
}

TEST(Validator, FindsWhatIsWrongWithTouchedObjectsOnly) {
  MemoryModelSet set;
  auto const untouched = set.AddObject(ORVTypes::oView, 4711, "LOST");
  auto const old_table = set.AddObject(ORVTypes::oEntity, 1, "EMP");
  Job run(set);
  run.Load(untouched, ORVTypes::oView, 4711);
  for (auto const id : Ids{101, 102}) run.Create(id, ORVTypes::oEntity, 1, "EMP");
  for (auto const id : Ids{103, 104})
    run.Create(id, ORVTypes::oEntity, 1, "DEPT")
        .SetProperty(ORVTypes::pDBOwner, QELValue(id == 103 ? "HR" : "SCOTT"));
  for (auto const id : Ids{105, 106}) run.Create(id, ORVTypes::oDefault, 1, "");
  run.Create(107, ORVTypes::oView, 1, "EMP");
  run.Create(108, ORVTypes::oAttribute, 99, "C");
  auto& relationship = run.Create(109, ORVTypes::oRelationship, 1, "FK");
  relationship.SetProperty(ORVTypes::pParentEntityRef, Reference(0));
  relationship.SetProperty(ORVTypes::pChildEntityRef, Reference(98));
  relationship.SetProperty(ORVTypes::pColumnsRef, References({101, 97}));
  relationship.SetProperty(ORVTypes::pMigrationMapping, Pair(102, 96));
  ASSERT_TRUE(run.Build());
  auto const text = Advisories(set);
  auto const lines = std::count(text.begin(), text.end(), '\n');
  EXPECT_EQ(lines, 5) << text;
  for (std::string const& finding :
       {"BUILD-3 Table \"EMP\" (#101) is one of 3 objects of that name, beside #" +
            std::to_string(old_table) + ".",
        std::string("BUILD-2 Column \"C\" (#108) belongs to #99, which does not exist."),
        std::string("BUILD-1 Relationship \"FK\" (#109): Child refers to #98, "),
        std::string(" refers to #97, "), std::string(" refers to #96, ")})
    EXPECT_NE(text.find(finding), std::string::npos) << finding << " in\n" << text;
}

TEST(Model, FindsObjectsInWhateverOrderTheirIdsCome) {
  MemoryModelSet set;
  Ids inserted;
  for (std::uint32_t const id : {100U, 99U, 101U, 60U, 102U, 61U, 98U, 200U, 59U, 201U}) {
    ASSERT_TRUE(set.InsertObject(id, ORVTypes::oEntity, 1000 + id, {}));
    EXPECT_FALSE(set.InsertObject(id, ORVTypes::oEntity, 1, {}));
    inserted.push_back(id);
    for (std::uint32_t other = 50; other < 250; ++other) {
      bool const is_there = std::find(inserted.begin(), inserted.end(), other) != inserted.end();
      EXPECT_EQ(set.Has(other), is_there) << other << " after " << id;
      EXPECT_EQ(set.OwnerOf(other), is_there ? 1000 + other : 0) << other << " after " << id;
    }
  }
}

TEST(Validator, TellsEachNameOfManyOnce) {
  MemoryModelSet set;
  Job run(set);
  for (std::uint32_t id = 100; id < 400; ++id)  // every name three times, far from each other
    run.Create(id, ORVTypes::oEntity, 1, ("TABLE_" + std::to_string(id % 100)).c_str());
  ASSERT_TRUE(run.Build());
  auto const text = Advisories(set);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 100);
  EXPECT_NE(text.find("BUILD-3 Table \"TABLE_7\" (#107) is one of 3 objects of that name, beside "
                      "#207."),
            std::string::npos)
      << text;
}

}  // namespace
