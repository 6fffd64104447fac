#include "repora/queries/conditions.h"

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "repora/queries/select.h"

namespace {

using Type = REPCondType_e;
using Condition = std::unique_ptr<REPCondition>;

Condition Leaf(int type, char const* e1 = "A", char const* e2 = "B", char const* e3 = "") {
  auto leaf = std::make_unique<REPCondition>(static_cast<Type>(type));
  leaf->SetExpression1(e1);
  leaf->SetExpression2(e2);
  leaf->SetExpression3(e3);
  return leaf;
}

Condition Node(Type type, Condition first, Condition second = nullptr) {
  auto node = std::make_unique<REPCondition>(type);
  node->SetCondition1(first.release());
  node->SetCondition2(second.release());
  return node;
}

// Every kind by its value, with the operands A, B, C and the conditions P IS NULL and Q IS NULL.
std::vector<std::string> KindTexts() {
  std::istringstream all(
      "|A = B|A != B|A < B|A > B|A <= B|A >= B|A LIKE B ESCAPE 'C'|A NOT LIKE B ESCAPE 'C'|"
      "A LIKEC B ESCAPE 'C'|A NOT LIKEC B ESCAPE 'C'|A LIKE2 B ESCAPE 'C'|"
      "A NOT LIKE2 B ESCAPE 'C'|A LIKE4 B ESCAPE 'C'|A NOT LIKE4 B ESCAPE 'C'|"
      "A BETWEEN B AND C|A NOT BETWEEN B AND C|A IN B|A NOT INB|EXISTS(A)|A IS OF()|"
      "A IS NOT OF()|NOT P IS NULL|P IS NULL AND Q IS NULL|P IS NULL OR Q IS NULL|(P IS NULL)|"
      "A IS NAN|A IS NOT NAN|A IS INFINITE|A IS NOT INFINITE|A IS NULL|A IS NOT NULL||"
      "A IS A SET|A IS NOT A SET|||A IS EMPTY|A IS NOT EMPTY|REGEXP_LIKE(A, 'B', 'C')|"
      "A MEMBER B|A MEMBER OF B|A NOT MEMBER B|A NOT MEMBER OF B|A SUBMULTISET B|"
      "A SUBMULTISET OF B|A NOT SUBMULTISET B|A NOT SUBMULTISET OF B||");
  std::vector<std::string> texts;
  for (std::string text; std::getline(all, text, '|');) texts.push_back(text);
  return texts;
}

TEST(Conditions, EveryKind) {
  auto const texts = KindTexts();
  ASSERT_EQ(texts.size(), 49U);
  for (int kind = 0; kind < 49; ++kind) {
    auto const& text = texts[static_cast<std::size_t>(kind)];
    auto const condition = Leaf(kind, "A", "B", "C");
    condition->SetCondition1(Leaf(30, "P").release());
    condition->SetCondition2(Leaf(30, "Q").release());
    EXPECT_EQ(condition->AsString(), text);
    condition->SetParens(true);
    EXPECT_EQ(condition->AsString(), "(" + text + ")");
  }
  for (std::size_t like = 7; like <= 14; ++like)
    EXPECT_EQ(Leaf(static_cast<int>(like))->AsString() + " ESCAPE 'C'", texts[like]);
  EXPECT_EQ(Leaf(39)->AsString(), "REGEXP_LIKE(A, 'B')");
  EXPECT_EQ(Leaf(-1)->AsString(), "");
}

TEST(Conditions, QueriesAndQuantifiers) {
  struct {
    int kind, quantifier;
    char const* text;
  } const cases[] = {
      {1, 0, "SAL = (SELECT 1)"},      {2, 1, "SAL != ANY (SELECT 1)"},
      {3, 2, "SAL < SOME (SELECT 1)"}, {6, 3, "SAL >= ALL (SELECT 1)"},
      {4, 4, "SAL > (SELECT 1)"},      {17, 3, "SAL IN (SELECT 1)"},
      {18, 0, "SAL NOT IN(SELECT 1)"}, {19, 1, "EXISTS(SAL)"},
      {40, 1, "SAL MEMBER (1, 2)"},    {7, 1, "SAL LIKE (1, 2)"},
  };
  for (auto const& expected : cases) {
    auto const condition = Leaf(expected.kind, "SAL", "(1, 2)");
    condition->SetCondTypeMod(static_cast<REPCondTypeMod_e>(expected.quantifier));
    condition->SetSelect(new REPSelect);
    condition->GetSelect()->SetText("SELECT 1");
    EXPECT_EQ(condition->AsString(), expected.text);
  }
  auto const plain = Leaf(1, "SAL", "(1, 2)");
  plain->SetCondTypeMod(REPCondTypeMod_e::Any);
  EXPECT_EQ(plain->AsString(), "SAL = ANY (1, 2)");
}

TEST(Conditions, TypesStandInReverseOrderOfAdding) {
  auto const condition = Leaf(20, "X");
  condition->AddType(new REPName("HR.\"T1\""), 2);
  condition->AddType(nullptr, 1);
  condition->AddType(new REPName("T2"), 1);
  condition->AddType(new REPName("T3"), 0);
  EXPECT_EQ(condition->AsString(), "X IS OF(T3, ONLY T2, HR.T1)");
  condition->SetType(true);
  EXPECT_EQ(condition->AsString(), "X IS OF TYPE(T3, ONLY T2, HR.T1)");
  EXPECT_EQ(condition->GetTypeOnly(2), 2);
  EXPECT_THROW(condition->GetTypeOnly(3), std::invalid_argument);
}

TEST(Conditions, MissingPartsAreEmpty) {
  std::string texts;
  for (int kind = 22; kind <= 25; ++kind) texts += REPCondition(Type(kind)).AsString() + "|";
  EXPECT_EQ(texts, "NOT | AND | OR |()|");
  EXPECT_EQ(Leaf(1, nullptr, nullptr, nullptr)->AsString(), " = ");
}

// A condition of another class renders and destroys itself, wherever it stands in a tree.
class MarkedCondition final : public REPCondition {
 public:
  explicit MarkedCondition(int& destroyed) : REPCondition(Type::IsNull), destroyed_(destroyed) {}
  ~MarkedCondition() override { ++destroyed_; }
  std::string AsString() const override { return "<" + REPCondition::AsString() + ">"; }

