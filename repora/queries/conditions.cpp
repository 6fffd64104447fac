#include "repora/queries/conditions.h"

#include <array>
#include <string_view>
#include <typeinfo>
#include <utility>

#include "repora/queries/select.h"

namespace {

// How a kind is put together from its keyword and its operands.
enum class Shape {
  Nothing,
  Comparison,   // E1 keyword [quantifier] operand
  Like,         // E1 keyword E2 [ESCAPE 'E3']
  Between,      // E1 keyword E2 AND E3
  Membership,   // E1 keyword set
  Call,         // keyword E1)
  TypeTest,     // E1 keyword [TYPE](types)
  Prefix,       // keyword C1
  Junction,     // C1 keyword C2
  Parentheses,  // (C1)
  Test,         // E1 keyword
  RegexpLike,
  Operator,  // E1 keyword E2
};

struct Form {
  Shape shape = Shape::Nothing;
  std::string_view keyword = {};
};

constexpr std::array<Form, 48> kForms = {{
    {},
    {Shape::Comparison, " = "},
    {Shape::Comparison, " != "},
    {Shape::Comparison, " < "},
    {Shape::Comparison, " > "},
    {Shape::Comparison, " <= "},
    {Shape::Comparison, " >= "},
    {Shape::Like, " LIKE "},
    {Shape::Like, " NOT LIKE "},
    {Shape::Like, " LIKEC "},
    {Shape::Like, " NOT LIKEC "},
    {Shape::Like, " LIKE2 "},
    {Shape::Like, " NOT LIKE2 "},
    {Shape::Like, " LIKE4 "},
    {Shape::Like, " NOT LIKE4 "},
    {Shape::Between, " BETWEEN "},
    {Shape::Between, " NOT BETWEEN "},
    {Shape::Membership, " IN "},
    {Shape::Membership, " NOT IN"},  // no blank before the list, unlike IN
    {Shape::Call, "EXISTS("},
    {Shape::TypeTest, " IS OF"},
    {Shape::TypeTest, " IS NOT OF"},
    {Shape::Prefix, "NOT "},
    {Shape::Junction, " AND "},
    {Shape::Junction, " OR "},
    {Shape::Parentheses, {}},
    {Shape::Test, " IS NAN"},
    {Shape::Test, " IS NOT NAN"},
    {Shape::Test, " IS INFINITE"},
    {Shape::Test, " IS NOT INFINITE"},
    {Shape::Test, " IS NULL"},
    {Shape::Test, " IS NOT NULL"},
    {},
    {Shape::Test, " IS A SET"},
    {Shape::Test, " IS NOT A SET"},
    {},
    {},
    {Shape::Test, " IS EMPTY"},
    {Shape::Test, " IS NOT EMPTY"},
    {Shape::RegexpLike, {}},
    {Shape::Operator, " MEMBER "},
    {Shape::Operator, " MEMBER OF "},
    {Shape::Operator, " NOT MEMBER "},
    {Shape::Operator, " NOT MEMBER OF "},
    {Shape::Operator, " SUBMULTISET "},
    {Shape::Operator, " SUBMULTISET OF "},
    {Shape::Operator, " NOT SUBMULTISET "},
    {Shape::Operator, " NOT SUBMULTISET OF "},
}};

Form FormOf(REPCondType_e type) {
  auto const index = static_cast<std::size_t>(static_cast<int>(type));
  return index < kForms.size() ? kForms[index] : Form();
}

std::string_view QuantifierText(REPCondTypeMod_e quantifier) {
  switch (quantifier) {
    case REPCondTypeMod_e::None: break;
    case REPCondTypeMod_e::Any: return "ANY ";
    case REPCondTypeMod_e::Some: return "SOME ";
    case REPCondTypeMod_e::All: return "ALL ";
  }
  return {};
}

}  // namespace

// A text under way: what stands and, the next one last, what is still to be appended.
struct REPCondition::Rendering {
  struct Step {
    REPCondition const* condition;
    std::string_view text;
  };

  Rendering& Append(std::string_view text) {
    sql += text;
    return *this;
  }
  void Later(std::string_view text) { steps.push_back({nullptr, text}); }
  void Later(REPCondition const* condition) {
    if (condition) steps.push_back({condition, {}});
  }

  std::string sql;
  std::vector<Step> steps;
};

