#include "reader/parse_object_columns.h"

#include <utility>

#include "reader/parse_columns.h"
#include "reader/parse_constraints.h"
#include "reader/parse_lobs.h"
#include "reader/parse_names.h"
#include "reader/parse_storage.h"
#include "reader/parse_supplemental.h"
#include "reader/skipped_clauses.h"
#include "repora/storage/physical_props.h"

namespace repora::reader {
namespace {

bool IsSubstitutable(Token const& token) {
  return token.word == K_ELEMENT || token.word == K_IS || token.word == K_NOT ||
         token.word == K_SUBSTITUTABLE;
}

// [ELEMENT] IS OF [TYPE] ( [ONLY] type ) | [NOT] SUBSTITUTABLE AT ALL LEVELS; null when none comes.
std::unique_ptr<REPSubstitutable> ParseSubstitutable(TokenStream& in) {
  if (!IsSubstitutable(in.Peek())) return nullptr;
  auto clause = std::make_unique<REPSubstitutable>();
  bool const element = in.Accept(K_ELEMENT);
  if (element || in.Is(K_IS)) {
    in.Expect(K_IS, K_OF);
    in.Accept(K_TYPE);
    in.Expect('(');
    if (IsName(in.Peek(1))) in.Accept(K_ONLY);
    clause->SetType(ParseName(in).release());
    in.Expect(')');
    clause->SetElement(element);
    return clause;
  }
  bool const negated = in.Accept(K_NOT);
  in.Expect(K_SUBSTITUTABLE, K_AT, K_ALL, K_LEVELS);
  clause->SetSubstitutable(negated ? REPSubstitutable_e::NotSubstitutable
                                   : REPSubstitutable_e::Substitutable);
  return clause;
}

// attribute [DEFAULT expression] [constraint]... | constraint | supplemental logging
std::unique_ptr<REPObjectProps> ParseObjectProperty(TokenStream& in) {
  auto properties = std::make_unique<REPObjectProps>();
  if (IsOutOfLineConstraint(in)) {
    properties->SetOutOfLineConstraints(new REPOutOfLineConstraintList);
    properties->GetOutOfLineConstraints()->AddTail(ParseOutOfLineConstraint(in).release());
  } else if (IsOutOfLineRefConstraint(in)) {
    properties->SetOutOfLineRefConstraints(new REPOutOfLineRefConstraintList);
    properties->GetOutOfLineRefConstraints()->AddTail(ParseOutOfLineRefConstraint(in).release());
  } else if (IsSupplementalLogging(in)) {
    properties->SetSuppLogProps(new REPSuppLogPropsList);
    properties->GetSuppLogProps()->AddTail(ParseSupplementalLogging(in).release());
  } else {
    auto const& token = in.Peek();
    auto const column = ParseColumn(in);
    if (column->GetDatatype()) in.Note(token, "datatype of an attribute is skipped");
    properties->SetColumnName(column->GetColumnREPName());
    column->SetColumnName(nullptr);
    properties->SetExpression(column->GetExpression());
    column->SetExpression(nullptr);
    properties->SetInlineConstraints(column->GetInlineConstraints());
    column->SetInlineConstraints(nullptr);
  }
  return properties;
}

// ( property [, property]... )
std::unique_ptr<REPObjectPropsList> ParseObjectProperties(TokenStream& in) {
  auto list = std::make_unique<REPObjectPropsList>();
  in.Expect('(');
  do list->AddTail(ParseObjectProperty(in).release());
  while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return list;
}

// The physical properties of a storage table while they are read.
struct StorageTable {
  std::unique_ptr<REPPhysicalProps> properties;
  std::unique_ptr<REPSegmentAttributesClause> segment;

