// Listing lenses, selecting one, and finding out whose tables the core holds.
#include <stdexcept>

#include "tests/unit/calibration/LensTest.h"

namespace {

class LensSelectionTest : public LensTest {
 protected:
  static Bytes sample(const Bytes& table, std::size_t offset) {
    Bytes result(table.begin() + static_cast<std::ptrdiff_t>(offset), table.end());
    result.resize(128);
    return result;
  }
  /// The replies of a core that holds this table.
  static void replyWithSamples(const Bytes& table, uint32_t address = 0x1000) {
    replyTo(214, longs(address, static_cast<uint32_t>(table.size())));
    for (std::size_t i = 0; i < 4; ++i) replyTo(210, sample(table, i * (table.size() / 4)));
  }
};

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
  EXPECT_EQ(takeRequests(),
            requests({{214, {0x00, 0x00, 0x00, 0x11}}, {214, {0x00, 0x01, 0x00, 0x11}}, {30, {0x00, 0x00}}, {12, {}}}));
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

TEST_F(LensSelectionTest, Check_NoLenses_AsksNothing) {
  calibrationVect.clear();
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(core_.GetCurrentLense(), "");
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(LensSelectionTest, Check_FourSamples_OrderOfTheCalls) {
  replyWithSamples(lenses_[1].high);
  EXPECT_EQ(core_.CheckCameraSffc(), 1);
  EXPECT_EQ(currentLensNumber, 1);
  const Log events = takeAll();
  Log expected = {"PvDeviceAdapter::PvDeviceAdapter Cam A",
                  "PvDeviceSerialPort::Open 2 of Cam A",
                  "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(214, {0x00, 0x01, 0x00, 0x11})),
                  "usleep 10000 us",
                  "PvDeviceSerialPort::GetRxBytesReady",
                  "PvDeviceSerialPort::Read 1024 500",
                  "PvDeviceSerialPort::Close",
                  "PvDeviceSerialPort::~PvDeviceSerialPort",
                  "PvDeviceAdapter::~PvDeviceAdapter",
                  "PvDeviceAdapter::PvDeviceAdapter Cam A",
                  "PvDeviceSerialPort::Open 2 of Cam A"};
  for (const uint32_t address : {0x1000U, 0x104BU, 0x1096U, 0x10E1U}) {
    Bytes payload = longs(address, 0);
    payload.resize(4);
    payload.insert(payload.end(), {0x00, 0x80});
    expected.push_back("PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(210, payload)));
    expected.emplace_back("PvDeviceSerialPort::GetRxBytesReady");
    expected.emplace_back("PvDeviceSerialPort::Read 1024 500");
  }
  expected.insert(expected.end(), {"PvDeviceSerialPort::Close", "PvDeviceSerialPort::~PvDeviceSerialPort",
                                   "PvDeviceAdapter::~PvDeviceAdapter"});
  EXPECT_EQ(events, expected);
}

TEST_F(LensSelectionTest, CurrentLens_IsTheOneWhoseTableMatches) {
  replyWithSamples(lenses_[1].high);
  EXPECT_EQ(core_.GetCurrentLense(), "L50mm");
  EXPECT_EQ(currentLensNumber, 1);
}

TEST_F(LensSelectionTest, Check_TwoThatMatch_IsTheFirst) {
  useLenses({tables("other", 300, 9), tables("first", 300), tables("second", 300)});
  replyWithSamples(lenses_[2].high);
  EXPECT_EQ(core_.CheckCameraSffc(), 1);
}

TEST_F(LensSelectionTest, Check_OneByteOff_MatchesNoLens) {
  for (const std::size_t offset : {0U, 75U, 150U, 225U}) {
    currentLensNumber = 1;
    Bytes table = lenses_[0].high;
    table[offset] = static_cast<uint8_t>(~table[offset]);
    replyWithSamples(table);
    EXPECT_EQ(core_.CheckCameraSffc(), -1) << offset;
    EXPECT_EQ(currentLensNumber, 1);
    replyWithSamples(table);
    EXPECT_EQ(core_.GetCurrentLense(), "");
  }
}

TEST_F(LensSelectionTest, Check_NoAnswerToTheQuestion) {
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(), (Log{"err: CameraSerialSettings::sendMessage: Error reading message from camera.\\n",
                                "err: CameraSerialSettings::CheckCameraSffc: Error in communication with camera. "
                                "Camera is not responding to message.\\n"}));
}

TEST_F(LensSelectionTest, Check_SamplesNotRead_AreReported_AndMatchNoLens) {
  useLenses({tables("plain", 0)});  // a lens of zeros
  replyTo(214, longs(0x1000, 300));
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(),
            Log(4, "err: CameraSerialSettings::CheckCameraSffc: Error reading message from camera. 0\\n"));
}

TEST_F(LensSelectionTest, Check_SamplesNotAskedFor_AreReported_AndMatchNoLens) {
  replyTo(214, longs(0x1000, 300));
  scripted::network().serial.writes_taken = 1;
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(), Log(4, "err: CameraSerialSettings::CheckCameraSffc: Error writing message to camera.\\n"));
}

TEST_F(LensSelectionTest, Check_SamplesRefused_MatchNoLens) {
  useLenses({tables("plain", 0)});
  replyTo(214, longs(0x1000, 300));
  for (int i = 0; i < 4; ++i) replyTo(210, {}, 0x03);
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(), Log{}) << "the content of these answers is not looked at";
}

TEST_F(LensSelectionTest, Check_TableLargerThanAnyRecord_MatchesNoLens) {
  useLenses({tables("plain", 0)});  // the first sample matches, the others lie beyond
  replyTo(214, longs(0, 0xFFFFFFFF));
  for (int i = 0; i < 4; ++i) replyTo(210, Bytes(128));
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
}

}  // namespace
