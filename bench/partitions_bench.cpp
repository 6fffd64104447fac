// Importing partitioned tables: what a partition costs must not grow with their number.
#include <string>

#include <benchmark/benchmark.h>

#include "bench/scripts.h"

namespace repora::bench {
namespace {

// A table of so many range partitions, as the dictionary exports them, with so many subpartitions
// each.
std::string PartitionScript(int partitions, int subpartitions) {
  std::string script =
      "CREATE TABLE SALES.ORDERS (ID NUMBER(10), DAY NUMBER(10))\n"
      "PARTITION BY RANGE (DAY)\n";
  if (subpartitions > 0) script += "SUBPARTITION BY LIST (ID)\n";
  for (int i = 0; i < partitions; ++i) {
    auto const number = std::to_string(i);
    script += i == 0 ? "(" : ",\n ";
    script += "PARTITION \"P_" + number + "\" VALUES LESS THAN (" + number +
              ") PCTFREE 10 INITRANS 1 TABLESPACE \"USERS\"";
    for (int j = 0; j < subpartitions; ++j) {
      auto const position = std::to_string(j);
      script += j == 0 ? "\n  (" : ",\n   ";
      script += "SUBPARTITION \"P_" + number + "_" + position + "\" VALUES (" + position +
                ") TABLESPACE \"USERS\"";
    }
    if (subpartitions > 0) script += ")";
  }
  return script + ");\n";
}

void BM_ImportPartitions(benchmark::State& state) {
  auto const partitions = static_cast<int>(state.range(0));
  auto const subpartitions = static_cast<int>(state.range(1));
  auto const script = PartitionScript(partitions, subpartitions);
  // A partition is 3 objects with its description and storage, a subpartition 2.
  auto const objects =
      static_cast<std::size_t>(partitions) * (3 + 2 * static_cast<std::size_t>(subpartitions));
  for (auto _ : state) {
    auto read = Read(script);
    Job job;
    job.Add(read);
    job.processor.Process();
    if (read.statements.size() != 1 || job.model.ObjectCount() < objects) {
      state.SkipWithError("not all of the script was imported");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(partitions) *
                          (subpartitions > 0 ? subpartitions : 1));
}
BENCHMARK(BM_ImportPartitions)
    ->Args({10'000, 0})
    ->Args({100'000, 0})
    ->Args({100, 100})
    ->Args({1'000, 100})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace repora::bench
