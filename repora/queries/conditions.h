#pragma once

#include <string>
#include <vector>

#include "repora/core/name.h"
#include "repora/core/owned.h"

class REPSelect;

// The kinds of conditions. The values are fixed; 32, 35 and 36 are kinds without a text.
enum class REPCondType_e : int {
  None = 0,
  Equal = 1,
  NotEqual = 2,
  Less = 3,
  Greater = 4,
  LessOrEqual = 5,
  GreaterOrEqual = 6,
  Like = 7,
  NotLike = 8,
  LikeC = 9,
  NotLikeC = 10,
  Like2 = 11,
  NotLike2 = 12,
  Like4 = 13,
  NotLike4 = 14,
  Between = 15,
  NotBetween = 16,
  In = 17,
  NotIn = 18,
  Exists = 19,
  IsOf = 20,
  IsNotOf = 21,
  Not = 22,
  And = 23,
  Or = 24,
  Parenthesised = 25,
  IsNan = 26,
  IsNotNan = 27,
  IsInfinite = 28,
  IsNotInfinite = 29,
  IsNull = 30,
  IsNotNull = 31,
  Reserved32 = 32,
  IsASet = 33,
  IsNotASet = 34,
  Reserved35 = 35,
  Reserved36 = 36,
  IsEmpty = 37,
  IsNotEmpty = 38,
  RegexpLike = 39,
  Member = 40,
  MemberOf = 41,
  NotMember = 42,
  NotMemberOf = 43,
  Submultiset = 44,
  SubmultisetOf = 45,
  NotSubmultiset = 46,
  NotSubmultisetOf = 47,
};

// The quantifier of a comparison.
enum class REPCondTypeMod_e : int { None, Any, Some, All };

// expression {= | != | < | > | <= | >=} [ANY | SOME | ALL] {expression | (query)}
// | expression [NOT] {LIKE | LIKEC | LIKE2 | LIKE4} pattern [ESCAPE 'character']
// | expression [NOT] BETWEEN expression AND expression
// | expression [NOT] IN {expressions | (query)} | EXISTS(query)
// | expression IS [NOT] OF [TYPE] ([ONLY] type, ...)
// | expression IS [NOT] {NAN | INFINITE | NULL | A SET | EMPTY}
// | REGEXP_LIKE(expression, 'pattern' [, 'match']) | expression [NOT] {MEMBER | SUBMULTISET} [OF]
//   expression
// | NOT condition | condition {AND | OR} condition | (condition)
// One node of a search condition. Operands are texts of the script and come back as they are.
// Trees may be as deep as memory allows: neither rendering nor destruction recurses, save into
// derived classes that render themselves.
class REPCondition {
 public:
  explicit REPCondition(REPCondType_e type = REPCondType_e::None);
  REPCondition(REPCondition const&) = delete;
  REPCondition& operator=(REPCondition const&) = delete;
  virtual ~REPCondition();

  // Kinds without a text render as nothing, a missing nested condition as an empty text.
  virtual std::string AsString() const;

  void SetCondType(REPCondType_e type) { type_ = type; }
  REPCondType_e GetCondType() const { return type_; }
  // The left operand; the whole query text of EXISTS.
  void SetExpression1(char const* text) { expression1_ = text; }
  char const* GetExpression1() const { return expression1_.c_str(); }
  // The right operand: a pattern, the list of IN with its parentheses, the lower bound of BETWEEN.
  void SetExpression2(char const* text) { expression2_ = text; }
  char const* GetExpression2() const { return expression2_.c_str(); }
  // The upper bound of BETWEEN; without quotes, the escape character of LIKE and the match
  // parameter of REGEXP_LIKE.
  void SetExpression3(char const* text) { expression3_ = text; }
  char const* GetExpression3() const { return expression3_.c_str(); }
  // The query of a comparison or of IN; it stands in the place of expression 2.
  void SetSelect(REPSelect* select) { select_.Set(select); }
  REPSelect* GetSelect() const { return select_.Get(); }
  // Parentheses around the whole text, apart from those of the kind Parenthesised.
  void SetParens(bool parenthesised) { parenthesised_ = parenthesised; }
  bool GetParens() const { return parenthesised_; }
  // IS OF is written IS OF TYPE.
  void SetType(bool type_keyword) { type_keyword_ = type_keyword; }
  bool GetType() const { return type_keyword_; }
  // Adds a type of IS OF in front of the others, so types are added from the last to the first.
  // ONLY stands before it when `only` is 1. Takes ownership; a null name is ignored.
  void AddType(REPName* name, unsigned char only);
  int GetTypeCount() const { return types_.GetCount(); }
  // Of the type at a position from 0 to GetTypeCount() - 1; otherwise std::invalid_argument.
  REPName* GetTypeName(int index) const { return types_.At(index); }
  unsigned char GetTypeOnly(int index) const;
  void SetCondTypeMod(REPCondTypeMod_e quantifier) { quantifier_ = quantifier; }
  REPCondTypeMod_e GetCondTypeMod() const { return quantifier_; }
  // The operand of NOT and of Parenthesised, the left one of AND and OR.
  void SetCondition1(REPCondition* condition) { condition1_.Set(condition); }
  REPCondition* GetCondition1() const { return condition1_.Get(); }
  // The right operand of AND and OR.
  void SetCondition2(REPCondition* condition) { condition2_.Set(condition); }
  REPCondition* GetCondition2() const { return condition2_.Get(); }

 private:
  struct Rendering;

  static void Delete(REPCondition* tree);
  void AppendTo(Rendering& rendering) const;
  std::string RightOperand() const;
  std::string TypesText() const;

  REPCondType_e type_;
  repora::Text expression1_;
  repora::Text expression2_;
  repora::Text expression3_;
  repora::Owned<REPSelect> select_;
  bool parenthesised_ = false;
  bool type_keyword_ = false;
  repora::OwnedList<REPName> types_;
  std::vector<unsigned char> only_;  // of the types, the last one first
  REPCondTypeMod_e quantifier_{};
  repora::Owned<REPCondition> condition1_;
  repora::Owned<REPCondition> condition2_;
};

// A condition of a form that has no kind of its own, kept as the script's text: expression 1.
class REPTextCondition final : public REPCondition {
 public:
  explicit REPTextCondition(char const* text) { SetExpression1(text); }

  std::string AsString() const override;
};
