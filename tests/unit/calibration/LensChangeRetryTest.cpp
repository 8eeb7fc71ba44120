// changeLens on a line that loses and spoils messages: what is sent again, what is not, and answers that come late.
#include <algorithm>
#include <deque>
#include <functional>
#include <iterator>
#include <optional>

#include "calibration/LensChange.h"
#include "tests/unit/calibration/LensTest.h"

namespace {

using core_frames::frame;
using keocam::LensChange;
using keocam::LensChangeEnd;
using keocam::TableState;
using keocam::Verification;

constexpr uint8_t kRangeError = 0x03;
constexpr uint8_t kChecksumError = 0x04;
constexpr uint8_t kTimeOutError = 0x07;

/// Each message gets the next of the queued answers, or none.
class LensChangeRetryTest : public LensTest {
 protected:
  using Answer = std::optional<Bytes>;

  LensChangeRetryTest() {
    scripted::network().serial.on_write = [this] {
      if (answers_.empty()) return;
      if (answers_.front()) reply(*answers_.front());
      answers_.pop_front();
    };
  }

  LensChange change(Verification verification = Verification::None) {
    return keocam::changeLens(core_, "L50mm", {}, verification);
  }

  /// To the questions, the erasure and the pieces of a table of 300 bytes in one block, of which `spoilt` come in the
  /// second piece's place first.
  void answerTable(const std::vector<Answer>& spoilt = {}) {
    queue({frame(214, longs(0, 300)), frame(213, longs(0, 512)), frame(212, {}), frame(211, {})});
    queue(spoilt);
    queue({frame(211, {}), frame(211, {})});
  }
  void answerEnd() { queue({frame(30, {}), frame(12, {})}); }
  void queue(const std::vector<Answer>& answers) { answers_.insert(answers_.end(), answers.begin(), answers.end()); }

  /// Every way in which the answer to a piece can be lost or spoilt.
  static std::vector<Answer> spoiltAnswers() {
    Bytes wrong_crc = frame(211, {});
    wrong_crc.back() ^= 0x01;
    Bytes wrong_header = frame(211, {});
    wrong_header[6] ^= 0x80;
    Bytes cut = frame(211, {});
    cut.pop_back();
    return {std::nullopt,
            Bytes{},
            cut,
            wrong_crc,
            wrong_header,
            frame(210, {}),
            frame(211, {}, kChecksumError),
            frame(211, {}, kTimeOutError)};
  }

  Log secondPieces(const Log& sent) const {
    const Log wanted = requests({{211, piece(128, lenses_[1].low, 128, 128)}});
    Log found;
    std::copy_if(sent.begin(), sent.end(), std::back_inserter(found),
                 [&](const std::string& request) { return request == wanted.front(); });
    return found;
  }

