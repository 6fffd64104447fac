#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "reader/parse_queries.h"
#include "reader/token_stream.h"
#include "repora/core/expression.h"
#include "repora/core/keywords.h"

class REPGroupBy;
class REPGroupByList;
class REPQueryTableExpr;
class REPTableRef;

// The inside of the reader of queries.
namespace repora::reader {

using Query = std::unique_ptr<REPSelect>;
using TableRef = std::unique_ptr<REPTableRef>;

// What comes next in a query. The words of SQL are names wherever they can be, so most of them
// count only with the word behind them.

REPSubqueryType_e SetOperationOf(Word word);
bool StartsQueryWord(Token const& token);
bool StartsSetOperation(TokenStream const& in);
// ORDER BY, row limiting, FOR UPDATE: what follows the last operand of a set operation.
bool StartsTail(TokenStream const& in);
bool EndsQuery(TokenStream const& in);
// A clause of a query block that has no class.
bool StartsNewerClause(TokenStream const& in);
bool StartsJoin(TokenStream const& in);
// A clause of the query, or its end.
bool EndsClause(TokenStream const& in);
// What a condition of the query ends with.
bool EndsCondition(TokenStream const& in);
// Words that cannot be the alias of a table, as they go on with the query.
bool FollowsTable(TokenStream const& in);

// Reads one query. A function that meets what the classes have no place for says so with KeepText
// and goes on; one that cannot go on throws.
class QueryReader {
 public:
  // Only the query of a statement is worth a note: one within another stays in that one's text.
  QueryReader(TokenStream& in, bool takes_notes) : in_(in), takes_notes_(takes_notes) {}

  Query ReadQueryOrText();

 private:
  struct Item {
    Token token;  // the first
    std::size_t mark;
  };
  struct Operand {
    REPSubqueryType_e type;  // of the operation that leads to it
    Query query;
  };

  Query ReadQuery();
  std::string ReadFactor();
  Query ReadOperands();
  Query ReadOperand();
  Query ReadValues();
  Query ReadBlock();
  void ReadSelectList(REPSelect& query);
  void ReadEntry(REPSelectList& list);
  std::size_t CountExpressionItems() const;
  bool IsColumn(std::size_t count) const;
  void ReadFrom(REPSelect& query);
  TableRef ReadTableRef();
  TableRef ContinueJoin(TableRef left);
  bool AcceptJoin(REPJoinType_e& type);
  REPJoinType_e ReadOuter(REPJoinType_e plain);
  TableRef ReadTable();
  void ReadValuesTable(REPTableRef& table);
  TableRef ReadParenthesisedTable();
  std::unique_ptr<REPQueryTableExpr> ReadTableExpression();
  void ReadInlineQuery(REPQueryTableExpr& table);
  void ReadNamedTable(REPQueryTableExpr& table);
  void ReadPartition(REPQueryTableExpr& table);
  void ReadSample(REPQueryTableExpr& table);
  std::string_view ReadFlashbackValue();
  void ReadFlashback(REPTableRef& table);
  bool IsFactor(REPName const& name) const;
  bool OpensQuery() const;
  void ReadBlockClauses(REPSelect& query);
  void ReadHierarchy(REPSelect& query);
  void ReadGroupBy(REPGroupByList& list);
  std::unique_ptr<REPGroupBy> ReadGroupEntry();
  std::unique_ptr<REPExprList> ReadExpressionList();
  void ReadOrderBy(REPSelect& query);
  void ReadForUpdate(REPSelect& query);
  std::string_view ReadText(bool (*ends)(TokenStream const&));
  void KeepText(Token const& at, std::string const& what);
  bool HasQuotedNames(std::size_t mark);

  TokenStream& in_;
  bool takes_notes_;
  bool keeps_text_ = false;       // of the query that is read
  bool has_lone_having_ = false;  // without GROUP BY, which the classes render all the same
  int depth_ = 0;                 // of queries
  std::vector<std::string> factors_;
  std::vector<Item> items_;
};

}  // namespace repora::reader
