// Listing lenses and selecting one.
#include <stdexcept>

#include "tests/unit/calibration/LensTest.h"

namespace {

using LensSelectionTest = LensTest;

TEST_F(LensSelectionTest, Lenses_InTheirOrder) {
  EXPECT_EQ(core_.GetAvailibleLenses(), (std::vector<std::string>{"L25mm", "L50mm"}));
  calibrationVect.clear();
  EXPECT_EQ(core_.GetAvailibleLenses(), std::vector<std::string>{});
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(LensSelectionTest, SetLens_UnknownName_SaysSo) {
  currentLensNumber = 1;
  for (const char* name : {"L25m", "l25mm", "L25mm ", ""}) {
    EXPECT_EQ(core_.SetLens(name), 0);
    EXPECT_EQ(takeAll(), (Log{"sleep 1 s", std::string("err: CameraSerialSettings::setLens(): Error setting lens ") +
                                               name + ", unknown\\n"}));
    EXPECT_EQ(currentLensNumber, 1);
    EXPECT_TRUE(core_.isSetLensReady());
  }
  calibrationVect.clear();
  EXPECT_EQ(core_.SetLens("L25mm"), 0);
  EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::setLens(): Error setting lens L25mm, unknown\\n"});
}

TEST_F(LensSelectionTest, SetLens_WithoutTables_SendsNothing) {
  useLenses({tables("L25mm", 300), tables("plain", 0)});
  EXPECT_EQ(core_.SetLens("plain"), 1);
  EXPECT_EQ(takeAll(), Log{"sleep 1 s"});
  EXPECT_EQ(currentLensNumber, 1);
  EXPECT_TRUE(core_.isSetLensReady());
}

TEST_F(LensSelectionTest, SetLens_TwoOfOneName_SelectsTheFirst) {
  useLenses({tables("other", 0), tables("twice", 0), tables("twice", 0)});
  EXPECT_EQ(core_.SetLens("twice"), 1);
  EXPECT_EQ(currentLensNumber, 1);
}

TEST_F(LensSelectionTest, SetLens_WritesBothTables_UsesThem_Corrects) {
  replyToTransfer(0x1000, 300, 512, 1);
  replyToTransfer(0x2000, 300, 512, 1);
  replyTo(30, {});
  replyTo(12, {});
  EXPECT_EQ(core_.SetLens("L50mm"), 1);
  EXPECT_EQ(currentLensNumber, 1);
  EXPECT_TRUE(core_.isSetLensReady());
  const Log events = takeAll();
  EXPECT_EQ(events.front(), "sleep 1 s");
  EXPECT_EQ(events.back(), "sleep 1 s");
  Log sent;
  for (const std::string& event : events) {
    if (event.find("Write ") != std::string::npos) sent.push_back(event.substr(event.find("Write ") + 6));
  }
  EXPECT_EQ(sent, requests({{214, {0x00, 0x00, 0x00, 0x11}},
                            {213, {0xFF, 0xFF}},
                            {212, {0x00, 0x08}},
                            {211, piece(0x1000, lenses_[1].low, 0, 128)},
                            {211, piece(0x1080, lenses_[1].low, 128, 128)},
                            {211, piece(0x1100, lenses_[1].low, 256, 44)},
                            {214, {0x00, 0x01, 0x00, 0x11}},
                            {213, {0xFF, 0xFF}},
                            {212, {0x00, 0x10}},
                            {211, piece(0x2000, lenses_[1].high, 0, 128)},
                            {211, piece(0x2080, lenses_[1].high, 128, 128)},
                            {211, piece(0x2100, lenses_[1].high, 256, 44)},
                            {30, {0x00, 0x00}},
                            {12, {}}}));
}

TEST_F(LensSelectionTest, SetLens_CoreSilent_LensCountsAsSelected) {
  EXPECT_EQ(core_.SetLens("L50mm"), 1);
  EXPECT_EQ(currentLensNumber, 1);
  EXPECT_TRUE(core_.isSetLensReady());
  EXPECT_EQ(takeRequests(), requests({{214, {0x00, 0x00, 0x00, 0x11}},
                                      {213, {0xFF, 0xFF}},
                                      {214, {0x00, 0x01, 0x00, 0x11}},
                                      {213, {0xFF, 0xFF}},
                                      {30, {0x00, 0x00}},
                                      {12, {}}}));
}

TEST_F(LensSelectionTest, SetLens_IsNotReadyWhileItTransfers) {
  bool ever_ready = false;
  scripted::network().serial.on_write = [&] { ever_ready = ever_ready || core_.isSetLensReady(); };
  replyToTransfer(0x1000, 300, 512, 1);
  replyToTransfer(0x2000, 300, 512, 1);
  replyTo(30, {});
  replyTo(12, {});
  core_.SetLens("L50mm");
  EXPECT_TRUE(scripted::network().serial.replies.empty());
  EXPECT_FALSE(ever_ready);
  EXPECT_TRUE(core_.isSetLensReady());
}

TEST_F(LensSelectionTest, ChangeSffcLens_FollowsTheRange) {
  struct Range {
    CameraSerialSettings::RangeModes mode;
    uint8_t slot;
  };
  for (const Range& range : {Range{CameraSerialSettings::LowRange, 0}, Range{CameraSerialSettings::MiddleRange, 1},
                             Range{CameraSerialSettings::HighRange, 1}}) {
    core_.rangeMode = range.mode;
    replyTo(30, {});
    EXPECT_EQ(core_.changeSFFCLens(), 0);
    const Log events = takeAll();
    EXPECT_EQ(events[2], "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(30, {0x00, range.slot})));
    EXPECT_EQ(events[3], "usleep 50000 us");
  }
  EXPECT_EQ(core_.changeSFFCLens(), -1);
}

TEST_F(LensSelectionTest, HighRangeLens) {
  EXPECT_FALSE(core_.GetHighRangeLensAvailable());
  calibrationVect[0].has1500Range = 1;
  EXPECT_TRUE(core_.GetHighRangeLensAvailable());
  currentLensNumber = 2;
  EXPECT_THROW(core_.GetHighRangeLensAvailable(), std::out_of_range);
  calibrationVect.clear();
  EXPECT_FALSE(core_.GetHighRangeLensAvailable());
}

}  // namespace
