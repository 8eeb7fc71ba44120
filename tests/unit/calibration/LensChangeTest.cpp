// changeLens: progress, cancelling, verifying, and an account of every failure.
#include "calibration/LensChange.h"

#include "tests/unit/calibration/LensTest.h"

namespace {

using keocam::LensChange;
using keocam::LensChangeEnd;
using keocam::SffcTable;
using keocam::TableState;
using keocam::TransferPhase;
using keocam::TransferProgress;
using keocam::Verification;

class LensChangeTest : public LensTest {
 protected:
  LensChange change(Verification verification = Verification::None) {
    return keocam::changeLens(
        core_, "L50mm",
        [this](const TransferProgress& progress) {
          progress_.push_back(progress);
          return progress_.size() != cancel_at_;
        },
        verification);
  }
  void replyWithTable(const Bytes& table) {
    for (std::size_t offset = 0; offset < table.size(); offset += 128) {
      Bytes part(table.begin() + static_cast<std::ptrdiff_t>(offset), table.end());
      if (part.size() > 128) part.resize(128);
      replyTo(210, part);
    }
  }
  void replyToEverything(bool read_back) {
    replyToTransfer(0x1000, 300, 256, 2);
    if (read_back) replyWithTable(lenses_[1].low);
    replyToTransfer(0x2000, 300, 256, 2);
    if (read_back) replyWithTable(lenses_[1].high);
    replyTo(30, {});
    replyTo(12, {});
  }

  LensChange changeCancelledAt(std::size_t call, Verification verification) {
    scripted::network().serial = {};
    replyToEverything(verification == Verification::ReadBack);
    progress_.clear();
    cancel_at_ = call;
    log().clear();
    return change(verification);
  }

