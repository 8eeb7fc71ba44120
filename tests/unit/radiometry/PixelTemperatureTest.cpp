// RawToTemp: the limits, radiometry mode, the lens' correction and the core's temperature behind it.
#include "camera/Camera.h"
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

class PixelTemperatureTest : public RadiometryTest {
 protected:
  /// The reply to a question for the core's temperature, in tenths of a degree.
  static void replyWithCoreTemperature(uint16_t tenths) {
    replyTo(32, {static_cast<uint8_t>(tenths >> 8), static_cast<uint8_t>(tenths & 0xFF)});
  }

  static Log askedForCoreTemperature() { return requests({{32, {0x00, 0x00}}}); }
};

TEST_F(PixelTemperatureTest, Limits_HoldBeforeTheCorrection) {
  useLowRange();
  addLens();
  EXPECT_LT(CalculateTemperature(900), -60.0);
  EXPECT_EQ(core_.RawToTemp(900), core_.calibrateTemperatureC(-40.0));
  emissivity = 0.5;
  EXPECT_GT(CalculateTemperature(65535), 550.0);
  EXPECT_EQ(core_.RawToTemp(65535), core_.calibrateTemperatureC(550.0));
  EXPECT_NE(core_.RawToTemp(65535), 550.0);
  UpperCameraLimit = 100.0;
  EXPECT_EQ(core_.RawToTemp(65535), core_.calibrateTemperatureC(100.0));
}

TEST_F(PixelTemperatureTest, NoTemperature_IsNaN) {
  useLowRange();
  EXPECT_TRUE(std::isnan(core_.RawToTemp(0)));
  addLens();
  EXPECT_TRUE(std::isnan(core_.RawToTemp(0)));
}

TEST_F(PixelTemperatureTest, RadiometryMode_IsReadAsKelvin_AndNotLimited) {
  core_.radiometryMode = true;
  core_.radiometryHighResolutionMode = true;
  EXPECT_DOUBLE_EQ(core_.RawToTemp(7315), 292.6 - 273.15);
  EXPECT_EQ(core_.RawToTemp(0), -273.15);
  core_.radiometryHighResolutionMode = false;
  EXPECT_DOUBLE_EQ(core_.RawToTemp(7315), 2652.85);
  EXPECT_DOUBLE_EQ(core_.RawToTemp(7316), 2926.4 - 273.15) << "tenths of a count are kept";
  addLens();
  EXPECT_EQ(core_.RawToTemp(7315), core_.calibrateTemperatureC(2926.0 - 273.15));
}

TEST_F(PixelTemperatureTest, Camera_GivesBothUnits) {
  Camera camera(nullptr);
  camera.serialSettings = &core_;
  useLowRange();
  addLens();
  for (unsigned int raw = 0; raw <= 0xFFFF; raw += 257) {
    const auto value = static_cast<unsigned short>(raw);
    const double celsius = core_.RawToTemp(value);
    if (std::isnan(celsius)) {
      EXPECT_TRUE(std::isnan(camera.CalculateTemperatureC(value)) && std::isnan(camera.CalculateTemperatureK(value)));
      continue;
    }
    EXPECT_EQ(camera.CalculateTemperatureC(value), celsius);
    EXPECT_EQ(camera.CalculateTemperatureK(value), celsius + 273.15);
  }
}

