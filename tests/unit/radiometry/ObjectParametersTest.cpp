// The object parameters: the process' own and what the core is told of them.
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

class ObjectParametersTest : public RadiometryTest {
 protected:
  ObjectParametersTest() { useLowRange(); }

  /// A request that tells the core a parameter's 16-bit value.
  static std::pair<uint8_t, Bytes> telling(uint8_t parameter, unsigned int word) {
    return {229, {0x01, parameter, static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)}};
  }

  static constexpr uint8_t kEmissivity = 0;
  static constexpr uint8_t kReflected = 7;
  static constexpr uint8_t kAtmospheric = 5;
};

TEST_F(ObjectParametersTest, Getters_GiveTheProcess_AndAskNothing) {
  emissivity = 0.8;
  reflectedTemperature = 300.0;
  atmosphericTemperature = 290.0;
  distance = 12.0;
  humidity = 0.3;
  EXPECT_EQ(core_.GetEmissivity(), 0.8);
  EXPECT_EQ(core_.GetReflectedTemperatureK(), 300.0);
  EXPECT_EQ(core_.GetReflectedTemperatureC(), 300.0 - 273.15);
  EXPECT_EQ(core_.GetAtmosphericTemperatureK(), 290.0);
  EXPECT_EQ(core_.GetAtmospericTemperatureC(), 290.0 - 273.15);
  EXPECT_EQ(core_.GetDistance(), 12.0);
  EXPECT_EQ(core_.GetHumidity(), 0.3);
  CameraSerialSettings another(device_.get(), kPort);
  EXPECT_EQ(another.GetEmissivity(), 0.8) << "all cameras share them";
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(ObjectParametersTest, Emissivity_IsLimited_NaNIsNot) {
  core_.SetEmissivity(0.2);
  EXPECT_EQ(emissivity, 0.5);
  core_.SetEmissivity(1.7);
  EXPECT_EQ(emissivity, 1.0);
  core_.SetEmissivity(0.73);
  EXPECT_EQ(emissivity, 0.73);
  core_.SetEmissivity(kNaN);
  EXPECT_TRUE(std::isnan(emissivity));
  EXPECT_EQ(takeAll(), Log{}) << "the core is not radiometric";
}

TEST_F(ObjectParametersTest, Emissivity_GoesToARadiometricCore_InAnyMode) {
  core_.isRadiometric = true;
  for (const bool mode : {false, true}) {
    core_.radiometryMode = mode;
    core_.SetEmissivity(mode ? 0.8 : 0.7);
    EXPECT_EQ(takeRequests(), requests({telling(kEmissivity, mode ? 6553 : 5734)}));
  }
}

TEST_F(ObjectParametersTest, Emissivity_IsComparedBeforeItIsLimited) {
  core_.isRadiometric = true;
  core_.SetEmissivity(0.2);
  EXPECT_EQ(takeRequests(), requests({telling(kEmissivity, 4096)}));
  core_.SetEmissivity(0.5);
  EXPECT_EQ(takeRequests(), Log{});
  Matm = 1.0;
  core_.SetEmissivity(0.3);
  EXPECT_EQ(emissivity, 0.5);
  EXPECT_EQ(takeRequests(), requests({telling(kEmissivity, 4096)}));
  EXPECT_NE(Matm, 1.0) << "recalculated";
}

TEST_F(ObjectParametersTest, TheSameValue_DoesNothing) {
  core_.isRadiometric = core_.radiometryMode = true;
  Matm = TauAtm = Mbgr = 1.0;
  core_.SetEmissivity(0.95);
  core_.SetReflectedTemperatureK(293.15);
  core_.SetReflectedTemperatureC(20.0);
  core_.SetAtmosphericTemperatureK(293.15);
  core_.SetAtmospericTemperatureC(20.0);
  core_.SetDistance(1.0);
  core_.SetHumidity(0.5);
  EXPECT_EQ(takeAll(), Log{});
  EXPECT_EQ(Matm + TauAtm + Mbgr, 3.0) << "nothing recalculated";
}

TEST_F(ObjectParametersTest, Temperatures_GoToTheCore_InRadiometryModeOnly) {
  core_.isRadiometric = true;
  core_.SetReflectedTemperatureC(25.0);
  core_.SetAtmospericTemperatureC(26.0);
  EXPECT_EQ(takeRequests(), Log{});
  EXPECT_EQ(reflectedTemperature, 25.0 + 273.15);
  EXPECT_EQ(atmosphericTemperature, 26.0 + 273.15);

  core_.radiometryMode = true;
  core_.SetReflectedTemperatureC(21.0);
  EXPECT_EQ(reflectedTemperature, 294.15);
  EXPECT_EQ(takeRequests(), requests({telling(kReflected, 2100)}));
  core_.SetReflectedTemperatureK(293.9);
  EXPECT_EQ(takeRequests(), requests({telling(kReflected, 2000)})) << "whole degrees";
  core_.SetAtmosphericTemperatureK(293.9);
  EXPECT_EQ(takeRequests(), requests({telling(kAtmospheric, 2075)})) << "hundredths";
  core_.SetReflectedTemperatureC(-10.0);
  EXPECT_EQ(takeRequests(), requests({telling(kReflected, 0)}));
  core_.SetAtmospericTemperatureC(-10.0);
  EXPECT_EQ(takeRequests(), requests({telling(kAtmospheric, 0)}));
  EXPECT_EQ(reflectedTemperature, -10.0 + 273.15) << "the process' own is kept";
}

TEST_F(ObjectParametersTest, Setters_RecalculateBeforeTheCoreIsTold) {
  const double tau = TauAtm;
  core_.SetDistance(50.0);
  EXPECT_NE(TauAtm, tau);
  EXPECT_EQ(TauAtm, CalculateTauAtm());
  core_.SetHumidity(0.9);
  EXPECT_EQ(TauAtm, CalculateTauAtm());
  core_.SetReflectedTemperatureC(33.0);
  EXPECT_EQ(Mbgr, CalculateM(33.0 + 273.15));
  core_.SetAtmospericTemperatureC(34.0);
  EXPECT_EQ(Matm, CalculateM(34.0 + 273.15));
  EXPECT_EQ(TauAtm, CalculateTauAtm());
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(ObjectParametersTest, NothingIsLimitedButEmissivity) {
  for (const double value : {-1.0, 0.0, 1e300, -kInfinity, kNaN}) {
    core_.SetDistance(value);
    core_.SetHumidity(value);
    core_.SetReflectedTemperatureK(value);
    core_.SetAtmosphericTemperatureK(value);
    if (std::isnan(value)) {
      EXPECT_TRUE(std::isnan(distance) && std::isnan(humidity));
    } else {
      EXPECT_EQ(distance, value);
      EXPECT_EQ(humidity, value);
    }
    core_.RawToTemp(5000);
  }
}

TEST_F(ObjectParametersTest, EmissivityWord) {
  const std::vector<std::pair<double, unsigned int>> words = {{0.95, 7782}, {0.5, 4096}, {0.4999, 4096},
                                                              {-3.0, 4096}, {1.0, 8192}, {1.01, 8192},
                                                              {0.75, 6144}, {kNaN, 0},   {kInfinity, 8192}};
  for (const auto& [value, word] : words) {
    core_.SetRadEmissivityTemp(value);
    EXPECT_EQ(takeRequests(), requests({telling(kEmissivity, word)})) << value;
  }
}

TEST_F(ObjectParametersTest, ReflectedTemperatureWord) {
  const std::vector<std::pair<double, unsigned int>> words = {
      {273.15, 0},
      {293.15, 2000},
      {274.14, 0},
      {274.15, 100},
      {928.15, 65500},
      {929.15, 656 * 100 - 65536},  // The hundredths wrap.
      {273.15 + 65536.0, 0},        // The whole degrees do.
      {0.0, 0},
      {-kInfinity, 0},
      {kNaN, 0},
      {kInfinity, 65535 * 100 % 65536},
  };
  for (const auto& [kelvin, word] : words) {
    core_.SetRadReflectedTemp(kelvin);
    EXPECT_EQ(takeRequests(), requests({telling(kReflected, word)})) << kelvin;
  }
}

TEST_F(ObjectParametersTest, AtmosphericTemperatureWord) {
  const std::vector<std::pair<double, unsigned int>> words = {
      {273.15, 0}, {293.9, 2075}, {273.17, 2}, {0.0, 0}, {kNaN, 0}, {928.51, 0}, {kInfinity, 65535}, {928.15, 65500}};
  for (const auto& [kelvin, word] : words) {
    core_.SetRadAtmosphericTemp(kelvin);
    const unsigned int expected = kelvin == 928.51 ? 65536 % 65536 : word;
    EXPECT_EQ(takeRequests(), requests({telling(kAtmospheric, expected)})) << kelvin;
  }
}

TEST_F(ObjectParametersTest, CoresOwn_AreAskedFor_AndLeaveTheProcessAlone) {
  replyTo(229, {0x1E, 0x66});
  EXPECT_EQ(core_.GetRadEmissivityTemp(), 7782 * 0.0001220703125);
  replyTo(229, {0x08, 0x1B});
  EXPECT_EQ(core_.GetRadReflectedTemp(), 2075 / 100.0 + 273.15);
  replyTo(229, {0x08, 0x34});
  EXPECT_EQ(core_.GetRadAtmosphericTemp(), 2100 / 100.0 + 273.15);
  EXPECT_EQ(emissivity, 0.95);
  EXPECT_EQ(reflectedTemperature, 293.15);
  EXPECT_EQ(atmosphericTemperature, 293.15);
  EXPECT_EQ(takeRequests(),
            requests({{229, {0x01, kEmissivity}}, {229, {0x01, kReflected}}, {229, {0x01, kAtmospheric}}}));
}

TEST_F(ObjectParametersTest, CoreSilent_ReadsAsZeros) {
  EXPECT_EQ(core_.GetRadEmissivityTemp(), 0.0);
  EXPECT_EQ(core_.GetRadReflectedTemp(), 273.15);
  EXPECT_EQ(core_.GetRadAtmosphericTemp(), 273.15);
}

TEST_F(ObjectParametersTest, AtmosphericTemperatureOfTheCore_PrintsTwoLines_TheFirstBeforeItAsks) {
  replyTo(229, {0x08, 0x1B});
  core_.GetRadAtmosphericTemp();
  const Log events = take({"out", "PvDeviceSerialPort::Write"});
  ASSERT_EQ(events.size(), 3U);
  EXPECT_EQ(events[0], "out: 0\\n");
  EXPECT_EQ(events[1].rfind("PvDeviceSerialPort::Write", 0), 0U);
  EXPECT_EQ(events[2], "out: 293.9\\n");
}

TEST_F(ObjectParametersTest, AllThree_AreTold_InThisOrder) {
  emissivity = 0.6;
  reflectedTemperature = 300.15;
  atmosphericTemperature = 283.4;
  core_.SetRadiometricParameters();
  EXPECT_EQ(takeRequests(),
            requests({telling(kEmissivity, 4915), telling(kReflected, 2700), telling(kAtmospheric, 1025)}));
}

}  // namespace
