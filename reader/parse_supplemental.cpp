#include "reader/parse_supplemental.h"

#include <vector>

#include "reader/parse_names.h"

namespace repora::reader {
namespace {

// name [( column [NO LOG] [, ...] ) [ALWAYS]], behind GROUP
void ParseGroup(TokenStream& in, REPSuppLogProps& properties) {
  auto name = ParseName(in);
  if (!in.Accept('(')) {
    properties.SetGroupName(name.release());
    return;
  }
  auto group = std::make_unique<REPSuppLogGroup>();
  group->SetLogGroup(name.release());
  struct Column {
    std::unique_ptr<REPName> name;
    bool no_log;
  };
  std::vector<Column> columns;
  do {
    auto column = ParseSimpleName(in);
    columns.push_back({std::move(column), in.Accept(K_NO, K_LOG)});
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  for (auto column = columns.rbegin(); column != columns.rend(); ++column)
    group->AddLogColumn(column->name.release(), column->no_log);
  group->SetLogAlways(in.Accept(K_ALWAYS));
  properties.SetLogGroup(group.release());
}

// ( {ALL | PRIMARY KEY | UNIQUE [INDEX] | FOREIGN KEY} [, ...] ) COLUMNS, behind DATA
std::unique_ptr<REPSuppIdKey> ParseIdKey(TokenStream& in) {
  auto key = std::make_unique<REPSuppIdKey>();
  in.Expect('(');
  do {
    if (in.Accept(K_ALL)) {
      key->SetLogAll(true);
    } else if (in.Accept(K_PRIMARY, K_KEY)) {
      key->SetLogPrimaryKey(true);
    } else if (in.Accept(K_UNIQUE)) {
      in.Accept(K_INDEX);
      key->SetLogUnique(true);
    } else if (in.Accept(K_FOREIGN, K_KEY)) {
      key->SetLogForeignKey(true);
    } else {
      in.Fail("ALL, PRIMARY KEY, UNIQUE or FOREIGN KEY");
    }
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  in.Expect(K_COLUMNS);
  return key;
}

}  // namespace

bool IsSupplementalLogging(TokenStream const& in) {
  return in.Is(K_SUPPLEMENTAL, K_LOG);
}

std::unique_ptr<REPSuppLogProps> ParseSupplementalLogging(TokenStream& in) {
  auto const& token = in.Peek();
  auto properties = std::make_unique<REPSuppLogProps>();
  in.Expect(K_SUPPLEMENTAL, K_LOG);
  if (in.Accept(K_GROUP)) {
    ParseGroup(in, *properties);
    return properties;
  }
  if (!in.Accept(K_DATA)) in.Fail("GROUP or DATA");
  if (in.Is('(')) {
    properties->SetIdKey(ParseIdKey(in).release());
    return properties;
  }
  in.Note(token, "SUPPLEMENTAL LOG DATA without key columns is skipped");
  while (IsName(in.Peek())) in.Next();
  return nullptr;
}

}  // namespace repora::reader
