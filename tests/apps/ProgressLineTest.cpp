// Progress on terminals of several kinds.
#include "apps/keocam/terminal/ProgressLine.h"

#include <gtest/gtest.h>

#include <sstream>

namespace keocam::cli {
namespace {

constexpr Terminal kFile{false, false, 80};
constexpr Terminal kTerminal{true, false, 12};
constexpr Terminal kColourTerminal{true, true, 80};

std::string shown(const Terminal& terminal, const std::string& text, ProgressMood mood) {
  std::ostringstream out;
  {
    ProgressLine progress(out, [&] { return terminal; });
    progress.show(text, mood);
  }
  return out.str();
}

TEST(ProgressLine, File_GetsPlainWholeLines) {
  EXPECT_EQ(shown(kFile, "longer than twelve", ProgressMood::Trouble), "longer than twelve\n");
}

TEST(ProgressLine, Terminal_IsRewrittenInPlaceWithinItsWidth) {
  std::ostringstream out;
  ProgressLine progress(out, [] { return kTerminal; });
  progress.show("longer than twelve", ProgressMood::Normal);
  progress.show("short", ProgressMood::Normal);
  EXPECT_EQ(out.str(), "\rlonger tha~\x1b[K\rshort\x1b[K");
  progress.finish();
  progress.finish();
  EXPECT_EQ(out.str(), "\rlonger tha~\x1b[K\rshort\x1b[K\n") << "the line is ended once";
}

TEST(ProgressLine, Trouble_IsColouredOnlyWhereColourIsWanted) {
  EXPECT_EQ(shown(kColourTerminal, "x", ProgressMood::Trouble), "\r\x1b[33mx\x1b[0m\x1b[K\n");
  EXPECT_EQ(shown(kColourTerminal, "x", ProgressMood::Normal), "\rx\x1b[K\n");
  EXPECT_EQ(shown(kTerminal, "x", ProgressMood::Trouble), "\rx\x1b[K\n");
}

}  // namespace
}  // namespace keocam::cli
