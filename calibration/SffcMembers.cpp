// The members that write the selected lens' tables into the core, and that find out whose it holds.
#include <algorithm>
#include <array>

#include "base/Log.h"
#include "calibration/Calibration.h"
#include "calibration/SffcExchange.h"
#include "calibration/SffcTransfer.h"

namespace {

constexpr uint32_t kSamples = 4;

int writeSlot(CameraSerialSettings& core, const keocam::SffcSlot& slot) {
  const CalibrationStruct& lens = calibrationVect.at(static_cast<std::size_t>(currentLensNumber));
  const keocam::TransferObserver no_one;
  keocam::SffcTransfer transfer(core, slot, lens, keocam::TransferManner::Interface, no_one);
  return transfer.write() == keocam::TableState::Written ? 0 : -1;
}

struct Sample {
  bool read = false;
  uint32_t offset = 0;
  std::array<uint8_t, keocam::kPiece_bytes> bytes{};
};

void tell(const std::string& failure) { keocam::printErrorLine("CameraSerialSettings::CheckCameraSffc: " + failure); }

void readSample(keocam::SerialExchange& port, uint32_t address, Sample& sample) {
  const std::vector<uint8_t> frame =
      keocam::frameOf(keocam::kReadMemory, keocam::readPayload(address, keocam::kPiece_bytes));
  if (!port.write(frame.data(), frame.size())) return tell("Error writing message to camera.");
  keocam::ReplyBuffer reply;
  if (!port.read(reply, keocam::kPieceAnswer_ms)) {
    return tell("Error reading message from camera. " + std::to_string(reply.size));
  }
  sample.read = reply.size >= keocam::kPayloadOffset + sample.bytes.size();
  std::copy_n(reply.payload(), sample.bytes.size(), sample.bytes.begin());
}

// A sample that did not come whole is nobody's: a lens must not be taken for the core's because the core fell silent or
// refused. Nor is one that lies beyond what a record can hold.
bool matches(const Sample& sample, const CalibrationStruct& lens) {
  return sample.read && sample.offset + sample.bytes.size() <= kSffcCapacity_bytes &&
         std::equal(sample.bytes.begin(), sample.bytes.end(), lens.sffcHighRange + sample.offset);
}

}  // namespace

int CameraSerialSettings::switchSFFC1() { return writeSlot(*this, keocam::kLowSlot); }

int CameraSerialSettings::switchSFFC2() { return writeSlot(*this, keocam::kHighSlot); }

int CameraSerialSettings::CheckCameraSffc() {
  if (calibrationVect.empty()) return -1;
  const auto reply = keocam::askAsMembersDo(*this, keocam::kSlotRegion, keocam::slotPayload(keocam::kHighSlot.number));
  if (!reply) {
    tell("Error in communication with camera. Camera is not responding to message.");
    return -1;
  }
  const keocam::SffcRegion region = keocam::regionOf(reply->payload());
  std::array<Sample, kSamples> samples;
  {
    keocam::SerialExchange port(device, serialPort);
    for (uint32_t i = 0; i < kSamples; ++i) {
      samples[i].offset = i * (region.size_bytes / kSamples);
      readSample(port, region.address + samples[i].offset, samples[i]);
    }
  }
  const auto lens = std::find_if(calibrationVect.begin(), calibrationVect.end(), [&](const CalibrationStruct& record) {
    return std::all_of(samples.begin(), samples.end(), [&](const Sample& sample) { return matches(sample, record); });
  });
  if (lens == calibrationVect.end()) return -1;
  currentLensNumber = static_cast<int32_t>(lens - calibrationVect.begin());
  return currentLensNumber;
}
