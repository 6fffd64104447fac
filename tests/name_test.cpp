#include "repora/core/name.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "repora/core/letters.h"

namespace {

struct NameCase {
  char const* text;
  int count;
  bool quoted, compound, expression;
  char const* as_string;        // with quotes
  char const* owner;            // without
  char const* name;             // without
  char const* map_full_name;    // without
  char const* map_full_quoted;  // with
};

class NameParsing : public testing::TestWithParam<NameCase> {};

TEST_P(NameParsing, SplitsAndRenders) {
  auto const& expected = GetParam();
  REPName const name(expected.text);
  EXPECT_EQ(name.GetCount(), expected.count);
  EXPECT_EQ(name.IsQuoted(), expected.quoted);
  EXPECT_EQ(name.IsCompound(), expected.compound);
  EXPECT_EQ(name.IsExpression(), expected.expression);
  EXPECT_EQ(name.AsString(true), expected.as_string);
  EXPECT_EQ(name.GetOwnerName(false), expected.owner);
  EXPECT_EQ(name.GetName(false), expected.name);
  EXPECT_EQ(name.GetMapFullName(false), expected.map_full_name);
  EXPECT_EQ(name.GetMapFullName(true), expected.map_full_quoted);
}

INSTANTIATE_TEST_SUITE_P(
    Names, NameParsing,
    testing::Values(
        NameCase{"SCOTT.EMP", 2, false, true, false, "SCOTT.EMP", "SCOTT", "EMP", "SCOTT.EMP",
                 "SCOTT.EMP"},
        NameCase{"scott.emp", 2, false, true, false, "scott.emp", "scott", "emp", "SCOTT.EMP",
                 "SCOTT.EMP"},
        NameCase{"\"My Table\"", 1, true, false, true, "\"My Table\"", "", "My Table", "MY TABLE",
                 "\"My Table\""},
        NameCase{"\"Emp\".\"Name\"", 2, true, true, false, "\"Emp\".\"Name\"", "Emp", "Name",
                 "EMP.NAME", "\"Emp\".\"Name\""},
        NameCase{"\"A.B\"", 2, true, true, false, "\"A\".\"B\"", "A", "B", "A.B", "\"A\".\"B\""},
        NameCase{"a.\"B\"", 2, true, true, false, "a.\"B\"", "a", "B", "A.B", "A.\"B\""},
        NameCase{"SYSDATE + 1", 1, false, false, true, "SYSDATE + 1", "", "SYSDATE + 1",
                 "SYSDATE + 1", "SYSDATE + 1"},
        NameCase{"a..b", 2, false, true, false, "a.b", "a", "b", "A.B", "A.B"},
        NameCase{".a.", 1, false, false, false, "a", "", "a", "A", "A"},
        NameCase{"*", 1, false, false, false, "*", "", "*", "*", "*"},
        NameCase{"", 1, false, false, false, "", "", "", "", ""},
        NameCase{"a.b.c d", 3, false, true, false, "a.b.c d", "a.b", "c d", "A.B.C D", "A.B.C D"},
        NameCase{"..", 0, false, false, false, "", "", "", "", ""},
        NameCase{"stra\xC3\x9F"
                 "e.\xC3\xA4\xCE\xB1\xD0\xB6",
                 2, false, true, false,
                 "stra\xC3\x9F"
                 "e.\xC3\xA4\xCE\xB1\xD0\xB6",
                 "stra\xC3\x9F"
                 "e",
                 "\xC3\xA4\xCE\xB1\xD0\xB6",
                 "STRA\xC3\x9F"
                 "E.\xC3\x84\xCE\x91\xD0\x96",
                 "STRA\xC3\x9F"
                 "E.\xC3\x84\xCE\x91\xD0\x96"}));

TEST(Name, GrowsAtBothEnds) {
  REPName name("EMP");
  name.AddHead("\"Scott\"");
  name.AddTail("\"A.B\"");
  name.AddHead("DB");
  EXPECT_TRUE(name.IsCompound());
  EXPECT_EQ(name.AsString(true), "DB.\"Scott\".EMP.\"A.B\"");
  EXPECT_EQ(name.GetOwnerName(true), "DB.\"Scott\".EMP");
  EXPECT_EQ(name.GetMapOwnerName(false), "DB.SCOTT.EMP");
  EXPECT_EQ(name.GetMapName(false), "A.B");  // quoted: keeps its case
  REPName mixed("\"Emp\".\"Name\"");
  EXPECT_EQ(mixed.GetMapName(false), "Name");
  EXPECT_EQ(mixed.GetMapName(true), "\"Name\"");
}

TEST(Name, QuoteMarksFollowTheSegments) {
  REPName name("EMP");
  name.SetQuoted(true);
  EXPECT_EQ(name.AsString(true), "EMP");  // the name counts as quoted, no segment does
  REPName tail;
  tail.AddTail("half\"");
  EXPECT_TRUE(tail.IsQuoted());
  EXPECT_EQ(tail.AsString(true), "\"half\"");
  REPName none;
  none.AddTail(nullptr);
  EXPECT_TRUE(none.IsEmpty());
  EXPECT_EQ(REPName().GetMapName(true), "");
  EXPECT_TRUE(REPName(static_cast<char const*>(nullptr)).IsEmpty());
}

TEST(NameList, KeepsOrderAndRefusesBadPositions) {
  REPNameList names;
  names.AddTail(new REPName("\"b\""));
  names.AddHead(new REPName("A"));
  names.AddHead(nullptr);
  EXPECT_EQ(names.AsString(true), "(A, b)");
  EXPECT_EQ(names.AsString(false), "A, b");
  EXPECT_THROW(names.GetName(2), std::invalid_argument);
  EXPECT_THROW(names.GetName(-1), std::invalid_argument);
}

TEST(Letters, ChangeCaseWithoutChangingLength) {
  struct {
    char const* lower;
    char const* upper;
  } const pairs[] = {{"abcxyz", "ABCXYZ"},
                     {"\xC3\xA0\xC3\xBE", "\xC3\x80\xC3\x9E"},  // Latin-1 letters
                     {"\xC4\x81\xC5\xBE", "\xC4\x80\xC5\xBD"},  // Latin Extended
                     {"\xC3\xBF", "\xC5\xB8"},                  // y with diaeresis
                     {"\xCE\xAC\xCF\x89", "\xCE\x86\xCE\xA9"},  // Greek
                     {"\xD1\x91\xD1\x8F", "\xD0\x81\xD0\xAF"},  // Cyrillic
                     {"\xE1\xBA\xA1", "\xE1\xBA\xA0"},          // Latin with dot below
                     {"\xC3\xB7", "\xC3\xB7"},                  // the division sign is no letter
                     {"\xC3\x9F", "\xC3\x9F"}};                 // sharp s has no upper case here
  for (auto const& [lower, upper] : pairs) {
    EXPECT_EQ(repora::ToUpper(lower), upper);
    EXPECT_EQ(repora::ToLower(upper), lower);
  }
  EXPECT_EQ(repora::ToUpper("\xE4\xC3"), "\xE4\xC3");  // not UTF-8: as it is
  EXPECT_EQ(repora::ToMixed("ORDER_ITEM_ID"), "Order Item Id");
  EXPECT_EQ(repora::ToMixed("EMP2NAME"), "Emp2name");
  EXPECT_EQ(repora::ToMixed("\xC3\xA9T\xC3\x89_a"), "\xC3\x89t\xC3\xA9 A");
}

}  // namespace