 private:
  int& destroyed_;
};

TEST(Conditions, DerivedClassesRenderThemselves) {
  int destroyed = 0;
  auto right = std::make_unique<MarkedCondition>(destroyed);
  right->SetCondType(Type::And);
  right->SetCondition1(Leaf(30, "L").release());
  right->SetCondition2(new MarkedCondition(destroyed));
  auto tree = Node(Type::Or, Node(Type::Not, std::make_unique<MarkedCondition>(destroyed)),
                   std::move(right));
  EXPECT_EQ(tree->AsString(), "NOT < IS NULL> OR <L IS NULL AND < IS NULL>>");
  tree.reset();
  EXPECT_EQ(destroyed, 3);
}

// A stack of 8 MB would hold none of these trees if a node took a call.
TEST(Conditions, DepthIsBoundedByMemoryAlone) {
  constexpr int kTerms = 100'000;
  std::string chain = "A IS NULL";
  for (int i = 1; i < kTerms; ++i) chain += " AND A IS NULL";
  for (bool const left_deep : {true, false}) {
    auto tree = Leaf(30);
    for (int i = 1; i < kTerms; ++i)
      tree = left_deep ? Node(Type::And, std::move(tree), Leaf(30))
                       : Node(Type::And, Leaf(30), std::move(tree));
    EXPECT_TRUE(tree->AsString() == chain) << left_deep;
  }
  auto nested = Leaf(30);
  for (int i = 0; i < kTerms; ++i) {
    nested = Node(i % 2 == 0 ? Type::Not : Type::Parenthesised, std::move(nested));
    nested->SetParens(i % 4 == 0);
  }
  EXPECT_EQ(nested->AsString().size(), 9U + kTerms / 2 * (4 + 2) + kTerms / 4 * 2);
}

}  // namespace
