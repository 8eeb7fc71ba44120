// switchSFFC1 and switchSFFC2: every request, in order, for tables and blocks of all sizes, and every failure.
#include <algorithm>
#include <stdexcept>

#include "calibration/SffcProtocol.h"
#include "tests/unit/calibration/LensTest.h"

namespace {

class SffcTransferTest : public LensTest {
 protected:
  struct Slot {
    uint8_t number;
    int (CameraSerialSettings::*write)();
    std::string prefix;
    Bytes Lens::*table;
  };
  inline static const Slot kSlots[] = {
      {0, &CameraSerialSettings::switchSFFC1, "CameraSerialSettings::switchSFFC1(): ", &Lens::low},
      {1, &CameraSerialSettings::switchSFFC2, "CameraSerialSettings::switchSFFC2: ", &Lens::high},
  };

  int write(const Slot& slot) { return (core_.*slot.write)(); }

  static Log questions(const Slot& slot) {
    return requests({{214, {0x00, slot.number, 0x00, 0x11}}, {213, {0xFF, 0xFF}}});
  }
  static Log line(const std::string& text) { return {"err: " + text + "\\n"}; }
};

using Log = std::vector<std::string>;

Log joined(Log left, const Log& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

TEST_F(SffcTransferTest, Whole_QuestionsErasuresPieces) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0x00100000, 300, 256, 2, 0x00080000);
    EXPECT_EQ(write(slot), 0);
    const Bytes& table = lenses_[0].*slot.table;
    EXPECT_EQ(takeRequests(), joined(questions(slot), requests({{212, {0x08, 0x00}},
                                                                {212, {0x08, 0x01}},
                                                                {211, piece(0x00100000, table, 0, 128)},
                                                                {211, piece(0x00100080, table, 128, 128)},
                                                                {211, piece(0x00100100, table, 256, 44)}})));
    EXPECT_TRUE(scripted::network().serial.replies.empty());
  }
}

TEST_F(SffcTransferTest, SelectedLens_IsWritten) {
  currentLensNumber = 1;
  replyToTransfer(0, 300, 512, 1);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(takeRequests().back(), scripted::hex(core_frames::frame(211, piece(256, lenses_[1].low, 256, 44))));
}