TEST_F(PixelTemperatureTest, WithoutCalibration_NothingIsCorrectedNorRead) {
  coreTemperatureTimer = 0;
  EXPECT_EQ(core_.calibrateTemperatureC(36.6), 36.6);
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(PixelTemperatureTest, LowRange_LowerOrUpperLine) {
  const CalibrationStruct& lens = addLens();
  const auto& c = lens.data[0][20];
  const double switch_over = lens.slopes[0][20];
  EXPECT_EQ(core_.calibrateTemperatureC(10.0), 10.0 + (c[0] + c[1] * 10.0));
  EXPECT_EQ(core_.calibrateTemperatureC(switch_over), switch_over + (c[3] + c[4] * switch_over));
  EXPECT_EQ(core_.calibrateTemperatureC(90.0), 90.0 + (c[3] + c[4] * 90.0));
}

TEST_F(PixelTemperatureTest, LowRangeWithoutSlopes_IsTheLowerLineAlone) {
  const auto& c = addLens(false).data[0][20];
  EXPECT_EQ(core_.calibrateTemperatureC(90.0), 90.0 + (c[0] + c[1] * 90.0));
}

TEST_F(PixelTemperatureTest, MiddleRange_LinesOrQuartic) {
  CalibrationStruct& lens = addLens();
  core_.rangeMode = CameraSerialSettings::MiddleRange;
  const auto& c = lens.data[1][20];
  EXPECT_EQ(core_.calibrateTemperatureC(10.0), 10.0 + (c[0] + c[1] * 10.0));
  EXPECT_EQ(core_.calibrateTemperatureC(90.0), 90.0 + (c[3] + c[4] * 90.0));
  lens.slopesValid = 0;
  const double t = 90.0;
  EXPECT_EQ(core_.calibrateTemperatureC(t),
            t + (c[0] + c[1] * t + c[2] * (t * t) + c[3] * (t * t * t) + c[4] * (t * t * t * t)));
}

TEST_F(PixelTemperatureTest, HighRange_IsTheQuartic_WithOrWithoutSlopes) {
  CalibrationStruct& lens = addLens();
  core_.rangeMode = CameraSerialSettings::HighRange;
  const auto& c = lens.data[2][20];
  const double t = 480.0;
  const double expected = t + (c[0] + c[1] * t + c[2] * (t * t) + c[3] * (t * t * t) + c[4] * (t * t * t * t));
  EXPECT_EQ(core_.calibrateTemperatureC(t), expected);
  lens.slopesValid = 0;
  EXPECT_EQ(core_.calibrateTemperatureC(t), expected);
  for (double& point : lens.data[2][20]) point = 0.0;
  EXPECT_EQ(core_.calibrateTemperatureC(t), t);
}

TEST_F(PixelTemperatureTest, NaN_IsNotBelowTheSwitchOver) {
  CalibrationStruct& lens = addLens();
  EXPECT_TRUE(std::isnan(core_.calibrateTemperatureC(kNaN)));
  lens.slopes[0][20] = kNaN;
  const auto& c = lens.data[0][20];
  EXPECT_EQ(core_.calibrateTemperatureC(-30.0), -30.0 + (c[3] + c[4] * -30.0));
}

TEST_F(PixelTemperatureTest, UnknownRange_CorrectsNothing) {
  addLens();
  for (const int range : {3, 7, -1}) {
    core_.rangeMode = static_cast<RangeModes>(range);
    EXPECT_EQ(core_.calibrateTemperatureC(36.6), 36.6) << range;
  }
}

TEST_F(PixelTemperatureTest, Row_IsTheCoresTemperatureToTheNearestDegree) {
  const CalibrationStruct& lens = addLens(false);
  const std::vector<std::pair<double, int>> rows = {
      {37.4, 37}, {37.5, 38}, {-3.0, 0},  {-0.4, 0}, {0.5, 1},   {58.4, 58},      {58.5, 59},     {59.5, 59},
      {75.0, 59}, {1e30, 59}, {-1e30, 0}, {kNaN, 0}, {20.0, 20}, {kInfinity, 59}, {-kInfinity, 0}};
  for (const auto& [temperature, row] : rows) {
    coreTemperature = temperature;
    EXPECT_EQ(core_.calibrateTemperatureC(10.0), 10.0 + (lens.data[0][row][0] + lens.data[0][row][1] * 10.0))
        << temperature;
  }
}

TEST_F(PixelTemperatureTest, SelectedLensThatThereIsNot_Throws) {
  addLens();
  for (const int lens : {1, -1}) {
    currentLensNumber = lens;
    try {
      core_.calibrateTemperatureC(10.0);
      FAIL() << "no exception";
    } catch (const std::out_of_range& exception) {
      const std::string index = lens == 1 ? "1" : "18446744073709551615";
      EXPECT_EQ(exception.what(), "vector::_M_range_check: __n (which is " + index + ") >= this->size() (which is 1)");
    }
  }
  core_.rangeMode = static_cast<RangeModes>(7);
  EXPECT_EQ(core_.calibrateTemperatureC(10.0), 10.0) << "no lens is looked up in a range that there is not";
}

TEST_F(PixelTemperatureTest, CoreTemperature_IsReadOnceInMoreThan60Seconds) {
  const CalibrationStruct& lens = addLens(false);
  scripted::passTime_ms(60'000);
  core_.calibrateTemperatureC(10.0);
  EXPECT_EQ(takeRequests(), Log{});

  scripted::passTime_ms(1000);
  replyWithCoreTemperature(374);
  EXPECT_EQ(core_.calibrateTemperatureC(10.0), 10.0 + (lens.data[0][37][0] + lens.data[0][37][1] * 10.0));
  EXPECT_EQ(takeRequests(), askedForCoreTemperature());
  EXPECT_EQ(coreTemperature, 37.4);
  EXPECT_EQ(coreTemperatureTimer, time(nullptr));

  core_.RawToTemp(5000);
  EXPECT_EQ(takeRequests(), Log{});
}

TEST_F(PixelTemperatureTest, CoreTemperatureNotRead_IsZeroForTheNextMinute) {
  const CalibrationStruct& lens = addLens(false);
  scripted::passTime_ms(61'000);
  EXPECT_EQ(core_.calibrateTemperatureC(10.0), 10.0 + (lens.data[0][0][0] + lens.data[0][0][1] * 10.0));
  EXPECT_EQ(takeRequests(), askedForCoreTemperature());
  core_.calibrateTemperatureC(10.0);
  EXPECT_EQ(takeRequests(), Log{});
}

TEST_F(PixelTemperatureTest, ClockSetBack_ReadsNothing) {
  addLens();
  scripted::passTime_ms(-3'600'000);
  core_.calibrateTemperatureC(10.0);
  EXPECT_EQ(takeRequests(), Log{});
}

}  // namespace
