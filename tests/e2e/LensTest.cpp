// Lenses end to end: tables written into a simulated core's flash over UDP, found again, and repaired after a cut.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "calibration/Calibration.h"
#include "calibration/LensChange.h"
#include "simulator/calibration/CalibrationText.h"
#include "tests/e2e/CoreCamera.h"

namespace {

using keocam::TableState;
using simulator::Bytes;

/// A calibration with two lenses of tables of this size.
std::string calibrationWithTables(std::size_t table_bytes) {
  simulator::CalibrationOptions options;
  options.sensor = {160, 128};
  options.table_bytes = table_bytes;
  options.lenses = {{"L25mm"}, {"L50mm"}};
  return simulator::calibrationText(options);
}

class LensEndToEnd : public testing::Test {
 protected:
  ~LensEndToEnd() override {
    calibrationVect.clear();
    currentLensNumber = 0;
  }

  static e2e::CoreCameraOptions flashOf(uint32_t table_bytes, uint32_t block_bytes) {
    e2e::CoreCameraOptions options;
    options.shutter_ms = 50;
    options.flash = simulator::flashGeometryFor(table_bytes, block_bytes);
    return options;
  }

  static void useCalibration(CameraSerialSettings& core, std::size_t table_bytes) {
    core.setCalibrationData(calibrationWithTables(table_bytes), "03", "KEOD2001");
    ASSERT_EQ(calibrationVect.size(), 2u);
    ASSERT_EQ(calibrationVect[0].sffcTableSize, static_cast<int32_t>(table_bytes));
  }

