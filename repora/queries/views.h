#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/queries/table_refs.h"
#include "repora/tables/constraints.h"

class MOXActionSummaryItem;
class REPProcessor;
class REPSelect;

namespace repora {
struct ViewOfQuery;
}

enum class REPViewForce_e : int { None, NoForce, Force };

// The forms of ALTER VIEW.
enum class REPAlterView_e : int {
  None,
  AddConstraint,
  ModifyConstraintRely,
  ModifyConstraintNoRely,
  DropConstraint,
  DropPrimaryKey,
  DropUnique,
  Compile
};

namespace repora {

// name [inline_constraint ...], the shape of a view's alias and of an object view's attribute
class NamedViewColumn {
 public:
  void SetInlineConstraintList(REPInlineConstraintClauseList* list) { constraints_.Set(list); }
  REPInlineConstraintClauseList* GetInlineConstraintList() const { return constraints_.Get(); }
  std::string AsString() const;

 protected:
  Owned<REPName> name_;
  Owned<REPInlineConstraintClauseList> constraints_;
};

}  // namespace repora

// The name that a column of a view gets instead of its own.
class REPViewAlias final : public repora::NamedViewColumn {
 public:
  void SetAliasName(REPName* name) { name_.Set(name); }
  REPName* GetAliasName() const { return name_.Get(); }

  // Renames the column and makes its constraints. An alias that the view has used already leaves
  // the column its name, with a warning; so does, without one, a name that another column has.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view,
                       REPName const* view_name, MOXActionSummaryItem* column) const;
};

// An attribute of an object view. It is only rendered.
class REPViewAttribute final : public repora::NamedViewColumn {
 public:
  void SetAttributeName(REPName* name) { name_.Set(name); }
  REPName* GetAttributeName() const { return name_.Get(); }
};

// Aliases in the order of the columns, owned.
class REPViewAliasList final {
 public:
  virtual std::string AsString() const;

  void AddHead(REPViewAlias* alias) { aliases_.AddHead(alias); }
  REPViewAlias* GetAlias(int index) const { return aliases_.At(index); }
  int GetCount() const { return aliases_.GetCount(); }

  // Gives the columns of the view their aliases, by position.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view,
                       REPName const* view_name) const;

 private:
  repora::OwnedList<REPViewAlias> aliases_;
};

// Attributes in order, owned.
class REPViewAttributeList final {
 public:
  virtual std::string AsString() const;

  void AddHead(REPViewAttribute* attribute) { attributes_.AddHead(attribute); }
  REPViewAttribute* GetAttribute(int index) const { return attributes_.At(index); }
  int GetCount() const { return attributes_.GetCount(); }

 private:
  repora::OwnedList<REPViewAttribute> attributes_;
};

// OF type {UNDER super view | WITH OBJECT IDENTIFIER {(attributes) | DEFAULT}}
//   [(attributes, constraints)]
class REPObjectViewClause final {
 public:
  void SetTypeName(REPName* name) { type_.Set(name); }
  REPName* GetTypeName() const { return type_.Get(); }
  void SetSuperViewName(REPName* name) { super_view_.Set(name); }
  REPName* GetSuperViewName() const { return super_view_.Get(); }
  // The attributes of the object identifier; null for DEFAULT.
  void SetAttributeNameList(REPNameList* names) { identifier_.Set(names); }
  REPNameList* GetAttributeNameList() const { return identifier_.Get(); }
  // Both at the head of their lists.
  void AddOutOfLineConstraint(REPOutOfLineConstraint* constraint) {
    constraints_.AddHead(constraint);
  }
  REPOutOfLineConstraintList const& GetOutOfLineConstraints() const { return constraints_; }
  void AddViewAttribute(REPViewAttribute* attribute) { attributes_.AddHead(attribute); }
  REPViewAttributeList const& GetViewAttributes() const { return attributes_; }

  std::string AsString() const;

 private:
  repora::Owned<REPName> type_;
  repora::Owned<REPName> super_view_;
  repora::Owned<REPNameList> identifier_;
  REPOutOfLineConstraintList constraints_;
  REPViewAttributeList attributes_;
};

