#include "tests/e2e/FrameCheck.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "pv/aravis/StreamDetails.h"
#include "simulator/core/VideoPicture.h"

namespace e2e {
namespace {

constexpr uint32_t kMono14 = 0x01100025;
constexpr uint64_t kHighestBlockId = 65535;
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "frames are compared as they come, and the wire is little-endian");

}  // namespace

FrameCheck::FrameCheck(const simulator::SceneSettings& settings, std::shared_ptr<const simulator::ThermalCore> core)
    : scene_(settings), core_(std::move(core)) {}

std::vector<uint16_t> FrameCheck::expectedPicture(uint64_t block_id) const {
  const simulator::ImageSize sensor = scene_.settings().sensor;
  if (core_ == nullptr) return scene_.render(sensor.width, sensor.height, block_id);
  // Empty for a block that the core has forgotten, which is as good as a frame that was never sent.
  const auto video = core_->videoOf(block_id);
  if (!video) return std::vector<uint16_t>(std::size_t{sensor.width} * sensor.height);
  return renderVideo(scene_, sensor.width, sensor.height, *video);
}

testing::AssertionResult FrameCheck::check(const Camera& camera) {
  const keocam::FrameDetails details = keocam::detailsOf(*camera.buffer);
  const simulator::ImageSize sensor = scene_.settings().sensor;
  if (details.width != sensor.width || details.height != sensor.height || details.pixel_format != kMono14 ||
      details.size != sensor.width * sensor.height * 2) {
    return testing::AssertionFailure() << "frame " << details.block_id << " is " << details.width << "x"
                                       << details.height << ", " << details.size << " bytes, format 0x" << std::hex
                                       << details.pixel_format;
  }
  const uint64_t expected_id = last_block_id_ % kHighestBlockId + 1;
  if (details.block_id != expected_id) {
    return testing::AssertionFailure() << "frame " << details.block_id << " came where " << expected_id << " was due";
  }
  last_block_id_ = details.block_id;

  const std::vector<uint16_t> expected = expectedPicture(details.block_id);
  const uint8_t* const data = camera.buffer->GetDataPointer();
  // In one piece, since a reader that compares slowly falls behind the camera in a build with sanitizers.
  if (std::memcmp(expected.data(), data, details.size) != 0) {
    const auto* const bytes = reinterpret_cast<const uint8_t*>(expected.data());
    return testing::AssertionFailure() << "frame " << details.block_id << " differs from the scene at byte "
                                       << std::mismatch(bytes, bytes + details.size, data).first - bytes;
  }
  ++frames_checked_;
  return testing::AssertionSuccess();
}

testing::AssertionResult receiveAndCheck(Camera& camera, FrameCheck& check, uint64_t count) {
  for (uint64_t i = 0; i < count; ++i) {
    camera.buffer = nullptr;
    if (camera.RetreiveBuffer() == nullptr) {
      return testing::AssertionFailure() << "no frame within a second after " << i << " of " << count;
    }
    const testing::AssertionResult result = check.check(camera);
    camera.ReleaseBuffer();
    if (!result) return result;
  }
  return testing::AssertionSuccess();
}

}  // namespace e2e
