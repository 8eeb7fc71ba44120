// CheckCameraSffc and GetCurrentLense: whose table the core holds, by four samples of it.
#include <string>

#include "tests/unit/calibration/LensTest.h"

namespace {

class SffcCheckTest : public LensTest {
 protected:
  static Bytes sample(const Bytes& table, std::size_t offset) {
    Bytes result(table.begin() + static_cast<std::ptrdiff_t>(offset), table.end());
    result.resize(128);
    return result;
  }
  static Bytes sampleQuestion(uint32_t address) {
    Bytes payload = longs(address, 0x0080'0000);
    payload.resize(6);
    return payload;
  }
  static Bytes flipped(Bytes table, std::size_t offset) {
    table[offset] = static_cast<uint8_t>(~table[offset]);
    return table;
  }
  /// The replies of a core that holds this table.
  static void replyWithSamples(const Bytes& table, uint32_t address = 0x1000) {
    replyTo(214, longs(address, static_cast<uint32_t>(table.size())));
    for (std::size_t i = 0; i < 4; ++i) replyTo(210, sample(table, i * (table.size() / 4)));
  }
};

TEST_F(SffcCheckTest, NoLenses_AsksNothing) {
  calibrationVect.clear();
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(core_.GetCurrentLense(), "");
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(SffcCheckTest, FourSamples_OrderOfTheCalls) {
  replyWithSamples(lenses_[1].high);
  EXPECT_EQ(core_.CheckCameraSffc(), 1);
  EXPECT_EQ(currentLensNumber, 1);
  Log expected = message(214, {0x00, 0x01, 0x00, 0x11}, 10'000);
  expected = joined(expected, {"PvDeviceAdapter::PvDeviceAdapter Cam A", "PvDeviceSerialPort::Open 2 of Cam A"});
  for (const uint32_t address : {0x1000U, 0x104BU, 0x1096U, 0x10E1U}) {
    expected.push_back("PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(210, sampleQuestion(address))));
    expected.emplace_back("PvDeviceSerialPort::GetRxBytesReady");
    expected.emplace_back("PvDeviceSerialPort::Read 1024 500");
  }
  EXPECT_EQ(takeAll(), joined(expected, closing()));
}

TEST_F(SffcCheckTest, CurrentLens_IsTheOneWhoseTableMatches) {
  replyWithSamples(lenses_[1].high);
  EXPECT_EQ(core_.GetCurrentLense(), "L50mm");
  EXPECT_EQ(currentLensNumber, 1);
}

TEST_F(SffcCheckTest, TwoThatMatch_IsTheFirst) {
  useLenses({tables("other", 300, 9), tables("first", 300), tables("second", 300)});
  replyWithSamples(lenses_[2].high);
  EXPECT_EQ(core_.CheckCameraSffc(), 1);
}

TEST_F(SffcCheckTest, OneByteOff_MatchesNoLens) {
  for (const std::size_t offset : {0U, 75U, 150U, 225U}) {
    currentLensNumber = 1;
    const Bytes table = flipped(lenses_[0].high, offset);
    replyWithSamples(table);
    EXPECT_EQ(core_.CheckCameraSffc(), -1) << offset;
    EXPECT_EQ(currentLensNumber, 1);
    replyWithSamples(table);
    EXPECT_EQ(core_.GetCurrentLense(), "");
  }
}

// Samples of a table of 1030 bytes begin at 0, 257, 514 and 771, and have 128 bytes each.
TEST_F(SffcCheckTest, Samples_EndAtTheir128thByte) {
  useLenses({tables("L25mm", 1030)});
  for (const std::size_t begin : {0U, 257U, 514U, 771U}) {
    for (const std::size_t within : {begin, begin + 127}) {
      replyWithSamples(flipped(lenses_[0].high, within));
      EXPECT_EQ(core_.CheckCameraSffc(), -1) << within;
    }
    for (const std::size_t outside : {begin + 128, (begin + 1029) % 1030}) {
      replyWithSamples(flipped(lenses_[0].high, outside));
      EXPECT_EQ(core_.CheckCameraSffc(), 0) << outside;
    }
  }
}

TEST_F(SffcCheckTest, SamplesThatOverlap_CoverEveryByte) {
  for (std::size_t offset = 0; offset < 300; ++offset) {
    replyWithSamples(flipped(lenses_[0].high, offset));
    EXPECT_EQ(core_.CheckCameraSffc(), -1) << offset;
  }
}

// Fewer than four bytes leave no distance between samples: the same one is read four times. What lies behind a table in
// the core is compared with the zeros behind it in the record.
TEST_F(SffcCheckTest, TinyTables_AreComparedWithWhatFollowsThem) {
  for (const std::size_t size : {0U, 1U, 3U, 127U}) {
    useLenses({tables("L25mm", size)});
    replyWithSamples(lenses_[0].high);
    EXPECT_EQ(core_.CheckCameraSffc(), 0) << size;
    std::vector<std::pair<uint8_t, Bytes>> expected = {{214, {0x00, 0x01, 0x00, 0x11}}};
    for (uint32_t i = 0; i < 4; ++i) {
      const uint32_t address = 0x1000 + i * static_cast<uint32_t>(size / 4);
      expected.emplace_back(uint8_t{210}, sampleQuestion(address));
    }
    EXPECT_EQ(takeRequests(), requests(expected)) << size;
    // In the core something else follows the table.
    Bytes with_rest = lenses_[0].high;
    with_rest.resize(size + 400, 0xFF);
    replyTo(214, longs(0x1000, static_cast<uint32_t>(size)));
    for (std::size_t i = 0; i < 4; ++i) replyTo(210, sample(with_rest, i * (size / 4)));
    EXPECT_EQ(core_.CheckCameraSffc(), -1) << size;
    log().clear();
  }
}

// The last sample of a region of 1,747,456 bytes ends with the last byte that a record has: 3 * 436,864 + 128.
TEST_F(SffcCheckTest, LastSample_UpToTheRecordsEnd_ButNotBeyond) {
  uint8_t* const table = calibrationVect[0].sffcHighRange;
  for (std::size_t i = 0; i < kSffcCapacity_bytes; ++i) table[i] = static_cast<uint8_t>(i * 7 / 3 & 0xFF);
  const Bytes whole(table, table + kSffcCapacity_bytes);
  const auto replyWithRegion = [&](uint32_t size, const Bytes& held) {
    replyTo(214, longs(0x1000, size));
    for (std::size_t i = 0; i < 4; ++i) replyTo(210, sample(held, i * (size / 4)));
  };
  for (const uint32_t size : {1'747'456U, 1'747'459U}) {
    replyWithRegion(size, whole);
    EXPECT_EQ(core_.CheckCameraSffc(), 0) << size;
    replyWithRegion(size, flipped(whole, kSffcCapacity_bytes - 1));
    EXPECT_EQ(core_.CheckCameraSffc(), -1) << size;
  }
  // The sample that begins one byte later matches the record's memory, but three of its bytes are not the table's.
  replyWithRegion(1'747'460, whole);
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
}

TEST_F(SffcCheckTest, NoAnswerToTheQuestion) {
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(), (Log{"err: CameraSerialSettings::sendMessage: Error reading message from camera.\\n",
                                "err: CameraSerialSettings::CheckCameraSffc: Error in communication with camera. "
                                "Camera is not responding to message.\\n"}));
}

TEST_F(SffcCheckTest, SamplesNotRead_AreReported_AndMatchNoLens) {
  useLenses({tables("plain", 0)});  // a lens of zeros
  replyTo(214, longs(0x1000, 300));
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(),
            Log(4, "err: CameraSerialSettings::CheckCameraSffc: Error reading message from camera. 0\\n"));
}

TEST_F(SffcCheckTest, SamplesCutShort_TellTheBytesRead_AndMatchNoLens) {
  useLenses({tables("plain", 0)});
  replyTo(214, longs(0x1000, 300));
  scripted::network().serial.before_time_out = Bytes(135);
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(),
            Log(4, "err: CameraSerialSettings::CheckCameraSffc: Error reading message from camera. 135\\n"));
}

TEST_F(SffcCheckTest, SamplesNotAskedFor_AreReported_AndMatchNoLens) {
  replyTo(214, longs(0x1000, 300));
  scripted::network().serial.writes_taken = 1;
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(), Log(4, "err: CameraSerialSettings::CheckCameraSffc: Error writing message to camera.\\n"));
}

TEST_F(SffcCheckTest, SamplesRefused_MatchNoLens) {
  useLenses({tables("plain", 0)});
  replyTo(214, longs(0x1000, 300));
  for (int i = 0; i < 4; ++i) replyTo(210, {}, 0x03);
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
  EXPECT_EQ(takePrinted(), Log{}) << "the content of these answers is not looked at";
}

TEST_F(SffcCheckTest, TableLargerThanAnyRecord_MatchesNoLens) {
  useLenses({tables("plain", 0)});  // the first sample matches, the others lie beyond
  replyTo(214, longs(0, 0xFFFFFFFF));
  for (int i = 0; i < 4; ++i) replyTo(210, Bytes(128));
  EXPECT_EQ(core_.CheckCameraSffc(), -1);
}

}  // namespace