  REPPhysicalProps& Properties() {
    if (!properties) properties = std::make_unique<REPPhysicalProps>();
    return *properties;
  }
};

// Segment attribute | ORGANIZATION {HEAP | INDEX} | COMPRESS [n] | NOCOMPRESS; false when none
// comes.
bool ParsePhysicalProperty(TokenStream& in, StorageTable& table) {
  auto const word = in.Peek().word;
  if (StartsSegmentAttribute(word)) {
    if (!table.segment) table.segment = std::make_unique<REPSegmentAttributesClause>();
    ParseSegmentAttribute(in, *table.segment);
  } else if (word == K_COMPRESS || word == K_NOCOMPRESS) {
    auto const compression = ParseCompression(in);
    table.Properties().SetCompression(compression.compress);
    table.Properties().SetCompressionSize(in.Copy(compression.size));
  } else if (in.Accept(K_ORGANIZATION, K_INDEX)) {
    table.Properties().SetOrganization(REPOrganization_e::Index);
  } else if (in.Accept(K_ORGANIZATION, K_HEAP)) {
    table.Properties().SetOrganization(REPOrganization_e::Heap);
  } else {
    return false;
  }
  return true;
}

// ( [( object properties )] [physical property]... [column properties]... )
void ParseStorageTable(TokenStream& in, REPNestedColumnProps& nested) {
  StorageTable table;
  ColumnProperties columns;
  in.Expect('(');
  while (!in.Accept(')')) {
    if (in.Is('(') && !nested.GetObjectProps()) {
      nested.SetObjectProps(ParseObjectProperties(in).release());
    } else if (!ParsePhysicalProperty(in, table) && !ParseColumnProperties(in, columns)) {
      if (in.Peek().kind != TokenKind::Word) in.Fail("a property of a nested table or ')'");
      in.Note(in.Peek(), "property of a nested table is skipped");
      in.Next();
    }
  }
  if (table.segment) table.Properties().SetSegmentAttributes(table.segment.release());
  nested.SetPhysicalProps(table.properties.release());
  if (columns.empty()) return;
  auto list = std::make_unique<REPTableColumnPropList>();
  for (auto& column : columns) list->AddTail(column.release());
  nested.SetColumnProps(list.release());
}

// NESTED TABLE item [substitutable] [LOCAL | GLOBAL] STORE AS table [( ... )]
//   [RETURN [AS] {LOCATOR | VALUE}]
std::unique_ptr<REPNestedColumnProps> ParseNestedTable(TokenStream& in) {
  TokenStream::Level const level(in);
  auto nested = std::make_unique<REPNestedColumnProps>();
  in.Expect(K_NESTED, K_TABLE);
  nested->SetNestedItem(ParseName(in).release());
  nested->SetSubstitutable(ParseSubstitutable(in).release());
  if (in.Is(K_LOCAL) || in.Is(K_GLOBAL))
    in.Note(in.Next(), "LOCAL or GLOBAL of a nested table is skipped");
  in.Expect(K_STORE, K_AS);
  nested->SetStorageTable(ParseName(in).release());
  if (in.Is('(')) ParseStorageTable(in, *nested);
  if (in.Accept(K_RETURN)) {
    in.Accept(K_AS);
    nested->SetReturnAs(ParseReturnAs(in));
  }
  return nested;
}

// XMLTYPE [COLUMN] name [STORE ...] [XMLSCHEMA ...] ...
void SkipXmlType(TokenStream& in) {
  in.Note(in.Next(), "properties of an XMLTYPE column are skipped");
  in.Accept(K_COLUMN);
  ParseName(in);
  TakeXmlTypeStorage(in);
}

// A "," that stands between two column properties.
bool AcceptCommaOfProperties(TokenStream& in) {
  if (!in.Accept(',')) return false;
  if (StartsColumnProperty(in)) return true;
  in.StepBack();
  return false;
}

}  // namespace

REPReturnAs_e ParseReturnAs(TokenStream& in) {
  if (in.Accept(K_LOCATOR)) return REPReturnAs_e::Locator;
  if (in.Accept(K_VALUE)) return REPReturnAs_e::Value;
  in.Fail("LOCATOR or VALUE");
}

std::unique_ptr<REPVarrayColumnProps> ParseVarrayProperties(TokenStream& in) {
  auto varray = std::make_unique<REPVarrayColumnProps>();
  in.Expect(K_VARRAY);
  varray->SetVarrayItem(ParseName(in).release());
  varray->SetSubstitutable(ParseSubstitutable(in).release());
  if (!in.Accept(K_STORE, K_AS)) return varray;
  AcceptLobKind(in);
  if (!in.Accept(K_LOB)) {
    auto const& token = in.Peek();
    in.Expect(K_TABLE);
    in.Note(token, "STORE AS TABLE of a varray is skipped");
    ParseName(in);
    return varray;
  }
  if (!in.Is('(')) varray->SetSegName(ParseName(in).release());
  if (in.Is('(') && in.Peek(1).word != K_PARTITION)
    varray->SetLOBParameters(ParseLobParameters(in).release());
  return varray;
}

bool StartsColumnProperty(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_LOB: return IsLobStorage(in);
    case K_NESTED: return in.Is(K_NESTED, K_TABLE);
    case K_COLUMN: return IsName(in.Peek(1)) && IsSubstitutable(in.Peek(2));
    case K_VARRAY:
    case K_XMLTYPE: return IsName(in.Peek(1));
    default: return false;
  }
}

bool ParseColumnProperties(TokenStream& in, ColumnProperties& properties) {
  if (!StartsColumnProperty(in)) return false;
  do {
    auto property = std::make_unique<REPTableColumnProp>();
    if (in.Is(K_XMLTYPE)) {
      SkipXmlType(in);
      continue;
    }
    if (in.Is(K_LOB)) {
      property->SetLOBStorage(ParseLobStorage(in).release());
    } else if (in.Is(K_VARRAY)) {
      property->SetVarrayColumnProps(ParseVarrayProperties(in).release());
    } else if (in.Is(K_NESTED)) {
      property->SetNestedColumnProps(ParseNestedTable(in).release());
    } else {
      auto column = std::make_unique<REPObjectColumnProps>();
      in.Expect(K_COLUMN);
      column->SetColumnName(ParseSimpleName(in).release());
      column->SetSubstitutable(ParseSubstitutable(in).release());
      property->SetObjectColumnProps(column.release());
    }
    property->SetLOBPartitionList(ParseLobPartitions(in).release());
    properties.push_back(std::move(property));
  } while (StartsColumnProperty(in) || AcceptCommaOfProperties(in));
  return true;
}

}  // namespace repora::reader
