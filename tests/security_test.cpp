// What a host can make of users, profiles, contexts, links and comments beyond what a script says.
#include <gtest/gtest.h>

#include "repora/code/comments.h"
#include "repora/code/contexts.h"
#include "repora/code/database_links.h"
#include "repora/code/directories.h"
#include "repora/code/profiles.h"
#include "repora/code/roles.h"
#include "repora/code/users.h"
#include "tests/run_fixture.h"

namespace repora::test {
namespace {

TEST(SecurityStatements, WithoutFieldsRenderTheirKeywordsAndNeedAProcessor) {
  REPCreateUser user;
  REPCreateRole role;
  REPCreateProfile profile;
  REPCreateContext context;
  REPCreateDirectory directory;
  REPCreateDatabaseLink link;
  REPComment comment;
  std::pair<REPStatement const*, char const*> const empty[] = {
      {&user, "CREATE USER  IDENTIFIED BY "},   {&role, "CREATE ROLE ;"},
      {&profile, "CREATE PROFILE  LIMIT;"},     {&context, "CREATE CONTEXT  USING ;"},
      {&directory, "CREATE DIRECTORY  AS '';"}, {&link, "CREATE DATABASE LINK "},
      {&comment, "COMMENT ON  IS '';"}};
  for (auto const& [statement, text] : empty) {
    EXPECT_EQ(statement->AsString(), text);
    EXPECT_EQ(statement->Process(nullptr), REPProcessError);
  }
  EXPECT_EQ(REPCreateUserQuota().AsString(), "QUOTA  ON ");
}

TEST(SecurityStatements, ValuesOutsideTheListsRenderNothing) {
  REPCreateUser user;
  user.SetUserName("u");
  user.SetIdentify(static_cast<REPUserIdentify_e>(9));
  user.SetAccount(static_cast<REPUserAccount_e>(9));
  EXPECT_EQ(user.AsString(), "CREATE USER u");
  REPCreateRole role;
  role.SetRoleName(new REPName("r"));
  role.SetRoleType(static_cast<REPRoleType_e>(9));
  role.SetPackage(new REPName("p"));
  EXPECT_EQ(role.AsString(), "CREATE ROLE r;");
  // A parameter of an unknown type is given, but has no text.
  REPCreateProfile profile;
  profile.SetIdleTime(static_cast<REPResParmType_e>(9), "1");
  profile.SetLockTime(static_cast<REPPassParmType_e>(9), "1");
  EXPECT_EQ(profile.AsString(), "CREATE PROFILE  LIMIT IDLE_TIME  PASSWORD_LOCK_TIME ;");
}

TEST(CreateUserQuota, HoldsItsSizeAndIsKeptInOrder) {
  REPCreateUser user;
  for (auto const* const size : {"10k", "20B", "1e"}) {
    auto* const quota = new REPCreateUserQuota;
    quota->SetSize(size);
    quota->SetTableSpace(new REPName("ts"));
    user.SetQuota(quota);
  }
  user.GetQuota(1)->GetSizeClause().SetSize("99");  // a copy
  user.GetQuota(2)->SetUnlimited();
  EXPECT_EQ(user.AsString(),
            "CREATE USER  IDENTIFIED BY  QUOTA 10K ON ts QUOTA 20 ON ts QUOTA UNLIMITED ON ts");
  EXPECT_EQ(user.GetNumQuotas(), 3);
  EXPECT_THROW(user.GetQuota(3), std::invalid_argument);
}

TEST(ProfileParameters, TakeOfATextWhatTheirTypeHolds) {
  struct ResourceCase {
    int type;
    char const* text;
    int kept_type;
    char const* value;
    char const* rendered;
  };
  for (auto const& [type, text, kept_type, value, rendered] :
       {ResourceCase{1, "15", 1, "15", "15"}, ResourceCase{1, "10K", 2, "10", "10K"},
        ResourceCase{1, " 10m", 3, "10", "10M"}, ResourceCase{1, "abc", 1, "0", "0"},
        ResourceCase{1, nullptr, 1, "0", "0"}, ResourceCase{2, "15M", 2, "15", "15K"},
        ResourceCase{3, "15.5K", 3, "15", "15M"}, ResourceCase{4, "15", 4, "", "UNLIMITED"},
        ResourceCase{5, "15", 5, "", "DEFAULT"}, ResourceCase{0, "15", 0, "", ""}}) {
    REPResourceParameter parameter;
    parameter.Set(REPResParmType_e::Number, "7");
    parameter.Set(static_cast<REPResParmType_e>(type), text);
    REPResourceParameter const copy(parameter);
    EXPECT_EQ(static_cast<int>(copy.GetType()), kept_type) << type;
    EXPECT_STREQ(copy.GetValue(), value) << type;
    EXPECT_EQ(copy.AsString(), rendered) << type;
  }
  for (auto const& [type, value, rendered] :
       {std::tuple(1, "10K", "10K"), std::tuple(2, "10K", "10K"), std::tuple(3, "", "UNLIMITED"),
        std::tuple(4, "", "NULL"), std::tuple(5, "", "DEFAULT"), std::tuple(0, "", "")}) {
    REPPasswordParameter parameter;
    parameter.Set(REPPassParmType_e::Number, "7");
    parameter.Set(static_cast<REPPassParmType_e>(type), "10K");
    REPPasswordParameter copy;
    copy = parameter;
    EXPECT_STREQ(copy.GetValue(), value) << type;
    EXPECT_EQ(copy.AsString(), rendered) << type;
  }
}

TEST(CreateDatabaseLink, ACurrentUserGoesBeforeANamedOne) {
  Job job;
  job.Run([](REPProcessor& processor) {
    REPCreateDatabaseLink link;
    link.SetDatabaseName(new REPName("l"));
    link.SetCurrUser(true);
    link.SetUser("u");
    link.SetPassword("p");
    link.SetAuthPassword("q");
    EXPECT_EQ(link.Process(&processor), REPProcessOK);
    auto const* const item = processor.FindItemPtr(
        processor.GetRoot(), ORVTypes::oOracleDatabaseLink, link.GetDatabaseName());
    EXPECT_EQ(Properties(*item), "pConnectionType=0 pName='l'");
    EXPECT_EQ(link.AsString(), "CREATE DATABASE LINK l CONNECT TO CURRENT USER");
  });
}

// --- Comments on what other statements create ---

class CommentTest : public testing::TestWithParam<int> {
 protected:
  // The properties of an item with its column, all called x, behind a comment on it.
  std::string Comment(MOXId item_type, REPComment_e type, char const* name) {
    MemoryModelOptions options;
    options.model_type = GetParam();
    MemoryModelSet model(options);
    REPOracleProcessor processor;
    processor.SetModelSet(&model);
    std::string properties;
    processor.AddStatement(new FunctionStatement([&](REPProcessor& running) {
      REPName const x("x");
      MOXActionSummaryItem* item = nullptr;
      MOXActionSummaryItem* column = nullptr;
      running.AddItem(running.GetRoot(), item_type, &x, item);
      running.AddItem(item->Id(), ORVTypes::oAttribute, &x, column);
      REPComment comment;
      comment.SetCommentType(type);
      comment.SetCommentName(new REPName(name));
      comment.SetCommentText("it's");
      EXPECT_EQ(comment.Process(&running), REPProcessOK);
      properties = Properties(*item) + " / " + Properties(*column);
      return REPProcessOK;
    }));
    processor.Process();
    return properties;
  }
};

INSTANTIATE_TEST_SUITE_P(ModelTypes, CommentTest, testing::Values(1, 2, 3));

TEST_P(CommentTest, OnlyATableAndItsColumnsHaveACommentBesideTheDefinition) {
  auto const commented =
      std::string(GetParam() == 3 ? "pDefinition" : "pComment") + "='it's' pName='x'";
  EXPECT_EQ(Comment(ORVTypes::oEntity, REPComment_e::Table, "x"), commented + " / pName='x'");
  EXPECT_EQ(Comment(ORVTypes::oEntity, REPComment_e::Column, "x.x"), "pName='x' / " + commented);
  for (auto const type : {ORVTypes::oView, ORVTypes::oCachedView}) {
    EXPECT_EQ(Comment(type, REPComment_e::Table, "x"), "pDefinition='it's' pName='x' / pName='x'");
    EXPECT_EQ(Comment(type, REPComment_e::Column, "x.x"),
              "pName='x' / pDefinition='it's' pName='x'");
  }
  EXPECT_EQ(Comment(ORVTypes::oCachedView, REPComment_e::MaterializedView, "x"),
            "pDefinition='it's' pName='x' / pName='x'");
  EXPECT_EQ(Comment(ORVTypes::oOracleCachedViewLog, REPComment_e::Table, "x"),
            "pDefinition='it's' pName='x' / pName='x'");
  EXPECT_EQ(Comment(ORVTypes::oEntity, REPComment_e::None, "x"), "pName='x' / pName='x'");
}

TEST(CommentOnTable, TakesATableBeforeViewsAndALogLast) {
  Job job;
  job.Run([](REPProcessor& processor) {
    REPName const x("x");
    std::vector<MOXActionSummaryItem*> items;
    REPComment comment;
    comment.SetCommentType(REPComment_e::Table);
    comment.SetCommentName(new REPName("x"));
    comment.SetCommentText("c");
    // From the last to the first in the order of the search, the log under an owner of its own.
    for (auto const type : {ORVTypes::oOracleCachedViewLog, ORVTypes::oView, ORVTypes::oCachedView,
                            ORVTypes::oEntity}) {
      auto const owner = items.empty() ? 77 : processor.GetRoot();
      processor.AddItem(owner, type, &x, items.emplace_back());
      EXPECT_EQ(comment.Process(&processor), REPProcessOK);
      for (auto* const item : items) {
        EXPECT_EQ(TextProperty(*item, MOXTypes::pDefinition),
                  item == items.back() ? "c" : "(absent)");
        item->RemoveProperty(MOXTypes::pDefinition);
      }
    }
  });
}

}  // namespace
}  // namespace repora::test
