// "Did you mean ...?"
#include "apps/keocam/terminal/Suggestion.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

TEST(Suggestion, ASlip_FindsTheWord) {
  const std::vector<std::string> verbs = {"list", "stream", "simulate"};
  EXPECT_EQ(nearest("strem", verbs), "stream");
  EXPECT_EQ(nearest("lsit", {"list"}), "") << "two of four characters are wrong";
  EXPECT_EQ(nearest("lis", verbs), "list");
  EXPECT_EQ(nearest("simmulate", verbs), "simulate");
}

TEST(Suggestion, AnotherWord_FindsNothing) {
  EXPECT_EQ(nearest("record", {"list", "stream", "simulate"}), "");
  EXPECT_EQ(nearest("", {}), "");
}

TEST(Suggestion, UpperAndLowerCase_AreEqual) { EXPECT_EQ(nearest("keod2001", {"KEOD2001"}), "KEOD2001"); }

TEST(Suggestion, TheNearestOfSeveral_Wins) { EXPECT_EQ(nearest("KEOD2012", {"KEOD2001", "KEOD2011"}), "KEOD2011"); }

TEST(Suggestion, DidYouMean_IsAPhraseOrNothing) {
  EXPECT_EQ(didYouMean("lis", {"list"}), "; did you mean \"list\"?");
  EXPECT_EQ(didYouMean("qqqq", {"list"}), "");
  EXPECT_EQ(didYouMean("a\x1b"
                       "bc",
                       {"a\x1b"
                        "bd"}),
            "; did you mean \"a\\x1bbd\"?")
      << "candidates are untrusted";
}

}  // namespace
}  // namespace keocam::cli
