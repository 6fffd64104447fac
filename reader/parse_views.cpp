#include <vector>

#include "reader/parse_constraints.h"
#include "reader/parse_names.h"
#include "reader/parse_queries.h"
#include "reader/parse_statements.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/queries/views.h"

namespace repora::reader {
namespace {

// [OR REPLACE] [FORCE | NOFORCE] [EDITIONABLE | NONEDITIONABLE] [other kind] VIEW
void ParseViewKind(TokenStream& in, REPCreateView& view) {
  in.Expect(K_CREATE);
  view.SetReplace(AcceptOrReplace(in));
  while (!in.Accept(K_VIEW)) {
    auto const mark = in.Mark();
    SkipEditionable(in);
    auto const& token = in.Peek();
    if (in.Accept(K_FORCE)) {
      view.SetForce(REPViewForce_e::Force);
    } else if (in.Accept(K_NOFORCE) || in.Accept(K_NO, K_FORCE)) {
      view.SetForce(REPViewForce_e::NoForce);
    } else if (in.Accept(K_EDITIONING)) {
      in.Note(token, "clause EDITIONING is skipped");
    } else if (in.Mark() == mark) {
      in.Fail("VIEW");
    }
  }
}

void SkipColumnClauses(TokenStream& in) {
  while (SkipClause(in, ClausePlace::Column)) continue;
}

// ( {name [constraint]... | constraint} [, ...] ), of which the lists take the last one first
template <class Column, class Holder>
void ParseViewColumns(TokenStream& in, Holder& holder, void (Column::*set_name)(REPName*),
                      void (Holder::*add_column)(Column*)) {
  std::vector<std::unique_ptr<Column>> columns;
  std::vector<std::unique_ptr<REPOutOfLineConstraint>> constraints;
  in.Expect('(');
  do {
    if (IsOutOfLineConstraint(in)) {
      constraints.push_back(ParseOutOfLineConstraint(in));
      continue;
    }
    auto column = std::make_unique<Column>();
    (column.get()->*set_name)(ParseSimpleName(in).release());
    SkipColumnClauses(in);
    column->SetInlineConstraintList(ParseInlineConstraints(in).release());
    SkipColumnClauses(in);
    columns.push_back(std::move(column));
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  for (auto column = columns.rbegin(); column != columns.rend(); ++column)
    (holder.*add_column)(column->release());
  for (auto constraint = constraints.rbegin(); constraint != constraints.rend(); ++constraint)
    holder.AddOutOfLineConstraint(constraint->release());
}

// WITH OBJECT {IDENTIFIER | ID | OID} {(...) | DEFAULT}; null for DEFAULT
std::unique_ptr<REPNameList> ParseObjectIdentifier(TokenStream& in) {
  in.Expect(K_WITH, K_OBJECT);
  if (!in.Accept(K_IDENTIFIER) && !in.Accept(K_OID)) in.Expect(K_ID);
  if (in.Accept(K_DEFAULT)) return nullptr;
  auto names = std::make_unique<REPNameList>();
  in.Expect('(');
  do {
    auto const mark = in.Mark();
    while (!in.Is(',') && !in.Is(')') && !in.AtEnd()) in.SkipItem();
    names->AddTail(REPName::MakeExpression(in.TextSince(mark)));
  } while (in.Accept(','));
  in.Expect(')');
  return names;
}

// OF XMLTYPE [XMLSCHEMA url] [ELEMENT element] WITH OBJECT IDENTIFIER ...
void ParseXmlTypeView(TokenStream& in, REPCreateView& view) {
  auto clause = std::make_unique<REPXmlTypeViewClause>();
  auto const take = [&] {
    auto const mark = in.Mark();
    in.Next();
    return in.Copy(in.TextSince(mark));
  };
  if (in.Accept(K_XMLSCHEMA)) clause->SetSchemaUrl(take());
  if (in.Accept(K_ELEMENT)) {
    auto const mark = in.Mark();
    while (!in.Is(K_WITH, K_OBJECT) && !in.AtEnd()) in.SkipItem();
    clause->SetElementUrl(in.Copy(in.TextSince(mark)));
  }
  clause->SetExpressionList(ParseObjectIdentifier(in).release());
  view.SetXmlTypeViewClause(clause.release());
}

// OF type {UNDER view | WITH OBJECT IDENTIFIER ...} [(attributes, constraints)]
void ParseObjectView(TokenStream& in, REPCreateView& view) {
  auto clause = std::make_unique<REPObjectViewClause>();
  clause->SetTypeName(ParseName(in).release());
  if (in.Accept(K_UNDER))
    clause->SetSuperViewName(ParseName(in).release());
  else
    clause->SetAttributeNameList(ParseObjectIdentifier(in).release());
  if (in.Is('('))
    ParseViewColumns(in, *clause, &REPViewAttribute::SetAttributeName,
                     &REPObjectViewClause::AddViewAttribute);
  view.SetObjectViewClause(clause.release());
}

// [DEFAULT COLLATION name] [BEQUEATH {CURRENT_USER | DEFINER}] ..., up to AS
void SkipViewClauses(TokenStream& in) {
  while (!in.Is(K_AS) && !in.AtEnd()) {
    if (SkipClause(in, ClausePlace::View)) continue;
    auto const& token = in.Next();
    if (token.word == K_NONE || token.word == K_SELECT || token.word == K_WITH) {
      in.StepBack();
      in.Fail("AS");
    }
    in.Note(token, "clause " + ToUpper(in.TextOf(token)) + " is skipped");
    while (!in.Is(K_AS) && !in.AtEnd()) in.SkipItem();
  }
}

// [WITH {READ ONLY | CHECK OPTION} [CONSTRAINT name]]
void ParseRestriction(TokenStream& in, REPCreateView& view) {
  if (!in.Accept(K_WITH)) return;
  bool const read_only = in.Accept(K_READ, K_ONLY);
  if (!read_only) in.Expect(K_CHECK, K_OPTION);
  bool const named = in.Accept(K_CONSTRAINT);
  if (named) view.SetSubqueryConstraint(ParseSimpleName(in).release());
  if (read_only)
    view.SetSubqueryRestrict(REPSubqueryRestrict_e::ReadOnly);
  else
    view.SetSubqueryRestrict(named ? REPSubqueryRestrict_e::CheckConstraint
                                   : REPSubqueryRestrict_e::CheckOption);
}

// [CONTAINER_MAP | CONTAINERS_DEFAULT]
void SkipContainerOption(TokenStream& in) {
  auto const& token = in.Peek();
  if (StartsContainerOption(in)) {
    in.Next();
    in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
  }
}

}  // namespace

// CREATE [kind] VIEW name [(aliases, constraints) | OF XMLTYPE ... | OF type ...] AS query
//   [restriction]
std::unique_ptr<REPStatement> ParseCreateView(TokenStream& in) {
  auto view = std::make_unique<REPCreateView>();
  view->SetStatementType(REPStatement_e::CreateView);
  ParseViewKind(in, *view);
  SkipIfNotExists(in);
  view->SetViewName(ParseName(in).release());
  SkipSharing(in);
  if (in.Accept(K_OF)) {
    if (in.Accept(K_XMLTYPE))
      ParseXmlTypeView(in, *view);
    else
      ParseObjectView(in, *view);
  } else if (in.Is('(')) {
    ParseViewColumns(in, *view, &REPViewAlias::SetAliasName, &REPCreateView::AddViewAlias);
  }
  SkipViewClauses(in);
  in.Expect(K_AS);
  view->SetSubquery(ParseQuery(in).release());
  ParseRestriction(in, *view);
  SkipContainerOption(in);
  if (!in.AtEnd()) in.Fail("the end of the view");
  return view;
}

// ALTER VIEW name {ADD constraint | MODIFY CONSTRAINT name {RELY | NORELY}
//   | DROP {CONSTRAINT name | PRIMARY KEY | UNIQUE (columns)} | COMPILE}
std::unique_ptr<REPStatement> ParseAlterView(TokenStream& in) {
  auto view = std::make_unique<REPAlterView>();
  view->SetStatementType(REPStatement_e::AlterView);
  in.Expect(K_ALTER, K_VIEW);
  SkipIfExists(in);
  view->SetViewName(ParseName(in).release());
  if (SkipClause(in, ClausePlace::AlterView)) {
    if (!in.AtEnd()) in.Fail("the end of the statement");
    return nullptr;
  }
  if (in.Accept(K_ADD)) {
    view->SetAlterViewType(REPAlterView_e::AddConstraint);
    view->SetOutOfLineConstraint(ParseOutOfLineConstraint(in).release());
  } else if (in.Accept(K_MODIFY)) {
    in.Expect(K_CONSTRAINT);
    view->SetConstraintName(ParseName(in).release());
    bool const rely = in.Accept(K_RELY);
    if (!rely) in.Expect(K_NORELY);
    view->SetAlterViewType(rely ? REPAlterView_e::ModifyConstraintRely
                                : REPAlterView_e::ModifyConstraintNoRely);
  } else if (in.Accept(K_DROP)) {
    if (in.Accept(K_CONSTRAINT)) {
      view->SetAlterViewType(REPAlterView_e::DropConstraint);
      view->SetConstraintName(ParseName(in).release());
    } else if (in.Accept(K_PRIMARY)) {
      in.Expect(K_KEY);
      view->SetAlterViewType(REPAlterView_e::DropPrimaryKey);
    } else {
      in.Expect(K_UNIQUE);
      view->SetAlterViewType(REPAlterView_e::DropUnique);
      view->SetColumnNameList(ParseNameList(in).release());
    }
  } else if (in.Accept(K_COMPILE)) {
    view->SetAlterViewType(REPAlterView_e::Compile);
  } else {
    in.Fail("what to alter of the view");
  }
  if (!in.AtEnd()) in.Fail("the end of the statement");
  return view;
}

}  // namespace repora::reader
