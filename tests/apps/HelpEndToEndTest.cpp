// What the programs tell with --help, each verb of each.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "KeocamRun.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kHelpWidth = 79;

std::vector<std::string> verbsIn(const std::string& help) {
  std::vector<std::string> verbs;
  bool listed = false;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line == "Verbs:") {
      listed = !line.empty();
    } else if (listed) {
      verbs.push_back(line.substr(2, line.find(' ', 2) - 2));
    }
  }
  return verbs;
}

// Looks at the help of the verb named and of those behind it, and returns how many there were.
int helpsThatFit(const Arguments& verb) {
  Arguments arguments = verb;
  arguments.emplace_back("--help");
  const Ended help = keocam(arguments);
  EXPECT_EQ(help.status, 0) << help.error;
  EXPECT_TRUE(contains(help.output, "Usage: keocam")) << help.output;
  for (const char* const leak : {"Needs:", "Excludes:", "(Env:"}) EXPECT_FALSE(contains(help.output, leak)) << leak;
  std::istringstream lines(help.output);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), kHelpWidth) << line;
  int count = 1;
  for (const std::string& behind : verbsIn(help.output)) {
    Arguments longer = verb;
    longer.push_back(behind);
    count += helpsThatFit(longer);
  }
  return count;
}

TEST(KeocamHelp, OfEveryVerb_FitsATerminal) {
  // The program's own, its 13 verbs, and 12 behind "range", "core", "lens" and "calibration".
  EXPECT_EQ(helpsThatFit({}), 26);
}

TEST(KeocamHelp, OfTheSimulatorsCalibration_FitsATerminal) { EXPECT_EQ(helpsThatFit({"simulate", "calibration"}), 1); }

}  // namespace
}  // namespace keocam::cli