  /// Whether the beginning and the end of a change of lenses, which takes seconds, are seen from this thread.
  static bool seesAChange(CameraSerialSettings& core) {
    const auto give_up = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (const bool ready : {false, true}) {
      while (core.isSetLensReady() != ready) {
        if (std::chrono::steady_clock::now() > give_up) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
    }
    return true;
  }

  static testing::AssertionResult holds(const simulator::ThermalCore& core, const CalibrationStruct& lens) {
    const auto size = static_cast<std::size_t>(lens.sffcTableSize);
    const uint8_t* const tables[] = {lens.sffcLowRange, lens.sffcHighRange};
    for (std::size_t slot = 0; slot < 2; ++slot) {
      const Bytes held = core.lensTable(slot);
      if (held.size() != size || !std::equal(held.begin(), held.end(), tables[slot])) {
        return testing::AssertionFailure() << "slot " << slot << " does not hold the table of " << lens.lens;
      }
    }
    return testing::AssertionSuccess();
  }
};

TEST_F(LensEndToEnd, SetLens_WhileFramesStream_FlashIsTheRecord_AndIsFoundAgainAfterReconnection) {
  constexpr uint32_t kTable_bytes = 160 * 128 * 4;
  e2e::CoreCamera camera(flashOf(kTable_bytes, 64 * 1024));
  useCalibration(camera.core(), kTable_bytes);
  EXPECT_EQ(camera.core().CheckCameraSffc(), -1) << "the flash is erased";
  {
    e2e::BackgroundFrames frames(camera);
    std::future<bool> polled = std::async(std::launch::async, [&core = camera.core()] { return seesAChange(core); });
    EXPECT_EQ(camera.core().SetLens("L50mm"), 1);
    EXPECT_TRUE(polled.get());
    EXPECT_TRUE(camera.core().isSetLensReady());
    EXPECT_TRUE(frames.finish(100));
  }
  EXPECT_TRUE(holds(camera.simulatedCore(), calibrationVect[1]));
  EXPECT_TRUE(camera.coreGotSoundFramesOnly(2 * kTable_bytes / 128));
  EXPECT_EQ(camera.simulatedCore().ffcCount(), 1u);
  currentLensNumber = 0;
  EXPECT_EQ(camera.core().CheckCameraSffc(), 1);
  EXPECT_EQ(currentLensNumber, 1);

  camera.camera().Disconnect();
  ASSERT_EQ(camera.camera().Connect(), 0);
  CameraSerialSettings again(camera.camera().device, PvDeviceSerialBulk0);
  useCalibration(again, kTable_bytes);
  EXPECT_EQ(currentLensNumber, 0);
  EXPECT_EQ(again.GetCurrentLense(), "L50mm");
  EXPECT_EQ(currentLensNumber, 1);
}

TEST_F(LensEndToEnd, OddSizes_AreWrittenAndReadBack) {
  struct Size {
    uint32_t table_bytes;
    uint32_t block_bytes;
  };
  for (const Size& size : {Size{127, 256}, Size{129, 128}, Size{1281, 1000}, Size{300, 0}}) {
    SCOPED_TRACE(std::to_string(size.table_bytes) + " bytes in blocks of " + std::to_string(size.block_bytes));
    e2e::CoreCamera camera(flashOf(size.table_bytes, size.block_bytes));
    useCalibration(camera.core(), size.table_bytes);
    // Without blocks the flash is erased as a whole, and with the second table the first one goes.
    const bool blocks = size.block_bytes != 0;
    const keocam::LensChange change = keocam::changeLens(camera.core(), "L25mm", {}, keocam::Verification::ReadBack);
    EXPECT_EQ(change.end, keocam::LensChangeEnd::Complete) << change.failure;
    EXPECT_EQ(change.high, keocam::TableState::Verified);
    EXPECT_EQ(static_cast<bool>(holds(camera.simulatedCore(), calibrationVect[0])), blocks);
  }
}

TEST_F(LensEndToEnd, OtherTableSize_NothingIsErased) {
  e2e::CoreCamera camera(flashOf(512, 256));
  useCalibration(camera.core(), 300);
  const keocam::LensChange change = keocam::changeLens(camera.core(), "L25mm", {}, keocam::Verification::None);
  EXPECT_EQ(change.end, keocam::LensChangeEnd::Failed);
  EXPECT_EQ(change.low, keocam::TableState::Untouched);
  EXPECT_EQ(camera.simulatedCore().flashCounters().erases, 0u);
  EXPECT_EQ(camera.simulatedCore().flashCounters().writes, 0u);
}

TEST_F(LensEndToEnd, NoBlockSize_EachMemberErasesOnce) {
  e2e::CoreCamera camera(flashOf(300, 0));
  useCalibration(camera.core(), 300);
  const CalibrationStruct& lens = calibrationVect[0];
  EXPECT_EQ(camera.core().switchSFFC1(), 0);
  EXPECT_EQ(camera.simulatedCore().flashCounters().erases, 1u);
  EXPECT_EQ(camera.simulatedCore().lensTable(0), Bytes(lens.sffcLowRange, lens.sffcLowRange + 300));
  EXPECT_EQ(camera.core().switchSFFC2(), 0);
  EXPECT_EQ(camera.simulatedCore().flashCounters().erases, 2u);
  EXPECT_EQ(camera.simulatedCore().lensTable(1), Bytes(lens.sffcHighRange, lens.sffcHighRange + 300));
}

/// Of the messages of a change: two questions, two erasures, five pieces written and five read back for each table,
/// then the slot and the correction.
struct Cut {
  uint32_t after;  ///< messages that the core hears
  TableState low;  ///< what is told of the tables
  TableState high;
  uint32_t erased;  ///< blocks
};

constexpr Cut kCuts[] = {
    {0, TableState::Untouched, TableState::Untouched, 0},      // the first question
    {1, TableState::Untouched, TableState::Untouched, 0},      // the second
    {2, TableState::PartlyWritten, TableState::Untouched, 0},  // the first erasure
    {3, TableState::PartlyWritten, TableState::Untouched, 1},  // the second
    {4, TableState::PartlyWritten, TableState::Untouched, 2},  // the first piece
    {6, TableState::PartlyWritten, TableState::Untouched, 2},  // one in the middle
    {8, TableState::PartlyWritten, TableState::Untouched, 2},  // the last
    {9, TableState::NotVerified, TableState::Untouched, 2},    // reading the first piece back
    {13, TableState::NotVerified, TableState::Untouched, 2},   // the last
    {14, TableState::Verified, TableState::Untouched, 2},      // the second table's first question
    {16, TableState::Verified, TableState::PartlyWritten, 2},  // its first erasure
    {17, TableState::Verified, TableState::PartlyWritten, 3},  // its second
    {18, TableState::Verified, TableState::PartlyWritten, 4},  // its first piece
    {22, TableState::Verified, TableState::PartlyWritten, 4},  // its last
    {23, TableState::Verified, TableState::NotVerified, 4},    // reading back
    {28, TableState::Verified, TableState::Verified, 4},       // the slot
    {29, TableState::Verified, TableState::Verified, 4},       // the correction
};

class LensCut : public LensEndToEnd, public testing::WithParamInterface<Cut> {
 protected:
  /// Whether a slot's contents are what is told of them.
  static testing::AssertionResult isTrue(TableState told, const Bytes& held, const Bytes& before, const Bytes& wanted) {
    const bool written = held == wanted;
    const bool untouched = held == before;
    switch (told) {
      case TableState::Untouched:
        return untouched ? testing::AssertionSuccess() : testing::AssertionFailure() << "it has changed";
      case TableState::PartlyWritten:
        return !written ? testing::AssertionSuccess() : testing::AssertionFailure() << "it is written";
      default:
        return written ? testing::AssertionSuccess() : testing::AssertionFailure() << "it is not written";
    }
  }
};

TEST_P(LensCut, IsTold_AndASecondSetLensRepairs) {
  constexpr uint32_t kTable_bytes = 520;
  e2e::CoreCamera camera(flashOf(kTable_bytes, 512));
  useCalibration(camera.core(), kTable_bytes);
  simulator::ThermalCore& core = camera.simulatedCore();
  const auto low = [](const CalibrationStruct& lens) {
    return Bytes(lens.sffcLowRange, lens.sffcLowRange + kTable_bytes);
  };
  const auto high = [](const CalibrationStruct& lens) {
    return Bytes(lens.sffcHighRange, lens.sffcHighRange + kTable_bytes);
  };
  const CalibrationStruct& before = calibrationVect[0];
  const CalibrationStruct& wanted = calibrationVect[1];
  core.setLensTable(0, low(before));
  core.setLensTable(1, high(before));
  ASSERT_EQ(camera.core().GetCurrentLense(), "L25mm");

  core.setFault(simulator::CoreFault::Deaf, {1000, simulator::CoreFaultSetting::kForGood, GetParam().after});
  const keocam::LensChange cut = keocam::changeLens(camera.core(), "L50mm", {}, keocam::Verification::ReadBack);
  EXPECT_EQ(cut.end, keocam::LensChangeEnd::Failed);
  EXPECT_FALSE(cut.failure.empty());
  EXPECT_EQ(cut.low, GetParam().low);
  EXPECT_EQ(cut.high, GetParam().high);
  EXPECT_TRUE(isTrue(cut.low, core.lensTable(0), low(before), low(wanted)));
  EXPECT_TRUE(isTrue(cut.high, core.lensTable(1), high(before), high(wanted)));
  EXPECT_EQ(core.flashCounters().erases, GetParam().erased);

  core.clearFaults();
  EXPECT_EQ(camera.core().SetLens("L50mm"), 1);
  EXPECT_TRUE(holds(core, wanted));
  EXPECT_EQ(camera.core().GetCurrentLense(), "L50mm");
  // Block 0 is no table's; each of the others is erased once by the repair, and once before if the cut came later.
  std::vector<uint32_t> wear = {0, 1, 1, 1, 1};
  for (uint32_t block = 1; block <= GetParam().erased; ++block) ++wear[block];
  EXPECT_EQ(core.flashWear(), wear);
}

INSTANTIATE_TEST_SUITE_P(Messages, LensCut, testing::ValuesIn(kCuts),
                         [](const auto& cut) { return "After" + std::to_string(cut.param.after); });

/// What becomes of the answers to two writes in a row, and of how many of these the core hears.
struct Spoilt {
  simulator::CoreFault fault;
  uint32_t value;
  uint64_t writes;
};

TEST_F(LensEndToEnd, AnswersLostOrDamaged_PiecesAreWrittenAgain) {
  using simulator::CoreFault;
  constexpr uint32_t kTable_bytes = 520;
  constexpr uint8_t kWriteMemory = 211;
  for (const Spoilt& spoilt : {Spoilt{CoreFault::NoAnswer, 1000, 12}, Spoilt{CoreFault::WrongCrc, 1000, 12},
                               Spoilt{CoreFault::CutAnswer, 3, 12}, Spoilt{CoreFault::Noise, 20, 12},
                               Spoilt{CoreFault::Deaf, 1000, 10}, Spoilt{CoreFault::LateAnswer, 600, 0}}) {
    SCOPED_TRACE(static_cast<int>(spoilt.fault));
    e2e::CoreCamera camera(flashOf(kTable_bytes, 1024));
    useCalibration(camera.core(), kTable_bytes);
    camera.simulatedCore().setFault(spoilt.fault, {spoilt.value, 2, 2, kWriteMemory});
    const keocam::LensChange change = keocam::changeLens(camera.core(), "L50mm", {}, keocam::Verification::ReadBack);
    EXPECT_EQ(change.end, keocam::LensChangeEnd::Complete) << change.failure;
    EXPECT_EQ(change.low, TableState::Verified);
    EXPECT_EQ(change.high, TableState::Verified);
    EXPECT_TRUE(holds(camera.simulatedCore(), calibrationVect[1]));
    // How often a late answer is waited for depends on the machine.
    if (spoilt.writes > 0) {
      EXPECT_EQ(camera.simulatedCore().flashCounters().writes, spoilt.writes);
    }
  }
}

TEST_F(LensEndToEnd, Cancelled_TableIsPartlyWritten_AndASecondChangeRepairs) {
  e2e::CoreCamera camera(flashOf(1280, 2048));
  useCalibration(camera.core(), 1280);
  const keocam::TransferObserver cancel_half_way = [](const keocam::TransferProgress& progress) {
    return progress.phase != keocam::TransferPhase::Writing || progress.done_bytes < 640;
  };
  const keocam::LensChange cancelled =
      keocam::changeLens(camera.core(), "L50mm", cancel_half_way, keocam::Verification::ReadBack);
  EXPECT_EQ(cancelled.end, keocam::LensChangeEnd::Cancelled);
  EXPECT_EQ(cancelled.low, keocam::TableState::PartlyWritten);
  EXPECT_EQ(cancelled.high, keocam::TableState::Untouched);
  EXPECT_EQ(camera.simulatedCore().flashCounters().writes, 5u);

  const keocam::LensChange repaired = keocam::changeLens(camera.core(), "L50mm", {}, keocam::Verification::ReadBack);
  EXPECT_EQ(repaired.end, keocam::LensChangeEnd::Complete) << repaired.failure;
  EXPECT_TRUE(holds(camera.simulatedCore(), calibrationVect[1]));
}

}  // namespace
