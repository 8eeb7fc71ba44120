#include "simulator/calibration/LensData.h"

#include "simulator/calibration/CalibrationFormat.h"

namespace simulator {
namespace {

constexpr std::size_t kBytesPerPixel = 4;

/// Bits that look random, the same everywhere.
uint64_t scrambled(uint64_t seed, uint64_t index) {
  uint64_t bits = seed + 0x9E3779B97F4A7C15U * (index + 1);
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31);
}

/// Draws that follow one another. Sums and products only, so that every machine rounds alike.
class Draws {
 public:
  explicit Draws(uint64_t seed) : seed_(seed) {}
  /// From -largest to largest.
  double within(double largest) {
    return (static_cast<double>(scrambled(seed_, next_++) >> 40) * 0x1p-23 - 1.0) * largest;
  }
  double between(double low, double high) { return (low + high) / 2 + within((high - low) / 2); }

 private:
  uint64_t seed_;
  uint64_t next_ = 0;
};

/// How far each coefficient goes, and how far it moves from a cold core to a warm one.
struct Spread {
  CalibrationRow largest;
  float drift;  ///< of the coefficient's largest
};

/// For temperatures to 150, 650 and 1500 degrees.
constexpr std::array<Spread, kCalibrationRanges> kSpreads{{{{0.4F, 0.004F, 0, 0, 0}, 0.4F},
                                                           {{0.2F, 0.0007F, 2e-7F, 1e-10F, 1e-13F}, 0.25F},
                                                           {{0.2F, 0.0005F, 1e-7F, 3e-11F, 1e-14F}, 0.25F}}};

/// Where a range goes over from one line to the other. Readers take for it the inverse of where the lines cross, so
/// they part there by slope_step (over - 1 / over): nothing to speak of about 1 degree, degrees at a hundred.
constexpr double kSwitchOver_celsius = 1.0;
constexpr double kSwitchOverSpread_celsius = 0.1;
constexpr double kSwitchOverDrift_celsius = 0.05;

/// By how much the lines' slopes differ.
constexpr std::array<double, 2> kSlopeSteps{0.002, 0.001};

void fillRange(std::array<CalibrationRow, kCalibrationRows>& rows, std::size_t range, bool two_lines, Draws& draws) {
  const Spread& spread = kSpreads[range];
  std::array<std::array<double, 3>, kPointsPerRow> course{};
  for (std::size_t point = 0; point < kPointsPerRow; ++point) {
    const double largest = spread.largest[point];
    course[point] = {draws.within(largest), draws.within(largest * spread.drift),
                     draws.within(largest * spread.drift / 2)};
  }
  const double over = kSwitchOver_celsius + draws.within(kSwitchOverSpread_celsius);
  for (std::size_t row = 0; row < kCalibrationRows; ++row) {
    const double warmth = (static_cast<double>(row) - 30.0) / 30.0;
    for (std::size_t point = 0; point < kPointsPerRow; ++point) {
      const auto& [middle, slope, bend] = course[point];
      rows[row][point] = static_cast<float>(middle + slope * warmth + bend * warmth * warmth);
    }
    if (!two_lines) continue;
    rows[row][2] = 0;
    const double step = kSlopeSteps[range];
    rows[row][3] = static_cast<float>(rows[row][0] - step / (over + kSwitchOverDrift_celsius * warmth));
    rows[row][4] = static_cast<float>(rows[row][1] + step);
  }
}

/// Two big-endian words a pixel, gain and offset: shading that grows towards the corners, a tilt, and a pattern that
/// differs from pixel to pixel.
Bytes tableOf(ImageSize sensor, std::size_t bytes, uint64_t seed) {
  Draws draws(seed);
  const double shading = draws.between(400, 1200);
  const double tilt = draws.within(200);
  const double centre_x = sensor.width * draws.between(0.48, 0.52);
  const double centre_y = sensor.height * draws.between(0.48, 0.52);
  const double corner = centre_x * centre_x + centre_y * centre_y;
  Bytes table((bytes + kBytesPerPixel - 1) / kBytesPerPixel * kBytesPerPixel);
  for (std::size_t i = 0; i < table.size() / kBytesPerPixel; ++i) {
    const auto x = static_cast<double>(i % sensor.width) - centre_x;
    const auto y = static_cast<double>(i / sensor.width % sensor.height) - centre_y;
    const uint64_t noise = scrambled(~seed, i);
    const int gain = 8192 + static_cast<int>(shading * (x * x + y * y) / corner) + static_cast<int>(noise % 129) - 64;
    const int offset = static_cast<int>(tilt * x / centre_x) + static_cast<int>((noise >> 32) % 401) - 200;
    storeU16(table.data() + i * kBytesPerPixel, static_cast<uint16_t>(gain));
    storeU16(table.data() + i * kBytesPerPixel + 2, static_cast<uint16_t>(offset));
  }
  table.resize(bytes);
  return table;
}

}  // namespace

LensData lensDataOf(const CalibrationOptions& options, std::size_t lens) {
  checkCalibration(options);
  const CalibrationLens& chosen = options.lenses.at(lens);
  const uint64_t seed = scrambled(options.seed, lens);
  const std::size_t ranges = chosen.with_1500 ? 3 : 2;
  const std::size_t sensor_bytes = std::size_t{options.sensor.width} * options.sensor.height * kBytesPerPixel;
  const std::size_t table_bytes = options.table_bytes == 0 ? sensor_bytes : options.table_bytes;
  LensData data;
  for (std::size_t range = 0; range < ranges; ++range) {
    Draws draws(scrambled(seed, range));
    const bool two_lines = options.version >= kFirstVersionWithTwoLines && range < kSlopeSteps.size();
    fillRange(data.points[range], range, two_lines, draws);
    if (options.version < kFirstVersionWithTables || !chosen.with_tables) continue;
    data.tables[range] = tableOf(options.sensor, table_bytes, scrambled(seed, kCalibrationRanges + range));
  }
  return data;
}

}  // namespace simulator
