#include "apps/keocam/temperature/SnapshotEncoders.h"

#include <cmath>

#include "apps/keocam/picture/Png.h"
#include "apps/keocam/picture/TemperaturePicture.h"
#include "apps/keocam/picture/Tiff.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/TimeText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "measurement/Statistics.h"

namespace keocam::cli {
namespace {

constexpr int kCsvDecimals = 3;
constexpr const char* kSoftware = "keocam " KEOCAM_VERSION;

// The frame in the snapshot's unit.
struct InUnit {
  explicit InUnit(const Snapshot& snapshot)
      : temperatures(snapshot.frame.celsius),
        image(temperatures.data(), static_cast<int>(snapshot.frame.raw.width),
              static_cast<int>(snapshot.frame.raw.height)) {
    for (float& value : temperatures) {
      value = static_cast<float>(fromCelsius(snapshot.unit, static_cast<double>(value)));
    }
  }

  Statistics statistics() const { return measure(image, Region(Box{0, 0, image.width(), image.height()})); }

  std::vector<float> temperatures;
  TemperatureImage<float> image;
};

std::vector<uint8_t> bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

// What a format for ASCII cannot hold becomes a question mark.
std::string asciiOf(std::string text) {
  for (char& c : text) c = static_cast<unsigned char>(c) < 0x80 ? c : '?';
  return text;
}

}  // namespace

std::string imageDescription(const Snapshot& snapshot) {
  const Statistics statistics = InUnit(snapshot).statistics();
  std::string text = std::string("ImageJ=1.11a\nunit=pixel\nvunit=") + snapshot.unit.letter + '\n';
  if (statistics.count > 0) {
    text += "min=" + fixedText(statistics.minimum, kCsvDecimals) +
            "\nmax=" + fixedText(statistics.maximum, kCsvDecimals) + '\n';
  }
  text += std::string("TemperatureUnit=") + snapshot.unit.letter + '\n';
  for (const auto& [name, value] : conditionTexts(snapshot.conditions, snapshot.unit)) {
    text += name + '=' + asciiOf(value) + '\n';
  }
  return text + "Time=" + isoTime(snapshot.frame.time_ns) + '\n';
}

std::vector<uint8_t> encodeTiffOf(const Snapshot& snapshot) {
  const DeviceDetails& camera = snapshot.conditions.camera;
  return encodeTiff(InUnit(snapshot).image,
                    {imageDescription(snapshot), asciiOf(printable(camera.vendor)), asciiOf(printable(camera.model)),
                     kSoftware, pictureTime(snapshot.frame.time_ns)});
}

std::vector<uint8_t> encodePngOf(const Snapshot& snapshot) {
  const InUnit frame(snapshot);
  const Statistics statistics = frame.statistics();
  const std::string caption = "min " + fixedText(statistics.minimum, 1) + "  max " + fixedText(statistics.maximum, 1) +
                              ' ' + snapshot.unit.symbol + "  " + printable(snapshot.conditions.camera.serial_number);
  const SnapshotColours& colours = snapshot.colours;
  return encodePng(temperaturePicture(frame.image, colours.span ? *colours.span : temperatureSpanOf(frame.image),
                                      *colours.palette, caption));
}

std::vector<uint8_t> encodeCsvOf(const Snapshot& snapshot) {
  const InUnit frame(snapshot);
  std::string text;
  for (int y = 0; y < frame.image.height(); ++y) {
    for (int x = 0; x < frame.image.width(); ++x) {
      const auto temperature = static_cast<double>(frame.image.at(x, y));
      if (x > 0) text += ',';
      if (std::isfinite(temperature)) text += fixedText(temperature, kCsvDecimals);
    }
    text += '\n';
  }
  return bytesOf(text);
}

std::vector<uint8_t> encodeRawOf(const Snapshot& snapshot) {
  std::vector<uint8_t> bytes;
  bytes.reserve(2 * snapshot.frame.raw.counts.size());
  for (const uint16_t value : snapshot.frame.raw.counts) {
    bytes.push_back(static_cast<uint8_t>(value & 0xFFU));
    bytes.push_back(static_cast<uint8_t>(value >> 8U));
  }
  return bytes;
}

}  // namespace keocam::cli