  std::vector<TransferProgress> progress_;
  std::size_t cancel_at_ = 0;
};

TEST_F(LensChangeTest, Whole_Written) {
  replyToEverything(false);
  const LensChange result = change();
  EXPECT_EQ(result.end, LensChangeEnd::Complete);
  EXPECT_EQ(result.low, TableState::Written);
  EXPECT_EQ(result.high, TableState::Written);
  EXPECT_EQ(result.failure, "");
  EXPECT_EQ(currentLensNumber, 1);
  EXPECT_TRUE(core_.isSetLensReady());
  EXPECT_TRUE(scripted::network().serial.replies.empty());
}

TEST_F(LensChangeTest, Whole_SendsWhatSetLensSends) {
  replyToEverything(false);
  core_.SetLens("L50mm");
  const Log member = takeRequests();
  replyToEverything(false);
  change();
  EXPECT_EQ(takeRequests(), member);
}

TEST_F(LensChangeTest, ReadBack_Verified) {
  replyToEverything(true);
  const LensChange result = change(Verification::ReadBack);
  EXPECT_EQ(result.end, LensChangeEnd::Complete);
  EXPECT_EQ(result.low, TableState::Verified);
  EXPECT_EQ(result.high, TableState::Verified);
}

TEST_F(LensChangeTest, ReadBack_OtherByte_Differs) {
  replyToTransfer(0x1000, 300, 256, 2);
  Bytes held = lenses_[1].low;
  held[299] = static_cast<uint8_t>(~held[299]);
  replyWithTable(held);
  const LensChange result = change(Verification::ReadBack);
  EXPECT_EQ(result.end, LensChangeEnd::Failed);
  EXPECT_EQ(result.low, TableState::Differs);
  EXPECT_EQ(result.high, TableState::Untouched);
  EXPECT_EQ(result.failure, "The core holds other bytes than were written, at 256.");
}

TEST_F(LensChangeTest, ReadBack_NoAnswer_IsNotVerified) {
  replyToTransfer(0x1000, 300, 256, 2);
  const LensChange result = change(Verification::ReadBack);
  EXPECT_EQ(result.end, LensChangeEnd::Failed);
  EXPECT_EQ(result.low, TableState::NotVerified);
  EXPECT_EQ(result.failure, "The core did not give its table back.");
}

TEST_F(LensChangeTest, Progress_EveryBlockAndPiece) {
  replyToEverything(true);
  change(Verification::ReadBack);
  const struct {
    TransferPhase phase;
    uint32_t done;
  } steps[] = {{TransferPhase::Erasing, 0},     {TransferPhase::Erasing, 256},  {TransferPhase::Erasing, 300},
               {TransferPhase::Writing, 0},     {TransferPhase::Writing, 128},  {TransferPhase::Writing, 256},
               {TransferPhase::Writing, 300},   {TransferPhase::Verifying, 0},  {TransferPhase::Verifying, 128},
               {TransferPhase::Verifying, 256}, {TransferPhase::Verifying, 300}};
  ASSERT_EQ(progress_.size(), 2 * std::size(steps));
  for (std::size_t i = 0; i < progress_.size(); ++i) {
    const auto& step = steps[i % std::size(steps)];
    EXPECT_EQ(progress_[i].table, i < std::size(steps) ? SffcTable::Low : SffcTable::High) << i;
    EXPECT_EQ(progress_[i].phase, step.phase) << i;
    EXPECT_EQ(progress_[i].done_bytes, step.done) << i;
    EXPECT_EQ(progress_[i].total_bytes, 300u) << i;
  }
}

// By the observer's calls for one table: how a cancellation at that call leaves it, and the messages up to then.
struct Cancelled {
  TableState state;
  std::size_t messages;
};
constexpr Cancelled kCancelled[] = {
    {TableState::Untouched, 2},      // before the first erasure
    {TableState::PartlyWritten, 3},  // before the second
    {TableState::PartlyWritten, 4},  // at the end of erasing
    {TableState::PartlyWritten, 4},  // before the first piece, and the others
    {TableState::PartlyWritten, 5}, {TableState::PartlyWritten, 6},
    {TableState::Written, 7},      // at the end of writing: what is cancelled is reading back
    {TableState::NotVerified, 7},  // before the first piece is read, and the others
    {TableState::NotVerified, 8},   {TableState::NotVerified, 9},
    {TableState::Verified, 10},  // at the end of reading back
};

TEST_F(LensChangeTest, Cancelled_InTheFirstTable_NothingMoreIsSent) {
  for (std::size_t i = 0; i < std::size(kCancelled); ++i) {
    const LensChange result = changeCancelledAt(i + 1, Verification::ReadBack);
    EXPECT_EQ(result.end, LensChangeEnd::Cancelled) << i;
    EXPECT_EQ(result.low, kCancelled[i].state) << i;
    EXPECT_EQ(result.high, TableState::Untouched) << i;
    EXPECT_EQ(takeRequests().size(), kCancelled[i].messages) << i;
    EXPECT_TRUE(core_.isSetLensReady());
  }
}

TEST_F(LensChangeTest, Cancelled_InTheSecondTable_NothingMoreIsSent_ButAtItsVeryEnd) {
  for (std::size_t i = 0; i < std::size(kCancelled); ++i) {
    const bool too_late = i + 1 == std::size(kCancelled);
    const LensChange result = changeCancelledAt(std::size(kCancelled) + i + 1, Verification::ReadBack);
    EXPECT_EQ(result.end, too_late ? LensChangeEnd::Complete : LensChangeEnd::Cancelled) << i;
    EXPECT_EQ(result.low, TableState::Verified) << i;
    EXPECT_EQ(result.high, kCancelled[i].state) << i;
    // Too late, the core is told to use the tables and to correct.
    EXPECT_EQ(takeRequests().size(), 10 + kCancelled[i].messages + (too_late ? 2 : 0)) << i;
  }
}

TEST_F(LensChangeTest, CancelledAtTheVeryEndOfWriting_WithoutVerification_IsComplete) {
  const std::size_t calls = 7;
  const LensChange between = changeCancelledAt(calls, Verification::None);
  EXPECT_EQ(between.end, LensChangeEnd::Cancelled);
  EXPECT_EQ(between.low, TableState::Written);
  EXPECT_EQ(between.high, TableState::Untouched);
  const LensChange too_late = changeCancelledAt(2 * calls, Verification::None);
  EXPECT_EQ(too_late.end, LensChangeEnd::Complete);
  EXPECT_EQ(too_late.high, TableState::Written);
  EXPECT_TRUE(scripted::network().serial.replies.empty());
}

TEST_F(LensChangeTest, ObserverThrows_LeavesNothingOpen) {
  replyToEverything(false);
  EXPECT_THROW(keocam::changeLens(
                   core_, "L50mm",
                   [](const TransferProgress& progress) -> bool {
                     if (progress.phase == TransferPhase::Writing) throw std::runtime_error("enough");
                     return true;
                   },
                   Verification::None),
               std::runtime_error);
  EXPECT_TRUE(core_.isSetLensReady());
}

TEST_F(LensChangeTest, UnknownLens) {
  currentLensNumber = 1;
  const LensChange result = keocam::changeLens(core_, "no such", {}, Verification::None);
  EXPECT_EQ(result.end, LensChangeEnd::UnknownLens);
  EXPECT_EQ(currentLensNumber, 1);
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(LensChangeTest, LensWithoutTables_IsSelected) {
  useLenses({tables("L25mm", 300), tables("L50mm", 0)});
  const LensChange result = keocam::changeLens(core_, "L50mm", {}, Verification::ReadBack);
  EXPECT_EQ(result.end, LensChangeEnd::Complete);
  EXPECT_EQ(result.low, TableState::Untouched);
  EXPECT_EQ(currentLensNumber, 1);
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(LensChangeTest, EveryFailure_IsASentence_AndPrintsNothing) {
  const auto failed = [this](TableState low, TableState high, const std::string& failure) {
    const LensChange result = change();
    EXPECT_EQ(result.end, LensChangeEnd::Failed);
    EXPECT_EQ(result.low, low) << failure;
    EXPECT_EQ(result.high, high) << failure;
    EXPECT_EQ(result.failure, failure);
    EXPECT_EQ(takePrinted(), Log{});
    scripted::network().serial = {};
  };
  failed(TableState::Untouched, TableState::Untouched, "The core does not tell where its table is.");
  replyTo(214, longs(0, 400));
  replyTo(213, longs(0, 256));
  failed(TableState::Untouched, TableState::Untouched,
         "The lens' table has 300 bytes, but the core's place for it has 400.");
  replyTo(214, longs(0x1000, 300));
  replyTo(213, longs(0, 256));
  replyTo(212, {}, 0x03);
  failed(TableState::PartlyWritten, TableState::Untouched, "The core did not erase block 16.");
  replyTo(214, longs(0, 300));
  replyTo(213, longs(0, 512));
  replyTo(212, {});
  replyTo(211, {});
  replyTo(211, {}, 0x03);
  failed(TableState::PartlyWritten, TableState::Untouched, "The core did not take the bytes at 128.");
  replyTo(214, longs(0, 300));
  replyTo(213, longs(0, 512));
  replyTo(212, {});
  failed(TableState::PartlyWritten, TableState::Untouched, "The core did not answer.");
  replyToTransfer(0, 300, 512, 1);
  scripted::network().serial.writes_taken = 4;
  failed(TableState::PartlyWritten, TableState::Untouched, "The camera took no bytes for the core.");
  replyToTransfer(0, 300, 512, 1);
  failed(TableState::Written, TableState::Untouched, "The core does not tell where its table is.");
  replyToTransfer(0, 300, 512, 1);
  replyToTransfer(0, 300, 512, 1);
  failed(TableState::Written, TableState::Written,
         "The core holds the lens' tables, but did not confirm that it uses them.");
  replyToTransfer(0, 300, 512, 1);
  replyToTransfer(0, 300, 512, 1);
  replyTo(30, {});
  failed(TableState::Written, TableState::Written,
         "The core uses the lens' tables, but did not confirm the flat-field correction that is due.");
}

}  // namespace
