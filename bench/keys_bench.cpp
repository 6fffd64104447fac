// Importing tables with their keys, relationships and indexes: what a table costs must not grow
// with the script.
#include <string>

#include <benchmark/benchmark.h>

#include "bench/scripts.h"

namespace repora::bench {
namespace {

// Tables that each refer to the two before them, the first ones to themselves.
std::string KeyScript(int tables) {
  std::string script;
  for (int i = 0; i < tables; ++i) {
    auto const number = std::to_string(i);
    auto const name = "SALES.ORDERS_" + number;
    script += "CREATE TABLE " + name +
              " (\n  ID NUMBER(10) NOT NULL,\n  FIRST_ID NUMBER(10),\n  SECOND_ID NUMBER(10),\n"
              "  NAME VARCHAR2(30),\n  CONSTRAINT ORDERS_PK_" +
              number + " PRIMARY KEY (ID) USING INDEX TABLESPACE IDX);\n";
    for (int column = 1; column <= 2; ++column)
      script += "ALTER TABLE " + name + " ADD CONSTRAINT ORDERS_FK" + std::to_string(column) + "_" +
                number + " FOREIGN KEY (" + (column == 1 ? "FIRST_ID" : "SECOND_ID") +
                ") REFERENCES SALES.ORDERS_" + std::to_string(i >= column ? i - column : i) +
                " (ID) ON DELETE CASCADE;\n";
    script += "CREATE INDEX SALES.ORDERS_IX_" + number + " ON " + name +
              " (FIRST_ID, SECOND_ID DESC) TABLESPACE IDX;\nCREATE UNIQUE INDEX SALES.ORDERS_UX_" +
              number + " ON " + name + " (UPPER(NAME));\n";
  }
  return script;
}

void BM_ImportKeys(benchmark::State& state) {
  auto const tables = static_cast<int>(state.range(0));
  auto const script = KeyScript(tables);
  for (auto _ : state) {
    auto read = Read(script);
    Job job;
    job.Add(read);
    job.processor.Process();
    // Nothing may fail: a table with its columns, keys, indexes and relationships is 19 objects.
    if (read.statements.size() != static_cast<std::size_t>(tables) * 5 ||
        job.model.ObjectCount() < static_cast<std::size_t>(tables) * 19) {
      state.SkipWithError("not all of the script was imported");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations() * tables);
}
BENCHMARK(BM_ImportKeys)->Arg(2'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace repora::bench