REPCondition::REPCondition(REPCondType_e type) : type_(type) {}

REPCondition::~REPCondition() {
  Delete(condition1_.Release());
  Delete(condition2_.Release());
}

// Turns left operands up until there is none, so that nodes are deleted one by one without their
// operands, and without a stack.
void REPCondition::Delete(REPCondition* tree) {
  while (tree) {
    if (auto* const left = tree->condition1_.Release()) {
      tree->condition1_.Set(left->condition2_.Release());
      left->condition2_.Set(tree);
      tree = left;
    } else {
      auto* const right = tree->condition2_.Release();
      delete tree;
      tree = right;
    }
  }
}

void REPCondition::AddType(REPName* name, unsigned char only) {
  if (!name) return;
  types_.AddHead(name);
  only_.push_back(only);
}

unsigned char REPCondition::GetTypeOnly(int index) const {
  types_.At(index);  // the check of the position
  return only_[only_.size() - 1 - static_cast<std::size_t>(index)];
}

std::string REPCondition::AsString() const {
  Rendering rendering;
  AppendTo(rendering);
  while (!rendering.steps.empty()) {
    auto const step = rendering.steps.back();
    rendering.steps.pop_back();
    if (!step.condition)
      rendering.Append(step.text);
    else if (typeid(*step.condition) == typeid(REPCondition))
      step.condition->AppendTo(rendering);
    else
      rendering.Append(step.condition->AsString());
  }
  return std::move(rendering.sql);
}

// Appends what comes before the first nested condition and leaves the rest for later.
void REPCondition::AppendTo(Rendering& rendering) const {
  if (parenthesised_) {
    rendering.Append("(");
    rendering.Later(")");
  }
  auto const [shape, keyword] = FormOf(type_);
  switch (shape) {
    case Shape::Nothing: break;
    case Shape::Comparison:
      rendering.Append(expression1_).Append(keyword).Append(QuantifierText(quantifier_));
      rendering.Append(RightOperand());
      break;
    case Shape::Like:
      rendering.Append(expression1_).Append(keyword).Append(expression2_);
      if (!expression3_.empty()) rendering.Append(" ESCAPE '").Append(expression3_).Append("'");
      break;
    case Shape::Between:
      rendering.Append(expression1_).Append(keyword).Append(expression2_);
      rendering.Append(" AND ").Append(expression3_);
      break;
    case Shape::Membership:
      rendering.Append(expression1_).Append(keyword).Append(RightOperand());
      break;
    case Shape::Call: rendering.Append(keyword).Append(expression1_).Append(")"); break;
    case Shape::TypeTest:
      rendering.Append(expression1_).Append(keyword);
      if (type_keyword_) rendering.Append(" TYPE");
      rendering.Append(TypesText());
      break;
    case Shape::Prefix:
      rendering.Append(keyword);
      rendering.Later(condition1_.Get());
      break;
    case Shape::Junction:
      rendering.Later(condition2_.Get());
      rendering.Later(keyword);
      rendering.Later(condition1_.Get());
      break;
    case Shape::Parentheses:
      rendering.Append("(");
      rendering.Later(")");
      rendering.Later(condition1_.Get());
      break;
    case Shape::Test: rendering.Append(expression1_).Append(keyword); break;
    case Shape::RegexpLike:
      rendering.Append("REGEXP_LIKE(").Append(expression1_);
      rendering.Append(", '").Append(expression2_).Append("'");
      if (!expression3_.empty()) rendering.Append(", '").Append(expression3_).Append("'");
      rendering.Append(")");
      break;
    case Shape::Operator:
      rendering.Append(expression1_).Append(keyword).Append(expression2_);
      break;
  }
}

std::string REPCondition::RightOperand() const {
  return select_ ? "(" + select_->AsString() + ")" : expression2_.str();
}

std::string REPCondition::TypesText() const {
  std::string text = "(";
  for (int i = 0; i < GetTypeCount(); ++i) {
    if (i > 0) text += ", ";
    if (GetTypeOnly(i) == 1) text += "ONLY ";
    text += GetTypeName(i)->AsString(false);
  }
  return text + ")";
}

std::string REPTextCondition::AsString() const {
  std::string const text(GetExpression1());
  return GetParens() ? "(" + text + ")" : text;
}
