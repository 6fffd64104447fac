// Importing views: what a column of a view costs must grow neither with the tables and columns of
// its view nor with the views below it.
#include <string>

#include <benchmark/benchmark.h>

#include "bench/scripts.h"

namespace repora::bench {
namespace {

// Tables T0, T1, ... of columns of their own, and views of all of them, qualified in turn.
std::string WideScript(int views, int columns, int tables) {
  auto const per_table = (columns + tables - 1) / tables;
  auto const column_name = [](int table, int column) {
    return "C" + std::to_string(table) + "_" + std::to_string(column);
  };
  std::string script;
  for (int table = 0; table < tables; ++table) {
    script += "CREATE TABLE T" + std::to_string(table) + " (";
    for (int column = 0; column < per_table; ++column)
      script += (column > 0 ? ", " : "") + column_name(table, column) + " NUMBER";
    script += ");\n";
  }
  for (int view = 0; view < views; ++view) {
    script += "CREATE VIEW V" + std::to_string(view) + " AS SELECT ";
    for (int column = 0; column < columns; ++column) {
      auto const table = column % tables;
      script += (column > 0 ? ", " : "") +
                (column % 2 == 0 ? "A" + std::to_string(table) + "." : std::string()) +
                column_name(table, column / tables);
    }
    for (int table = 0; table < tables; ++table)
      script +=
          (table > 0 ? ", T" : " FROM T") + std::to_string(table) + " A" + std::to_string(table);
    script += ";\n";
  }
  return script;
}

// Views of five columns, each over the one before it.
std::string StackScript(int views) {
  std::string script = "CREATE TABLE V0 (A NUMBER, B NUMBER, C NUMBER, D NUMBER, E NUMBER);\n";
  for (int view = 1; view <= views; ++view)
    script += "CREATE VIEW V" + std::to_string(view) + " AS SELECT A, B, C, V.D, V.E FROM V" +
              std::to_string(view - 1) + " V WHERE A > 0;\n";
  return script;
}

void Import(benchmark::State& state, std::string const& script, int view_columns) {
  for (auto _ : state) {
    auto read = Read(script);
    Job job;
    job.Add(read);
    job.processor.Process();
    if (!read.diagnostics.empty() ||
        job.model.ObjectCount() < static_cast<std::size_t>(view_columns)) {
      state.SkipWithError("not all of the script was imported");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations() * view_columns);
}

// Both times 100,000 columns.
void BM_ImportWideViews(benchmark::State& state) {
  auto const columns = static_cast<int>(state.range(0));
  auto const tables = static_cast<int>(state.range(1));
  Import(state, WideScript(100'000 / columns, columns, tables), 100'000);
}
BENCHMARK(BM_ImportWideViews)->Args({5, 1})->Args({1'000, 200})->Unit(benchmark::kMillisecond);

void BM_ImportStackedViews(benchmark::State& state) {
  auto const views = static_cast<int>(state.range(0));
  Import(state, StackScript(views), views * 5);
}
BENCHMARK(BM_ImportStackedViews)->Arg(100)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace repora::bench
