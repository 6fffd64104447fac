// Reading, processing and whole imports: what a script of so many statements costs.
#include <functional>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "bench/scripts.h"
#include "repora/core/name.h"
#include "repora/model/item.h"

namespace repora::bench {
namespace {

std::size_t HeapInUse() {
  return mallinfo2().uordblks + mallinfo2().hblkhd;
}

void BM_Read(benchmark::State& state) {
  auto const script = TableScript(static_cast<int>(state.range(0)), 12);
  for (auto _ : state) {
    auto const read = Read(script);
    benchmark::DoNotOptimize(read.statements.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(script.size()));
}
BENCHMARK(BM_Read)->Arg(100)->Arg(2'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

// INSERT statements and comments: text that leaves nothing behind.
void BM_ReadOutside(benchmark::State& state) {
  std::string script;
  while (script.size() < 10'000'000)
    script +=
        "INSERT INTO SALES.LOG (ID, NOTE) VALUES (4711, 'it''s a note; with a semicolon'); -- x\n";
  for (auto _ : state) {
    auto const read = Read(script);
    benchmark::DoNotOptimize(read.outside);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(script.size()));
}
BENCHMARK(BM_ReadOutside)->Unit(benchmark::kMillisecond);

// Columns through the processing of CREATE TABLE, without reading and without the build.
void BM_Columns(benchmark::State& state) {
  auto const tables = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    auto read = Read(TableScript(tables, 12));
    auto job = std::make_unique<Job>();
    class Timed final : public REPStatement {
     public:
      Timed(benchmark::State& timer, reader::ReadResult& script) : timer_(timer), read_(script) {}
      REPProcess_e Process(REPProcessor* processor) const override {
        timer_.ResumeTiming();
        for (auto const& statement : read_.statements) statement.object->Process(processor);
        timer_.PauseTiming();
        processor->Stop();
        return REPProcessOK;
      }
      std::string AsString() const override { return {}; }

     private:
      benchmark::State& timer_;
      reader::ReadResult& read_;
    };
    job->processor.AddStatement(new Timed(state, read));
    // Nothing comes behind it: the stop keeps the build out.
    job->processor.AddStatement(new Timed(state, read));
    job->processor.Process();
    job.reset();
    read = {};
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * tables * 12);
}
BENCHMARK(BM_Columns)->Arg(1'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

// Reads a script, runs it and builds the model, all of it timed.
void ImportAll(benchmark::State& state, std::string const& script) {
  for (auto _ : state) {
    auto read = Read(script);
    Job job;
    job.Add(read);
    job.processor.Process();
    benchmark::DoNotOptimize(job.model.ObjectCount());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(script.size()));
}

void BM_Import(benchmark::State& state) {
  ImportAll(state, TableScript(static_cast<int>(state.range(0)), 12));
}
BENCHMARK(BM_Import)->Arg(20'000)->Unit(benchmark::kMillisecond);

// The cost of a statement must not grow with the script: compare the items per second.
void BM_ImportSequences(benchmark::State& state) {
  ImportAll(state, SequenceScript(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_ImportSequences)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

void BM_ImportTables(benchmark::State& state) {
  ImportAll(state, TableScript(static_cast<int>(state.range(0)), 3));
}
BENCHMARK(BM_ImportTables)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// Heap bytes per item while the run goes on: the items with their properties alone, and with the
// registry and the summary's indexes.
void BM_BytesPerItem(benchmark::State& state) {
  double items_only = 0;
  double with_indexes = 0;
  for (auto _ : state) {
    auto read = Read(TableScript(static_cast<int>(state.range(0)), 12));
    Job job;
    std::size_t before = 0;
    class Measure final : public REPStatement {
     public:
      explicit Measure(std::function<void(REPProcessor&)> act) : act_(std::move(act)) {}
      REPProcess_e Process(REPProcessor* processor) const override {
        act_(*processor);
        return REPProcessOK;
      }
      std::string AsString() const override { return {}; }

     private:
      std::function<void(REPProcessor&)> act_;
    };
    job.processor.AddStatement(new Measure([&](REPProcessor& processor) {
      before = HeapInUse();
      auto* const first = processor.CreateItem(processor.GetRoot(), ORVTypes::oDefault, nullptr);
      for (auto const& statement : read.statements) statement.object->Process(&processor);
      auto const after = HeapInUse();
      auto* const last = processor.CreateItem(processor.GetRoot(), ORVTypes::oDefault, nullptr);
      auto const count = last->Id() - first->Id();
      with_indexes = static_cast<double>(after - before) / count;
      // What remains after copies of all items have been made, and nothing else.
      std::vector<MOXActionSummaryItem*> copies;
      copies.reserve(count);
      auto const base = HeapInUse();
      for (auto id = first->Id(); id < last->Id(); ++id) {
        auto const* const item = processor.FindSummaryPtrById(id);
        auto* const copy = new MOXActionSummaryItem;
        copy->SetId(item->Id());
        copy->SetName(std::string_view(item->Name()));
        for (auto const& property : item->Properties()) {
          auto const& value = property.value;
          copy->SetProperty(property.id, value.Kind() == QELValue::eText
                                             ? QELValue(std::string_view(value.View()))
                                             : value);
        }
        copies.push_back(copy);
      }
      items_only = static_cast<double>(HeapInUse() - base) / count;
      for (auto* const copy : copies) copy->RemoveReference();
      processor.Stop();
    }));
    job.processor.AddStatement(new Measure([](REPProcessor&) {}));
    job.processor.Process();
  }
  state.counters["item_bytes_unshared"] = items_only;
  state.counters["item_bytes_with_registry"] = with_indexes;
}
BENCHMARK(BM_BytesPerItem)->Arg(20'000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace repora::bench
