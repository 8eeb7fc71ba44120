#include "apps/keocam/StreamReport.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/Json.h"
#include "apps/keocam/LibraryLimit.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

std::string fixed(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string rateText(const StreamPeriod& period) {
  return period.frames_per_second ? fixed(*period.frames_per_second, 1) : "-";
}

std::string streamLine(const std::string& label, const std::string& value) {
  constexpr std::size_t kLabelColumns = 16;
  std::string text = label;
  text.resize(kLabelColumns, ' ');
  return text + value + '\n';
}

std::string lossText(const StreamPeriod& total) {
  const uint64_t sent = total.frames + total.frames_lost;
  const double percent = sent == 0 ? 0.0 : 100.0 * static_cast<double>(total.frames_lost) / static_cast<double>(sent);
  return std::to_string(total.frames_lost) + " of " + std::to_string(sent) + " frames (" + fixed(percent, 2) + " %)";
}

std::string packetsText(const StreamResult& result) {
  return std::to_string(result.network.packets_received) + " received, " +
         std::to_string(result.network.packets_resent) + " resent, " + std::to_string(result.network.packets_missing) +
         " missing";
}

std::string imageText(const StreamResult& result) {
  return std::to_string(result.last_frame.width) + " x " + std::to_string(result.last_frame.height) + ", " +
         pixelFormatName(result.last_frame.pixel_format);
}

std::string rawText(const RawStatistics& raw) {
  if (raw.pixels == 0) return "-";
  return "min " + std::to_string(raw.min_counts) + ", mean " + fixed(raw.mean_counts(), 1) + ", max " +
         std::to_string(raw.max_counts) + " counts";
}

template <typename Value>
Json ifAny(bool any, const Value& value) {
  return any ? Json(value) : Json(nullptr);
}

const char* endName(StreamEnd end) {
  switch (end) {
    case StreamEnd::FramesReached:
      return "frames";
    case StreamEnd::DurationReached:
      return "duration";
    case StreamEnd::Stopped:
      return "signal";
    case StreamEnd::NoFrames:
      return "timeout";
    case StreamEnd::CameraLost:
      break;
  }
  return "camera_lost";
}

}  // namespace

std::string progressText(const StreamPeriod& second, const StreamPeriod& all) {
  return rateText(second) + " frames/s, lost " + std::to_string(second.frames_lost) + " (" +
         std::to_string(all.frames_lost) + " in all), raw " + rawText(second.raw);
}

std::string streamText(const DeviceDetails& camera, const StreamResult& result) {
  const StreamPeriod& total = result.total;
  std::string text = streamLine("Camera", nameOf(camera));
  text += streamLine("Frames", std::to_string(total.frames) + " in " + fixed(result.duration_s, 2) + " s");
  text += streamLine("Rate", rateText(total) + " frames/s");
  text += streamLine("Lost", lossText(total));
  text += streamLine("Packets", packetsText(result));
  text += streamLine("Packet size", std::to_string(result.packet_size_bytes) + " bytes");
  text += streamLine("Image", total.frames == 0 ? "-" : imageText(result));
  text += streamLine("Raw", rawText(total.raw));
  return text;
}

std::string streamJson(const DeviceDetails& camera, const StreamResult& result) {
  const StreamPeriod& total = result.total;
  const bool frames = total.frames > 0;
  const bool raw = total.raw.pixels > 0;
  const auto& rate = total.frames_per_second;
  return jsonText({
      {"serial_number", camera.serial_number},
      {"model", camera.model},
      {"address", camera.address},
      {"ended_by", endName(result.end)},
      {"frames", total.frames},
      {"duration_s", toThousandths(result.duration_s)},
      {"frames_per_second", ifAny(rate.has_value(), toThousandths(rate.value_or(0.0)))},
      {"frames_lost", total.frames_lost},
      {"frames_incomplete", result.network.frames_incomplete},
      {"frames_without_buffer", result.network.frames_no_buffer},
      {"block_ids_missing", result.missing_block_ids},
      {"packets_received", result.network.packets_received},
      {"packets_missing", result.network.packets_missing},
      {"packets_resent", result.network.packets_resent},
      {"packet_size_bytes", result.packet_size_bytes},
      {"width", ifAny(frames, result.last_frame.width)},
      {"height", ifAny(frames, result.last_frame.height)},
      {"pixel_format", ifAny(frames, pixelFormatName(result.last_frame.pixel_format))},
      {"raw_min", ifAny(raw, total.raw.min_counts)},
      {"raw_mean", ifAny(raw, toThousandths(total.raw.mean_counts()))},
      {"raw_max", ifAny(raw, total.raw.max_counts)},
  });
}

std::string libraryLimitText(const DeviceDetails& camera, const StreamPeriod& total) {
  const std::optional<int> limit_hz = libraryLimitOf(camera.serial_number);
  if (!limit_hz || total.frames_per_second.value_or(0.0) <= *limit_hz) return {};
  return nameOf(camera) + " is of the slow class by its serial number: applications get at most " +
         std::to_string(*limit_hz) +
         " frames a second of it, because the library leaves the others out, however good the link is. Told here are "
         "all that came.";
}

std::string failureText(const DeviceDetails& camera, const StreamResult& result, double timeout_s) {
  if (result.end == StreamEnd::CameraLost) {
    return "The connection to " + nameOf(camera) +
           " was lost: it does not answer any more, or another host took control of it. Check its power and its cable, "
           "and see \"keocam list\" for who uses it.";
  }
  const std::string text =
      nameOf(camera) + " is connected, but no complete frame has arrived for " + fixed(timeout_s, 1) + " s. ";
  if (result.network.packets_received == 0) {
    return text +
           "Not one packet of its stream came. Check that no firewall holds back UDP packets from the camera's "
           "address.";
  }
  return text + std::to_string(result.network.packets_received) + " packets of its stream came, " +
         std::to_string(result.network.packets_missing) +
         " are missing. Check the cable, the load on the network, and that every switch on the way passes packets of " +
         std::to_string(result.packet_size_bytes) + " bytes.";
}

}  // namespace keocam::cli
