#include "splitjoin/names_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "viewer/run_time_error.h"

namespace {

using bwp::CanBeQuoted;
using bwp::NamesText;
using bwp::ParseNames;
using bwp::QuotedNames;
using Names = std::vector<std::string>;

TEST(NamesText, QuotesEachNameAndFollowsItByABlank) {
  EXPECT_EQ(NamesText({"c", "a", "b"}), "\"c\" \"a\" \"b\" ");
  EXPECT_EQ(NamesText({}), "");
}

TEST(CanBeQuoted, HoldsForNamesWithoutAQuote) {
  EXPECT_TRUE(CanBeQuoted({}));
  EXPECT_TRUE(CanBeQuoted({"a", "it's b"}));
  EXPECT_FALSE(CanBeQuoted({"a", "12\" disk.001"}));
}

TEST(QuotedNames, LoseTheBlanksAtTheEnds) {
  EXPECT_EQ(QuotedNames("\"c\" \"a\" "), "\"c\" \"a\"");
}

TEST(QuotedNames, GainTheQuotesThatAreMissing) {
  EXPECT_EQ(QuotedNames("a.001"), "\"a.001\"");
  EXPECT_EQ(QuotedNames(" a b.001 "), "\"a b.001\"");
  EXPECT_EQ(QuotedNames("\"a.001"), "\"a.001\"");
  EXPECT_EQ(QuotedNames("a.001\""), "\"a.001\"");
  EXPECT_EQ(QuotedNames(""), "\"\"");
  EXPECT_EQ(QuotedNames("   "), "\"\"");
  EXPECT_EQ(QuotedNames("\""), "\"") << "a quote at either end, though it is the same one";
}

TEST(ParseNames, FindsWhatIsBetweenQuotes) {
  EXPECT_EQ(ParseNames("\"a.001\""), (Names{"a.001"}));
  EXPECT_EQ(ParseNames("\"c\" \"a b\""), (Names{"c", "a b"}));
  EXPECT_EQ(ParseNames("\"c\"\"a\""), (Names{"c", "a"}));
}

TEST(ParseNames, RefusesAQuoteThatIsNotClosed) {
  try {
    ParseNames("\"a\" \"");
    FAIL() << "taken";
  } catch (const bwp::RunTimeError& error) {
    EXPECT_EQ(error.number, 5);
  }
}

RC_GTEST_PROP(NamesText, IsReadBackAsItWasBuilt, ()) {
  const auto names = *rc::gen::nonEmpty(rc::gen::container<Names>(
      rc::gen::nonEmpty(rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab .1"))))));
  RC_ASSERT(ParseNames(QuotedNames(NamesText(names))) == names);
}

}  // namespace
