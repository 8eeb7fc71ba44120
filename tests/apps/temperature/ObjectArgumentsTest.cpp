// Object parameters on the command line.
#include "apps/keocam/temperature/ObjectArguments.h"

#include "FailureText.h"

namespace keocam::cli {
namespace {

std::string complaintAbout(const ObjectArguments& arguments, const DisplayUnit& unit = kCelsius) {
  return failureTextOf(ExitStatus::Usage, [&] { overridesIn(arguments, unit); });
}

ObjectArguments emissivity(const char* text) { return {text, {}, {}, {}, {}}; }
ObjectArguments reflected(const char* text) { return {{}, text, {}, {}, {}}; }
ObjectArguments atmosphere(const char* text) { return {{}, {}, text, {}, {}}; }
ObjectArguments distanceOf(const char* text) { return {{}, {}, {}, text, {}}; }
ObjectArguments humidityOf(const char* text) { return {{}, {}, {}, {}, text}; }

TEST(ObjectArguments, Nothing_ChangesNothing) {
  const ObjectParameters held{0.8, 300.0, 290.0, 5.0, 0.3};
  const ObjectParameters result = overridden(held, overridesIn({}, kCelsius));
  EXPECT_EQ(result.emissivity, 0.8);
  EXPECT_EQ(result.reflectedTemperature, 300.0);
  EXPECT_EQ(result.atmosphericTemperature, 290.0);
  EXPECT_EQ(result.distance, 5.0);
  EXPECT_EQ(result.humidity, 0.3);
}

TEST(ObjectArguments, Given_TakeTheHeldOnesPlace) {
  const ObjectParameters result = overridden({}, overridesIn({"0.9", "30", "-5", "12.5", "40%"}, kCelsius));
  EXPECT_DOUBLE_EQ(result.emissivity, 0.9);
  EXPECT_DOUBLE_EQ(result.reflectedTemperature, 303.15);
  EXPECT_DOUBLE_EQ(result.atmosphericTemperature, 268.15);
  EXPECT_DOUBLE_EQ(result.distance, 12.5);
  EXPECT_DOUBLE_EQ(result.humidity, 0.4);
}

TEST(ObjectArguments, Temperatures_AreInTheUnitOfTheRun) {
  EXPECT_NEAR(*overridesIn(reflected("68"), kFahrenheit).reflected_celsius, 20.0, 1e-9);
  EXPECT_NEAR(*overridesIn(atmosphere("293.15"), kKelvin).atmosphere_celsius, 20.0, 1e-9);
}

TEST(ObjectArguments, Humidity_IsAPercentageOrAFraction) {
  EXPECT_DOUBLE_EQ(*overridesIn(humidityOf("50%"), kCelsius).humidity, 0.5);
  EXPECT_DOUBLE_EQ(*overridesIn(humidityOf("0.5"), kCelsius).humidity, 0.5);
  EXPECT_DOUBLE_EQ(*overridesIn(humidityOf("1"), kCelsius).humidity, 1.0);
  EXPECT_DOUBLE_EQ(*overridesIn(humidityOf("100%"), kCelsius).humidity, 1.0);
  for (const char* const wrong : {"50", "101%", "-1%", "%", "", "nan%"}) {
    EXPECT_TRUE(mentions(complaintAbout(humidityOf(wrong)), "0 to 1 or 0% to 100%")) << wrong;
  }
}

TEST(ObjectArguments, Bounds_AreIncludedAndWhatIsBeyondIsNot) {
  for (const char* const good : {"0.01", "1"}) EXPECT_NO_THROW(overridesIn(emissivity(good), kCelsius)) << good;
  for (const char* const wrong : {"0", "0.009", "1.001", "-1", "nan", "inf", "", "high", "0.9%"}) {
    EXPECT_TRUE(mentions(complaintAbout(emissivity(wrong)), "--emissivity takes a number, 0.01 to 1, not")) << wrong;
  }
  for (const char* const good : {"0", "10000"}) EXPECT_NO_THROW(overridesIn(distanceOf(good), kCelsius)) << good;
  EXPECT_TRUE(mentions(complaintAbout(distanceOf("-1")), "--distance takes a number, 0 to 10000 m"));
  for (const char* const good : {"-148", "212"}) EXPECT_NO_THROW(overridesIn(atmosphere(good), kFahrenheit)) << good;
  EXPECT_TRUE(mentions(complaintAbout(atmosphere("213"), kFahrenheit), "-148 to 212 °F"));
  EXPECT_TRUE(mentions(complaintAbout(reflected("-0.1"), kKelvin), "173.15 to 2273.15 K"));
}

TEST(ObjectArguments, EverythingWrong_IsToldAtOnce) {
  const std::string text = complaintAbout({"2", "x", "y", "z", "\x1b"});
  for (const char* const option : {"--emissivity", "--reflected", "--atmosphere", "--distance", "--humidity"}) {
    EXPECT_TRUE(mentions(text, option)) << text;
  }
  EXPECT_FALSE(mentions(text, "\x1b")) << text;
}

TEST(ObjectArguments, CoreThatComputes_TakesWhatItHoldsItself) {
  const ObjectParameters held{7782 / 8192.0, 293.40, 293.15, 1.0, 0.5};
  EXPECT_NO_THROW(requireAgreement({}, held, kCelsius));
  EXPECT_NO_THROW(requireAgreement(overridesIn({"0.95", "20.25", "20", {}, {}}, kCelsius), held, kCelsius));
}

TEST(ObjectArguments, CoreThatComputes_RefusesAnotherWithTheWayOut) {
  const ObjectParameters held{0.95, 293.15, 293.15, 1.0, 0.5};
  const auto refusal = [&](const ObjectArguments& arguments, const DisplayUnit& unit) {
    return failureTextOf(ExitStatus::Failure, [&] { requireAgreement(overridesIn(arguments, unit), held, unit); });
  };
  const std::string text = refusal(emissivity("0.9"), kCelsius);
  EXPECT_TRUE(mentions(text, "\"keocam set emissivity=0.9\"")) << text;
  EXPECT_TRUE(mentions(text, "\"keocam set radiometry=off\"")) << text;
  EXPECT_TRUE(mentions(refusal(reflected("300"), kKelvin), "\"keocam set reflected-temperature=26.85\""));
  EXPECT_TRUE(mentions(refusal(distanceOf("1"), kCelsius), "takes no account of it"))
      << "also where it is what this program would take";
}

}  // namespace
}  // namespace keocam::cli
