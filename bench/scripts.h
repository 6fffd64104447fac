#pragma once

#include <memory>
#include <string>
#include <utility>

#include "reader/script_reader.h"
#include "repora/core/processor.h"
#include "repora/core/statement.h"
#include "repora/model/memory_model.h"

namespace repora::bench {

// A schema as scripts write it: tables of so many columns with the usual datatypes and options.
inline std::string TableScript(int tables, int columns) {
  static constexpr char const* datatypes[] = {"NUMBER(10)",           "VARCHAR2(30 CHAR)",
                                              "DATE DEFAULT SYSDATE", "NUMBER(12,2)",
                                              "VARCHAR2(255)",        "TIMESTAMP(6)"};
  std::string script;
  for (int table = 0; table < tables; ++table) {
    script += "CREATE TABLE SALES.CUSTOMER_ORDER_" + std::to_string(table) + " (\n";
    for (int column = 0; column < columns; ++column) {
      script += "  COLUMN_NAME_" + std::to_string(column) + "  " + datatypes[column % 6];
      script += column + 1 < columns ? ",\n" : "\n";
    }
    script += ")\nPCTFREE 10 INITRANS 2 TABLESPACE USERS NOLOGGING;\n\n";
  }
  return script;
}

inline std::string SequenceScript(int sequences) {
  std::string script;
  for (int i = 0; i < sequences; ++i)
    script += "CREATE SEQUENCE SALES.ORDER_SEQ_" + std::to_string(i) +
              " START WITH 1 INCREMENT BY 1 NOCACHE;\n";
  return script;
}

inline reader::ReadResult Read(std::string script) {
  reader::ReadOptions options;
  reader::ReadResult result;
  reader::ReadScript("bench.sql", std::move(script), options, result);
  return result;
}

// A window that lets everything pass.
class QuietWindow final : public REPNotifyWnd {
 public:
  void OnNotify(REPNotification const& /*notification*/) override {}
};

// Everything a run needs, ready for its statements.
struct Job {
  Job() {
    processor.SetModelSet(&model);
    processor.SetNotifyWnd(&window);
  }
  void Add(reader::ReadResult& read) {
    for (auto& statement : read.statements) processor.AddStatement(statement.object.release());
  }

  MemoryModelSet model;
  QuietWindow window;
  REPOracleProcessor processor;
};

}  // namespace repora::bench