// OF XMLTYPE [XMLSCHEMA url] [ELEMENT element] WITH OBJECT IDENTIFIER {(expressions) | DEFAULT}
class REPXmlTypeViewClause final {
 public:
  void SetSchemaUrl(char const* text) { schema_url_ = text; }
  char const* GetSchemaUrl() const { return schema_url_.c_str(); }
  void SetElementUrl(char const* text) { element_ = text; }
  char const* GetElementUrl() const { return element_.c_str(); }
  // The expressions of the object identifier; null for DEFAULT.
  void SetExpressionList(REPNameList* expressions) { identifier_.Set(expressions); }
  REPNameList* GetExpressionList() const { return identifier_.Get(); }

  std::string AsString() const;

 private:
  repora::Text schema_url_;
  repora::Text element_;
  repora::Owned<REPNameList> identifier_;
};

// CREATE [OR REPLACE] [FORCE | NOFORCE] VIEW [owner.]name [(aliases, constraints) | OF type ...
//   | OF XMLTYPE ...] AS query [WITH {READ ONLY | CHECK OPTION [CONSTRAINT name]}]
// A view becomes columns that are linked to what they show, or, where that cannot be, keeps its
// SQL.
class REPCreateView final : public REPStatement {
 public:
  REPCreateView();
  ~REPCreateView() override;

  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  void SetForce(REPViewForce_e force) { force_ = force; }
  REPViewForce_e GetForce() const { return force_; }
  void SetViewName(REPName* name) { name_.Set(name); }
  REPName* GetViewName() const { return name_.Get(); }
  void SetSubquery(REPSelect* query) { query_.Set(query); }
  REPSelect* GetSubquery() const { return query_.Get(); }
  void SetSubqueryRestrict(REPSubqueryRestrict_e restriction) { restriction_ = restriction; }
  REPSubqueryRestrict_e GetSubqueryRestrict() const { return restriction_; }
  void SetSubqueryConstraint(REPName* name) { restriction_name_.Set(name); }
  REPName* GetSubqueryConstraint() const { return restriction_name_.Get(); }
  // Both at the head of their lists: they are added from the last to the first.
  void AddOutOfLineConstraint(REPOutOfLineConstraint* constraint) {
    constraints_.AddHead(constraint);
  }
  REPOutOfLineConstraintList const& GetOutOfLineConstraints() const { return constraints_; }
  void AddViewAlias(REPViewAlias* alias) { aliases_.AddHead(alias); }
  REPViewAliasList const& GetViewAliases() const { return aliases_; }
  void SetObjectViewClause(REPObjectViewClause* clause) { object_view_.Set(clause); }
  REPObjectViewClause* GetObjectViewClause() const { return object_view_.Get(); }
  void SetXmlTypeViewClause(REPXmlTypeViewClause* clause) { xml_view_.Set(clause); }
  REPXmlTypeViewClause* GetXmlTypeViewClause() const { return xml_view_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e ProcessColumns(repora::ViewOfQuery const& view) const;

  bool replace_ = false;
  REPViewForce_e force_{};
  repora::Owned<REPName> name_;
  repora::Owned<REPSelect> query_;
  REPSubqueryRestrict_e restriction_{};
  repora::Owned<REPName> restriction_name_;
  REPOutOfLineConstraintList constraints_;
  REPViewAliasList aliases_;
  repora::Owned<REPObjectViewClause> object_view_;
  repora::Owned<REPXmlTypeViewClause> xml_view_;
};

// ALTER VIEW [owner.]name {ADD constraint | MODIFY CONSTRAINT name {RELY | NORELY}
//   | DROP {CONSTRAINT name | PRIMARY KEY | UNIQUE (columns)} | COMPILE}
class REPAlterView final : public REPStatement {
 public:
  void SetViewName(REPName* name) { name_.Set(name); }
  REPName* GetViewName() const { return name_.Get(); }
  void SetAlterViewType(REPAlterView_e kind) { kind_ = kind; }
  REPAlterView_e GetAlterViewType() const { return kind_; }
  void SetOutOfLineConstraint(REPOutOfLineConstraint* constraint) { constraint_.Set(constraint); }
  REPOutOfLineConstraint* GetOutOfLineConstraint() const { return constraint_.Get(); }
  void SetConstraintName(REPName* name) { constraint_name_.Set(name); }
  REPName* GetConstraintName() const { return constraint_name_.Get(); }
  void SetColumnNameList(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumnNameList() const { return columns_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e SetRely(REPProcessor& processor) const;

  repora::Owned<REPName> name_;
  REPAlterView_e kind_{};
  repora::Owned<REPOutOfLineConstraint> constraint_;
  repora::Owned<REPName> constraint_name_;
  repora::Owned<REPNameList> columns_;
};
