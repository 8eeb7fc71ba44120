// How long silence must last on a line of a given speed.
#include "pv/aravis/SerialTiming.h"

#include <gtest/gtest.h>

namespace {

using keocam::baudRateOf;
using keocam::SerialTiming;

TEST(SerialTimingTest, ForBaudRate_SilenceIsFourCharactersButNeverBelowHalfAMillisecond) {
  EXPECT_EQ(SerialTiming::forBaudRate(9600).silence_us.count(), 4583);
  EXPECT_EQ(SerialTiming::forBaudRate(57600).silence_us.count(), 763);
  EXPECT_EQ(SerialTiming::forBaudRate(921600).silence_us.count(), 500);
  EXPECT_LT(SerialTiming::forBaudRate(57600).pause_us, SerialTiming::forBaudRate(57600).silence_us);
}

TEST(SerialTimingTest, BaudRateOf_ReadsTheEntrysNumber) {
  EXPECT_EQ(baudRateOf("Baud57600"), 57600U);
  EXPECT_EQ(baudRateOf("Baud921600"), 921600U);
  EXPECT_EQ(baudRateOf("9600"), 9600U);
}

TEST(SerialTimingTest, BaudRateOf_NoNumberOfALine_IsTheDefault) {
  for (const char* text : {"", "Fast", "Baud0", "Baud99999999999999999999999"}) {
    EXPECT_EQ(baudRateOf(text), 57600U) << text;
  }
}

}  // namespace
