// switchSFFC1 and switchSFFC2: every failure, the lines that tell it, and what is closed behind it.
#include <algorithm>

#include "tests/unit/calibration/SffcTransferFixture.h"

namespace {

using SffcFailureTest = SffcTransferTest;

TEST_F(SffcFailureTest, NoAnswerToAQuestion_BothAreAsked_AndNothingOfItsOwnIsSaid) {
  const Log silent = line("CameraSerialSettings::sendMessage: Error reading message from camera.");
  for (const Slot& slot : kSlots) {
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takeAll(), joined(message(214, {0x00, slot.number, 0x00, 0x11}, 10'000, silent),
                                message(213, {0xFF, 0xFF}, 10'000, silent)));
  }
}

TEST_F(SffcFailureTest, NoAnswerToTheSecondQuestionOnly_NothingIsErased) {
  for (const Slot& slot : kSlots) {
    replyTo(214, longs(0, 300));
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takeRequests(), questions(slot));
  }
}

TEST_F(SffcFailureTest, RefusalOfTheFirstQuestionOnly_NothingIsErased) {
  for (const Slot& slot : kSlots) {
    replyTo(214, {}, 0x03);
    replyTo(213, longs(0, 256));
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takeRequests(), questions(slot));
  }
}

TEST_F(SffcFailureTest, OtherSize_NothingIsErased_AndBothNameTheFirstMember) {
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

TEST_F(SffcFailureTest, NoAnswerToAnErasure_EndsIt) {
  for (const Slot& slot : kSlots) {
    replyTo(214, longs(0, 300));
    replyTo(213, longs(0, 256));
    replyTo(212, {});
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), joined(line("CameraSerialSettings::sendMessage: Error reading message from camera."),
                                    line(slot.prefix + "Error deleting memory block.")));
  }
}

TEST_F(SffcFailureTest, NoWholeAnswerToAFullPiece_EndsIt_AndTellsTheBytesRead) {
  for (const Slot& slot : kSlots) {
    for (const std::size_t received : {0U, 3U, 9U}) {
      replyTo(214, longs(0, 300));
      replyTo(213, longs(0, 512));
      replyTo(212, {});
      replyTo(211, {});
      scripted::network().serial.before_time_out = Bytes(received, 0x6E);
      EXPECT_EQ(write(slot), -1);
      EXPECT_EQ(last(takeAll(), 6),
                joined(Log{"PvDeviceSerialPort::GetRxBytesReady", "PvDeviceSerialPort::Read 1024 500"},
                       joined(line(slot.prefix + "Error reading message from camera. " + std::to_string(received)),
                              closing())));
    }
  }
}

TEST_F(SffcFailureTest, NoAnswerToTheLastPiece_MessageWithoutBlank) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0, 300, 512, 1);
    scripted::network().serial.replies.pop_back();
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(takePrinted(), line(slot.prefix + "Error reading message from camera."));
  }
}

TEST_F(SffcFailureTest, WriteOfAFullPieceFails_EndsIt_WithNoAnswerAwaited) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0, 300, 512, 1);
    scripted::network().serial.writes_taken = 3;
    EXPECT_EQ(write(slot), -1);
    EXPECT_EQ(last(takeAll(), 5),
              joined({"PvDeviceSerialPort::Write " +
                      scripted::hex(core_frames::frame(211, piece(0, lenses_[0].*slot.table, 0, 128)))},
                     joined(line(slot.prefix + "Error writing message to camera."), closing())));
    EXPECT_EQ(scripted::network().serial.replies.size(), 3u);
    scripted::network().serial = {};
  }
}

TEST_F(SffcFailureTest, WriteOfTheLastPieceFails_AnswerIsAwaitedAllTheSame) {
  for (const Slot& slot : kSlots) {
    for (const bool answered : {true, false}) {
      replyToTransfer(0, 300, 512, 1);
      if (!answered) scripted::network().serial.replies.pop_back();
      scripted::network().serial.writes_taken = 5;
      scripted::network().serial.ready = {0, 0, 0, 0, 0, 10};  // of the questions, the erasure, two pieces and this one
      EXPECT_EQ(write(slot), -1);
      Log expected = {"PvDeviceSerialPort::Write " +
                      scripted::hex(core_frames::frame(211, piece(256, lenses_[0].*slot.table, 256, 44)))};
      expected = joined(expected, line(slot.prefix + "Error writing message to camera."));
      expected = joined(expected, {"PvDeviceSerialPort::GetRxBytesReady", "PvDeviceSerialPort::Read 1024 500"});
      if (!answered) expected = joined(expected, line(slot.prefix + "Error reading message from camera."));
      expected = joined(expected, closing());
      EXPECT_EQ(last(takeAll(), expected.size()), expected);
      EXPECT_TRUE(scripted::network().serial.replies.empty());
      scripted::network().serial = {};
    }
  }
}

TEST_F(SffcFailureTest, ContentOfAPiecesAnswer_IsNotLookedAt) {
  replyTo(214, longs(0, 300));
  replyTo(213, longs(0, 512));
  replyTo(212, {});
  replyTo(211, {}, 0x0A);
  reply({0x00});
  reply({});
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(takePrinted(), Log{});
}

}  // namespace
