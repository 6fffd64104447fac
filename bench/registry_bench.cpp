// One registry lookup of each kind, at growing numbers of items.
#include <random>

#include <benchmark/benchmark.h>

#include "bench/scripts.h"
#include "repora/core/name.h"
#include "repora/model/item.h"

namespace repora::bench {
namespace {

// A model of tables with columns, sequences and triggers, so many items in all.
struct Population {
  std::vector<std::string> tables;
  std::vector<MOXActionSummaryItem*> table_items;

  void Fill(REPProcessor& processor, int items) {
    auto const root = processor.GetRoot();
    auto const add = [&](std::uint32_t owner, MOXId type, std::string const& text) {
      REPName const name{std::string_view(text)};
      MOXActionSummaryItem* item = nullptr;
      processor.AddItem(owner, type, &name, item);
      return item;
    };
    for (int i = 0; i < items / 10; ++i) {
      auto const number = std::to_string(i);
      tables.push_back("TABLE_" + number);
      auto* const table = add(root, ORVTypes::oEntity, tables.back());
      table_items.push_back(table);
      for (int column = 0; column < 7; ++column)
        add(table->Id(), ORVTypes::oAttribute, "COLUMN_" + std::to_string(column));
      add(table->Id(), ORVTypes::oTrigger, "TRG_" + number);
      add(root, ORVTypes::oSequence, "SEQ_" + number);
    }
  }
};

using Lookup = void (*)(REPProcessor&, Population const&, std::size_t pick);

// Runs the lookups inside a run over the populated registry, at random items.
void Measure(benchmark::State& state, Lookup lookup) {
  class InRun final : public REPStatement {
   public:
    InRun(benchmark::State& timer, Lookup act) : state_(timer), lookup_(act) {}
    REPProcess_e Process(REPProcessor* processor) const override {
      Population population;
      population.Fill(*processor, static_cast<int>(state_.range(0)));
      std::mt19937 random(7);
      std::vector<std::size_t> picks(4096);
      for (auto& pick : picks) pick = random() % population.tables.size();
      std::size_t next = 0;
      for (auto _ : state_) lookup_(*processor, population, picks[next++ % picks.size()]);
      processor->Stop();
      return REPProcessOK;
    }
    std::string AsString() const override { return {}; }

   private:
    benchmark::State& state_;
    Lookup lookup_;
  };
  Job job;
  job.processor.AddStatement(new InRun(state, lookup));
  job.processor.AddStatement(new InRun(state, lookup));  // the stop keeps it and the build out
  job.processor.Process();
}

REPName TableName(Population const& population, std::size_t pick) {
  return REPName{std::string_view(population.tables[pick])};
}

void ByKey(REPProcessor& processor, Population const& population, std::size_t pick) {
  auto const name = TableName(population, pick);
  benchmark::DoNotOptimize(processor.FindItemPtr(processor.GetRoot(), ORVTypes::oEntity, &name));
}
void Column(REPProcessor& processor, Population const& population, std::size_t pick) {
  static REPName const name("COLUMN_6");
  benchmark::DoNotOptimize(
      processor.FindItemPtr(population.table_items[pick]->Id(), ORVTypes::oAttribute, &name));
}
void FirstChild(REPProcessor& processor, Population const& /*population*/, std::size_t /*pick*/) {
  benchmark::DoNotOptimize(processor.FindItemPtr(processor.GetRoot(), ORVTypes::oEntity));
}
void Children(REPProcessor& processor, Population const& population, std::size_t pick) {
  std::vector<MOXActionSummaryItem*> items;
  processor.FindChildrenByType(population.table_items[pick]->Id(), ORVTypes::oAttribute, items);
  benchmark::DoNotOptimize(items.data());
}
void ByTypeAndName(REPProcessor& processor, Population const& population, std::size_t pick) {
  auto const name = TableName(population, pick);
  benchmark::DoNotOptimize(processor.FindItemPtrByTypeName(ORVTypes::oEntity, &name));
}
void CommonName(REPProcessor& processor, Population const& /*population*/, std::size_t /*pick*/) {
  static REPName const name("COLUMN_3");
  benchmark::DoNotOptimize(processor.FindItemPtrByName(&name));
}
void ByName(REPProcessor& processor, Population const& population, std::size_t pick) {
  auto const name = TableName(population, pick);
  benchmark::DoNotOptimize(processor.FindItemPtrByName(&name));
}
void SynonymDuplicate(REPProcessor& processor, Population const& population, std::size_t pick) {
  auto const name = TableName(population, pick);
  benchmark::DoNotOptimize(processor.FindSynonymDuplicatePtr(&name));
}
void Trigger(REPProcessor& processor, Population const& population, std::size_t pick) {
  REPName const name{std::string_view("TRG_" + population.tables[pick].substr(6))};
  benchmark::DoNotOptimize(processor.FindTrigger(&name));
}
void ById(REPProcessor& processor, Population const& population, std::size_t pick) {
  benchmark::DoNotOptimize(processor.FindSummaryPtrById(population.table_items[pick]->Id()));
}
void SummaryChildren(REPProcessor& processor, Population const& population, std::size_t pick) {
  benchmark::DoNotOptimize(
      processor.FindSummaryItemPtr(population.table_items[pick]->Id(), ORVTypes::oAttribute));
}
// By item: a rename there and back.
void Rename(REPProcessor& processor, Population const& population, std::size_t pick) {
  static REPName const other("RENAMED");
  auto const name = TableName(population, pick);
  processor.RenameItem(population.table_items[pick], &other);
  processor.RenameItem(population.table_items[pick], &name);
}

#define REPORA_LOOKUP(lookup) \
  BENCHMARK_CAPTURE(Measure, lookup, &lookup)->Arg(1'000)->Arg(100'000)->Arg(1'000'000)
REPORA_LOOKUP(ByKey);
REPORA_LOOKUP(Column);
REPORA_LOOKUP(FirstChild);
REPORA_LOOKUP(Children);
REPORA_LOOKUP(ByTypeAndName);
REPORA_LOOKUP(ByName);
REPORA_LOOKUP(CommonName);
REPORA_LOOKUP(SynonymDuplicate);
REPORA_LOOKUP(Trigger);
REPORA_LOOKUP(ById);
REPORA_LOOKUP(SummaryChildren);
REPORA_LOOKUP(Rename);
#undef REPORA_LOOKUP

}  // namespace
}  // namespace repora::bench