TEST_F(SffcTransferTest, OrderOfEveryCall) {
  useLenses({tables("L25mm", 130)});
  replyToTransfer(0, 130, 256, 1);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  const auto message = [](uint8_t code, const Bytes& payload, int wait_us) {
    return Log{"PvDeviceAdapter::PvDeviceAdapter Cam A",
               "PvDeviceSerialPort::Open 2 of Cam A",
               "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(code, payload)),
               "usleep " + std::to_string(wait_us) + " us",
               "PvDeviceSerialPort::GetRxBytesReady",
               "PvDeviceSerialPort::Read 1024 500",
               "PvDeviceSerialPort::Close",
               "PvDeviceSerialPort::~PvDeviceSerialPort",
               "PvDeviceAdapter::~PvDeviceAdapter"};
  };
  Log expected = message(214, {0x00, 0x00, 0x00, 0x11}, 10'000);
  expected = joined(expected, message(213, {0xFF, 0xFF}, 10'000));
  expected = joined(expected, message(212, {0x00, 0x00}, 1'000'000));
  expected = joined(expected, {"PvDeviceAdapter::PvDeviceAdapter Cam A", "PvDeviceSerialPort::Open 2 of Cam A"});
  expected = joined(expected, {"PvDeviceSerialPort::Write " +
                                   scripted::hex(core_frames::frame(211, piece(0, lenses_[0].low, 0, 128))),
                               "PvDeviceSerialPort::GetRxBytesReady", "PvDeviceSerialPort::Read 1024 500"});
  expected.push_back("PvDeviceSerialPort::Write " +
                     scripted::hex(core_frames::frame(211, piece(128, lenses_[0].low, 128, 2))));
  expected.emplace_back("PvDeviceSerialPort::GetRxBytesReady");
  for (int poll = 0; poll < 1000; ++poll) {  // the double never says that bytes are ready
    expected = joined(expected, {"usleep 1000 us", "PvDeviceSerialPort::GetRxBytesReady"});
  }
  expected = joined(expected, {"PvDeviceSerialPort::Read 1024 500", "PvDeviceSerialPort::Close",
                               "PvDeviceSerialPort::~PvDeviceSerialPort", "PvDeviceAdapter::~PvDeviceAdapter"});
  EXPECT_EQ(takeAll(), expected);
}

TEST_F(SffcTransferTest, LastPiece_IsPolledForUntilTenBytesAreReady) {
  useLenses({tables("L25mm", 1)});
  for (const uint32_t enough : {10U, 11U}) {
    replyToTransfer(0, 1, 256, 1);
    scripted::network().serial.ready = {0, 0, 0, 0, 9, enough};  // the first three are of the questions and the erasure
    EXPECT_EQ(core_.switchSFFC1(), 0);
    EXPECT_EQ(take({"usleep 1000 us"}), Log(2, "usleep 1000 us"));
  }
}

TEST_F(SffcTransferTest, EverySize_PiecesOf128AndTheRest) {
  for (const std::size_t size : {1U, 127U, 128U, 129U, 255U, 256U, 257U, 1280U}) {
    for (const Slot& slot : kSlots) {
      useLenses({tables("L25mm", size)});
      replyToTransfer(0x1000, static_cast<uint32_t>(size), 0x10000, 1);
      EXPECT_EQ(write(slot), 0) << size;
      std::vector<std::pair<uint8_t, Bytes>> expected = {{212, {0x00, 0x00}}};
      for (std::size_t offset = 0; offset < size; offset += 128) {
        const Bytes& table = lenses_[0].*slot.table;
        expected.emplace_back(uint8_t{211}, piece(static_cast<uint32_t>(0x1000 + offset), table, offset,
                                                  std::min<std::size_t>(128, size - offset)));
      }
      EXPECT_EQ(takeRequests(), joined(questions(slot), requests(expected))) << size;
    }
  }
}

TEST_F(SffcTransferTest, FullPiecesOnly_AreNotPolledFor) {
  useLenses({tables("L25mm", 256)});
  replyToTransfer(0, 256, 256, 1);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(take({"usleep 1000 us"}), Log{});
}

TEST_F(SffcTransferTest, EmptyTable_NothingIsErasedOrWritten) {
  useLenses({tables("L25mm", 0)});
  replyToTransfer(0x1000, 0, 256, 0);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(takeRequests(), questions(kSlots[0]));
}

TEST_F(SffcTransferTest, EraseRange_AllShapes) {
  const auto range = [](uint32_t address, uint32_t size, uint32_t base, uint32_t block) {
    const keocam::EraseRange result = keocam::eraseRange({address, size}, {base, block});
    return std::make_pair(static_cast<unsigned int>(result.first), result.count);
  };
  EXPECT_EQ(range(0, 512, 0, 256), std::make_pair(0U, 2U));
  EXPECT_EQ(range(0, 513, 0, 256), std::make_pair(0U, 3U));
  EXPECT_EQ(range(0, 511, 0, 256), std::make_pair(0U, 2U));
  EXPECT_EQ(range(0x300, 256, 0x100, 256), std::make_pair(2U, 1U));
  EXPECT_EQ(range(0x3FF, 256, 0x100, 256), std::make_pair(2U, 1U)) << "an address within a block";
  EXPECT_EQ(range(0, 0, 0, 256), std::make_pair(0U, 0U));
  EXPECT_EQ(range(0x1000, 300, 0, 0), std::make_pair(0U, 1U)) << "no block size: block 0, once";
  EXPECT_EQ(range(0x1000, 0, 0, 0), std::make_pair(0U, 0U));
  EXPECT_EQ(range(0x10000 * 16, 32, 0, 16), std::make_pair(0U, 2U)) << "numbers have 16 bits";
  EXPECT_EQ(range(0, 1'310'720, 0, 131'072), std::make_pair(0U, 10U));
}

TEST_F(SffcTransferTest, BlockNumber_PassesFrom65535To0) {
  useLenses({tables("L25mm", 3)});
  replyToTransfer(0xFFFE, 3, 1, 3);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  const Log sent = takeRequests();
  EXPECT_EQ(Log(sent.begin() + 2, sent.begin() + 5),
            requests({{212, {0xFF, 0xFE}}, {212, {0xFF, 0xFF}}, {212, {0x00, 0x00}}}));
}

TEST_F(SffcTransferTest, NoAnswerToAQuestion_SaysNothingOfItsOwn) {
  for (const Slot& slot : kSlots) {
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), line("CameraSerialSettings::sendMessage: Error reading message from camera."));
    replyTo(214, longs(0, 300));
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takeRequests(), questions(slot));
  }
}

TEST_F(SffcTransferTest, OtherSize_NothingIsErased_AndBothNameTheFirstMember) {
  for (const Slot& slot : kSlots) {
    replyTo(214, longs(0, 301));
    replyTo(213, longs(0, 256));
    EXPECT_EQ(write(slot), -1);
    const Log events = takeAll();
    EXPECT_EQ(events.back(),
              "err: CameraSerialSettings::switchSFFC1(): Wrong SFFC table size: 300 expected by the calibration data, "
              "301 reported by the camera.\\n");
    EXPECT_EQ(std::count_if(events.begin(), events.end(),
                            [](const std::string& event) { return event.find("::Write ") != std::string::npos; }),
              2);
  }
}

TEST_F(SffcTransferTest, NoAnswerToAnErasure_EndsIt) {
  for (const Slot& slot : kSlots) {
    replyTo(214, longs(0, 300));
    replyTo(213, longs(0, 256));
    replyTo(212, {});
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), joined(line("CameraSerialSettings::sendMessage: Error reading message from camera."),
                                    line(slot.prefix + "Error deleting memory block.")));
  }
}