  std::deque<Answer> answers_;
};

TEST_F(LensChangeRetryTest, PieceWithoutASoundAnswer_IsSentAgain_TwiceAtMost) {
  const std::vector<Answer> spoilt = spoiltAnswers();
  for (std::size_t i = 0; i < spoilt.size(); ++i) {
    for (const std::size_t times : {1U, 2U}) {
      answerTable(std::vector<Answer>(times, spoilt[i]));
      answerTable();
      answerEnd();
      const LensChange result = change();
      EXPECT_EQ(result.end, LensChangeEnd::Complete) << i << ": " << result.failure;
      EXPECT_EQ(result.low, TableState::Written) << i;
      const Log sent = takeRequests();
      EXPECT_EQ(secondPieces(sent).size(), 1 + times) << i;
      EXPECT_EQ(sent.size(), 2 * 6 + 2 + times) << i << ": nothing else is sent again";
      EXPECT_TRUE(answers_.empty());
    }
    answerTable(std::vector<Answer>(3, spoilt[i]));
    const LensChange result = change();
    EXPECT_EQ(result.end, LensChangeEnd::Failed) << i;
    EXPECT_EQ(result.low, TableState::PartlyWritten) << i;
    EXPECT_EQ(result.high, TableState::Untouched) << i;
    EXPECT_EQ(result.failure, i == 0 ? "The core did not answer."
                                     : "The core's answer about the bytes at 128 came damaged again and again.");
    const Log sent = takeRequests();
    EXPECT_EQ(secondPieces(sent).size(), 3u) << i;
    EXPECT_EQ(sent.size(), 7u) << i;
    answers_.clear();
  }
}

TEST_F(LensChangeRetryTest, RefusedPiece_IsNotSentAgain) {
  for (const uint8_t status : {kRangeError, uint8_t{0x02}, uint8_t{0x0A}}) {
    answerTable({frame(211, {}, status)});
    const LensChange result = change();
    EXPECT_EQ(result.low, TableState::PartlyWritten);
    EXPECT_EQ(result.failure, "The core did not take the bytes at 128.");
    EXPECT_EQ(takeRequests().size(), 5u);
    answers_.clear();
  }
}

TEST_F(LensChangeRetryTest, PieceThatTheCameraDoesNotTake_IsNotSentAgain) {
  answerTable();
  scripted::network().serial.writes_taken = 4;
  EXPECT_EQ(change().failure, "The camera took no bytes for the core.");
  EXPECT_EQ(takeRequests().size(), 5u);
}

TEST_F(LensChangeRetryTest, QuestionsAndErasures_AreNotRepeated) {
  queue({std::nullopt, frame(214, longs(0, 300))});
  EXPECT_EQ(change().low, TableState::Untouched);
  EXPECT_EQ(takeRequests().size(), 1u);
  answers_.clear();
  queue({frame(214, longs(0, 300)), frame(213, longs(0, 512)), std::nullopt, frame(212, {})});
  EXPECT_EQ(change().low, TableState::PartlyWritten);
  EXPECT_EQ(takeRequests().size(), 3u);
}

TEST_F(LensChangeRetryTest, ReadingBack_PieceIsAskedForAgain) {
  const Bytes& table = lenses_[1].low;
  const auto held = [&table](std::size_t offset, std::size_t size) {
    const auto begin = table.begin() + static_cast<std::ptrdiff_t>(offset);
    return frame(210, Bytes(begin, begin + static_cast<std::ptrdiff_t>(size)));
  };
  Bytes damaged = held(128, 128);
  damaged[60] ^= 0x10;
  answerTable();
  queue({held(0, 128), damaged, std::nullopt, held(128, 128), held(256, 44)});
  const LensChange result = change(Verification::ReadBack);
  EXPECT_EQ(result.low, TableState::Verified) << result.failure;

  answers_.clear();
  answerTable();
  queue({held(0, 128), damaged, damaged, held(128, 127)});
  EXPECT_EQ(change(Verification::ReadBack).low, TableState::NotVerified);
}

TEST_F(LensChangeRetryTest, Members_SendNothingAgain) {
  for (const Answer& spoilt : spoiltAnswers()) {
    answerTable({spoilt});
    const bool answered = spoilt.has_value();
    currentLensNumber = 1;
    EXPECT_EQ(core_.switchSFFC1(), answered ? 0 : -1);
    const Log sent = takeRequests();
    EXPECT_EQ(secondPieces(sent).size(), 1u);
    EXPECT_EQ(sent.size(), answered ? 6u : 5u);
    answers_.clear();
    scripted::network().serial.replies.clear();
  }
}

// An exchange asks twice how many bytes have come: before it sends, and before it reads.
TEST_F(LensChangeRetryTest, LateAnswers_AreThrownAwayBeforeAPiece) {
  for (const std::size_t message : {3U, 6U}) {  // the first piece written, the first read back
    scripted::network().serial.replies.clear();
    answers_.clear();
    answerTable();
    for (std::size_t offset = 0; offset < 300; offset += 128) {
      Bytes held = piece(0, lenses_[1].low, offset, std::min<std::size_t>(128, 300 - offset));
      held.erase(held.begin(), held.begin() + 4);
      queue({frame(210, held)});
    }
    scripted::network().serial.ready.assign(2 * message, 0);
    scripted::network().serial.ready.push_back(10);
    std::size_t writes = 0;
    const std::function<void()> answer = scripted::network().serial.on_write;
    scripted::network().serial.on_write = [&] {
      answer();
      // A refusal that nobody waits for any more, by the code that comes next.
      if (++writes == message) reply(frame(message == 3 ? 211 : 210, {}, kRangeError));
    };
    const LensChange result = change(Verification::ReadBack);
    EXPECT_EQ(result.low, TableState::Verified) << message << ": " << result.failure;
    scripted::network().serial.on_write = answer;
  }
}

TEST_F(LensChangeRetryTest, Members_TakeWhatIsThere) {
  answerTable();
  currentLensNumber = 1;
  EXPECT_EQ(core_.switchSFFC1(), 0);
  // Nothing is read but one answer for each message.
  EXPECT_EQ(take({"PvDeviceSerialPort::Read"}), Log(6, "PvDeviceSerialPort::Read 1024 500"));
}

}  // namespace
