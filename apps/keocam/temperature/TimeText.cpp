#include "apps/keocam/temperature/TimeText.h"

#include <cstdio>
#include <ctime>

namespace keocam::cli {
namespace {

constexpr uint64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr uint64_t kNanosecondsPerMillisecond = 1'000'000;

std::string formatted(uint64_t time_ns, const char* format) {
  const auto seconds = static_cast<std::time_t>(time_ns / kNanosecondsPerSecond);
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  char text[64];
  return {text, std::strftime(text, sizeof text, format, &parts)};
}

}  // namespace

std::string isoTime(uint64_t time_ns) {
  char milliseconds[16];
  std::snprintf(milliseconds, sizeof milliseconds, ".%03uZ",
                static_cast<unsigned int>(time_ns % kNanosecondsPerSecond / kNanosecondsPerMillisecond));
  return formatted(time_ns, "%Y-%m-%dT%H:%M:%S") + milliseconds;
}

std::string pictureTime(uint64_t time_ns) { return formatted(time_ns, "%Y:%m:%d %H:%M:%S"); }

}  // namespace keocam::cli