TEST_F(SffcTransferTest, NoAnswerToAFullPiece_EndsIt_AndTellsTheBytesRead) {
  for (const Slot& slot : kSlots) {
    replyTo(214, longs(0, 300));
    replyTo(213, longs(0, 512));
    replyTo(212, {});
    replyTo(211, {});
    EXPECT_EQ(write(slot), -1);
    const Log events = takeAll();
    const Log end(events.end() - 4, events.end());
    EXPECT_EQ(end, joined(line(slot.prefix + "Error reading message from camera. 0"),
                          {"PvDeviceSerialPort::Close", "PvDeviceSerialPort::~PvDeviceSerialPort",
                           "PvDeviceAdapter::~PvDeviceAdapter"}));
  }
}

TEST_F(SffcTransferTest, NoAnswerToTheLastPiece_MessageWithoutBlank) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0, 300, 512, 1);
    scripted::network().serial.replies.pop_back();
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), line(slot.prefix + "Error reading message from camera."));
  }
}

TEST_F(SffcTransferTest, WriteOfAFullPieceFails_EndsIt) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0, 300, 512, 1);
    scripted::network().serial.writes_taken = 3;
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), line(slot.prefix + "Error writing message to camera."));
    EXPECT_EQ(scripted::network().serial.replies.size(), 3u) << "no answer is awaited";
    scripted::network().serial = {};
  }
}

TEST_F(SffcTransferTest, WriteOfTheLastPieceFails_AnswerIsAwaitedAllTheSame) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0, 300, 512, 1);
    scripted::network().serial.writes_taken = 5;
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), line(slot.prefix + "Error writing message to camera."));
    EXPECT_TRUE(scripted::network().serial.replies.empty());
    scripted::network().serial = {};
  }
}

TEST_F(SffcTransferTest, ContentOfAPiecesAnswer_IsNotLookedAt) {
  replyTo(214, longs(0, 300));
  replyTo(213, longs(0, 512));
  replyTo(212, {});
  replyTo(211, {}, 0x0A);
  reply({0x00});
  reply({});
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(SffcTransferTest, NoSuchLens_Throws) {
  for (const int32_t index : {2, -1}) {
    currentLensNumber = index;
    EXPECT_THROW(core_.switchSFFC1(), std::out_of_range);
    EXPECT_THROW(core_.switchSFFC2(), std::out_of_range);
  }
  EXPECT_EQ(takeAll(), Log{});
}

}  // namespace
