// The layout of tables.
#include "apps/keocam/terminal/Table.h"

#include <gtest/gtest.h>

#include <sstream>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST(Table, Cells_StandUnderTheirHeadings) {
  EXPECT_EQ(formatTable({"A", "LONG", "C"}, {{"first", "x", "1"}, {"2nd", "yy", "22"}}, 80),
            "A      LONG  C\n"
            "first  x     1\n"
            "2nd    yy    22\n");
}

TEST(Table, NoRows_IsTheHeadingAlone) { EXPECT_EQ(formatTable({"A", "B"}, {}, 80), "A  B\n"); }

TEST(Table, EmptyCells_LeaveNoBlanksAtTheEnd) { EXPECT_EQ(formatTable({"A", "B"}, {{"x", ""}}, 80), "A  B\nx\n"); }

TEST(Table, LettersOfTwoBytes_TakeOneColumn) { EXPECT_EQ(formatTable({"A", "B"}, {{"ü", "1"}}, 80), "A  B\nü  1\n"); }

TEST(Table, LongCells_AreCutToTheWidth) {
  const std::string hostile(128, 'm');
  const auto lines = linesOf(formatTable({"SERIAL", "MODEL", "ADDRESS", "INTERFACE", "IN USE"},
                                         {{"KEOD2001", hostile, "192.168.100.100", "enp0s31f6", "yes"}}, 80));
  ASSERT_EQ(lines.size(), 2U);
  for (const std::string& line : lines) EXPECT_LE(columnsOf(line), 80U);
  EXPECT_EQ(columnsOf(lines[0]), 80U);
  EXPECT_NE(lines[1].find("KEOD2001"), std::string::npos);
  EXPECT_NE(lines[1].find("m~"), std::string::npos);
  EXPECT_NE(lines[1].find("192.168.100.100"), std::string::npos) << "only the widest column gives way";
}

TEST(Table, WidthBelowTheHeadings_KeepsTheHeadings) {
  EXPECT_EQ(formatTable({"SERIAL", "MODEL"}, {{"KEOD2001", "KEOsim-640"}}, 3), "SERIAL  MODEL\nKEOD2~  KEOs~\n");
}

TEST(Table, UnlimitedWidth_CutsNothing) {
  const std::string longest(500, 'x');
  EXPECT_NE(formatTable({"A"}, {{longest}}, kUnlimitedWidth).find(longest), std::string::npos);
}

}  // namespace
}  // namespace keocam::cli
