// Lenses end to end: tables written into a simulated core's flash over UDP, found again, and repaired after a cut.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "calibration/Calibration.h"
#include "calibration/LensChange.h"
#include "calibration/SffcProtocol.h"
#include "simulator/calibration/CalibrationText.h"
#include "tests/e2e/CoreCamera.h"

namespace {

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
    EXPECT_EQ(camera.core().SetLens("L50mm"), 1);
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

/// Cut after so many of the transfer's messages: two questions, an erasure and five pieces for each table, then the
/// slot and the correction.
class LensCut : public LensEndToEnd, public testing::WithParamInterface<uint32_t> {};

TEST_P(LensCut, ASecondSetLensRepairs) {
  constexpr uint32_t kTable_bytes = 520;
  e2e::CoreCamera camera(flashOf(kTable_bytes, 1024));
  useCalibration(camera.core(), kTable_bytes);
  const CalibrationStruct& before = calibrationVect[0];
  camera.simulatedCore().setLensTable(0, Bytes(before.sffcLowRange, before.sffcLowRange + kTable_bytes));
  camera.simulatedCore().setLensTable(1, Bytes(before.sffcHighRange, before.sffcHighRange + kTable_bytes));
  ASSERT_EQ(camera.core().GetCurrentLense(), "L25mm");

  simulator::CoreFaultSetting deaf;
  deaf.value = 1000;
  deaf.after = GetParam();
  camera.simulatedCore().setFault(simulator::CoreFault::Deaf, deaf);
  const keocam::LensChange cut = keocam::changeLens(camera.core(), "L50mm", {}, keocam::Verification::None);
  EXPECT_EQ(cut.end, keocam::LensChangeEnd::Failed);
  EXPECT_FALSE(cut.failure.empty());
  const bool whole = GetParam() >= 16;
  EXPECT_EQ(static_cast<bool>(holds(camera.simulatedCore(), calibrationVect[1])), whole);

  camera.simulatedCore().clearFaults();
  EXPECT_EQ(camera.core().SetLens("L50mm"), 1);
  EXPECT_TRUE(holds(camera.simulatedCore(), calibrationVect[1]));
  EXPECT_EQ(camera.core().GetCurrentLense(), "L50mm");
}

INSTANTIATE_TEST_SUITE_P(Messages, LensCut, testing::Values(0U, 2U, 3U, 7U, 8U, 10U, 13U, 16U, 17U));

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
