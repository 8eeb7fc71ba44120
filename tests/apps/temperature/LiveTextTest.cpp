// Lines that are rewritten on a terminal.
#include "apps/keocam/temperature/LiveText.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

TEST(LiveText, First_IsWrittenWhereTheCursorIs) {
  LiveText live;
  EXPECT_EQ(live.instead("a\nb\n"), "\ra\x1b[K\nb\x1b[K\n\x1b[J");
}

TEST(LiveText, Next_TakesThePlaceOfTheOneBefore) {
  LiveText live;
  live.instead("a\nb\nc\n");
  EXPECT_EQ(live.instead("d\n"), "\r\x1b[3Ad\x1b[K\n\x1b[J");
  EXPECT_EQ(live.instead("e\n"), "\r\x1b[1Ae\x1b[K\n\x1b[J");
}

}  // namespace
}  // namespace keocam::cli
