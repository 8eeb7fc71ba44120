// Tables whose last column goes on in further lines.
#include "apps/keocam/terminal/WrappedTable.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

TEST(WrappedTable, LongLastCell_GoesOnUnderItself) {
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", "one two three four five six"}, {"y", "1"}}, 24),
            "A  B\n"
            "x  one two three four\n"
            "   five six\n"
            "y  1\n");
}

TEST(WrappedTable, LineThatFitsExactly_IsNotBroken) {
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", "12345678901 345678901"}}, 24), "A  B\nx  12345678901 345678901\n");
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", "12345678901 3456789012"}}, 24), "A  B\nx  12345678901\n   3456789012\n");
}

TEST(WrappedTable, WithoutWidth_NothingIsBroken) {
  const std::string text(500, 'b');
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", text + ' ' + text}}, kUnlimitedWidth),
            "A  B\nx  " + text + ' ' + text + '\n');
}

TEST(WrappedTable, WordLongerThanTheLine_GoesOnInTheNextOne) {
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", "a " + std::string(40, 'b') + " c"}}, 24),
            "A  B\nx  a\n   " + std::string(21, 'b') + "\n   " + std::string(19, 'b') + " c\n");
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", "°°°°°°°°°°"}}, 11), "A  B\nx  °°°°°°°°\n   °°\n");
}

TEST(WrappedTable, EmptyCellsAndNoRows_AreHarmless) {
  EXPECT_EQ(wrappedTable({"A", "B"}, {{"x", ""}}, 80), "A  B\nx\n");
  EXPECT_EQ(wrappedTable({"A", "B"}, {}, 80), "A  B\n");
  EXPECT_EQ(wrappedTable({}, {}, 80), "");
}

TEST(WrappedTable, TerminalTooNarrowForTheOtherColumns_LosesNothing) {
  EXPECT_EQ(wrappedTable({"NAME", "TAKES"}, {{"a-name-of-some-length", "one two three-and-more"}}, 1),
            "NAME                   TAKES\n"
            "a-name-of-some-length  one two\n"
            "                       three-an\n"
            "                       d-more\n");
}

}  // namespace
}  // namespace keocam::cli
