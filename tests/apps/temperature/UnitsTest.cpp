// Units, numbers and times as text.
#include <gtest/gtest.h>

#include <limits>

#include "FailureText.h"
#include "apps/keocam/temperature/DisplayUnit.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/ThermometerOptions.h"
#include "apps/keocam/temperature/TimeText.h"

namespace keocam::cli {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(DisplayUnit, FixedPointsOfTheScales_AreMet) {
  EXPECT_DOUBLE_EQ(fromCelsius(kCelsius, 36.6), 36.6);
  EXPECT_DOUBLE_EQ(fromCelsius(kKelvin, 0.0), 273.15);
  EXPECT_DOUBLE_EQ(fromCelsius(kFahrenheit, 0.0), 32.0);
  EXPECT_DOUBLE_EQ(fromCelsius(kFahrenheit, 100.0), 212.0);
  EXPECT_DOUBLE_EQ(fromCelsius(kFahrenheit, -40.0), -40.0);
}

TEST(DisplayUnit, ThereAndBack_IsTheSame) {
  for (const DisplayUnit* const unit : {&kCelsius, &kKelvin, &kFahrenheit}) {
    for (const double celsius : {-273.15, -40.0, 0.0, 20.55, 1500.0}) {
      EXPECT_NEAR(toCelsius(*unit, fromCelsius(*unit, celsius)), celsius, 1e-12) << unit->name;
    }
  }
}

TEST(DisplayUnit, Difference_HasNoZeroPoint) {
  EXPECT_DOUBLE_EQ(fromKelvins(kCelsius, 2.0), 2.0);
  EXPECT_DOUBLE_EQ(fromKelvins(kKelvin, 2.0), 2.0);
  EXPECT_DOUBLE_EQ(fromKelvins(kFahrenheit, 2.0), 3.6);
}

TEST(DisplayUnit, LetterOrName_InAnyCase) {
  EXPECT_EQ(findUnit("C"), &kCelsius);
  EXPECT_EQ(findUnit("k"), &kKelvin);
  EXPECT_EQ(findUnit("Fahrenheit"), &kFahrenheit);
  for (const char* const wrong : {"", "X", "Cel", "°C"}) EXPECT_EQ(findUnit(wrong), nullptr) << wrong;
  ThermometerOptions options;
  options.unit = "\x1b[2J";
  const std::string text = failureTextOf(ExitStatus::Usage, [&] { unitIn(options); });
  EXPECT_TRUE(mentions(text, "C, K or F")) << text;
  EXPECT_FALSE(mentions(text, "\x1b")) << text;
}

TEST(NumberText, OnlyWholeFiniteNumbers_AreNumbers) {
  EXPECT_EQ(numberIn("-12.5"), -12.5);
  EXPECT_EQ(numberIn("+3"), 3.0);
  EXPECT_EQ(numberIn("1e2"), 100.0);
  for (const char* const wrong : {"", " 1", "1 ", "1,5", "1x", "nan", "inf", "-inf", "1e999", "--1", "+"}) {
    EXPECT_FALSE(numberIn(wrong)) << wrong;
  }
}

TEST(NumberText, Fixed_HasItsDecimals) {
  EXPECT_EQ(fixedText(1.005, 1), "1.0");
  EXPECT_EQ(fixedText(-40.0, 2), "-40.00");
  EXPECT_EQ(fixedText(kNaN, 2), "-");
}

TEST(NumberText, Short_HasNoZerosAtItsEnd) {
  EXPECT_EQ(shortText(0.95, 4), "0.95");
  EXPECT_EQ(shortText(20.0, 2), "20");
  EXPECT_EQ(shortText(100.0, 0), "100");
  EXPECT_EQ(shortText(-0.001, 2), "0");
}

TEST(TimeText, IsUniversalTime) {
  constexpr uint64_t kTime_ns = 1'795'252'536'123'999'999;  // By date -u -d @1795252536.
  EXPECT_EQ(isoTime(kTime_ns), "2026-11-21T09:15:36.123Z");
  EXPECT_EQ(pictureTime(kTime_ns), "2026:11:21 09:15:36");
  EXPECT_EQ(isoTime(0), "1970-01-01T00:00:00.000Z");
}

}  // namespace
}  // namespace keocam::cli
