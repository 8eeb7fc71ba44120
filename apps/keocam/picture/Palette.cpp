#include "apps/keocam/picture/Palette.h"

#include <cmath>
#include <cstdint>

namespace keocam::cli {
namespace {

// A colour with fractions, so that the path between two control points is smooth.
using Channels = std::array<double, 3>;

// The path through the colours. Only its shape matters: how fast it is travelled follows from the lightness, which
// must grow from each point to the next.
constexpr std::array<Channels, 8> kPath = {{
    {14, 4, 40},
    {58, 8, 98},
    {122, 12, 112},
    {186, 30, 78},
    {226, 74, 30},
    {248, 142, 16},
    {254, 212, 72},
    {255, 255, 244},
}};

double linear(double channel) {
  const double value = channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double lightness(const Channels& colour) {
  const double luminance = 0.2126 * linear(colour[0]) + 0.7152 * linear(colour[1]) + 0.0722 * linear(colour[2]);
  return luminance <= 0.008856 ? 903.3 * luminance : 116.0 * std::cbrt(luminance) - 16.0;
}

// The colour at `position` of the path, from 0 to the number of its legs.
Channels colourAt(double position) {
  const auto leg = std::min(static_cast<std::size_t>(position), kPath.size() - 2);
  const double part = position - static_cast<double>(leg);
  Channels colour{};
  for (std::size_t i = 0; i < colour.size(); ++i)
    colour[i] = kPath[leg][i] + part * (kPath[leg + 1][i] - kPath[leg][i]);
  return colour;
}

// Halving the interval 40 times leaves less than any rounding of a channel can show.
Channels colourOfLightness(double wanted) {
  double low = 0.0;
  double high = static_cast<double>(kPath.size() - 1);
  for (int i = 0; i < 40; ++i) {
    const double middle = (low + high) / 2.0;
    (lightness(colourAt(middle)) < wanted ? low : high) = middle;
  }
  return colourAt(high);
}

uint8_t rounded(double channel) { return static_cast<uint8_t>(std::lround(channel)); }

Palette makePalette() {
  const double darkest = lightness(kPath.front());
  const double brightest = lightness(kPath.back());
  Palette palette;
  for (std::size_t i = 0; i < palette.size(); ++i) {
    const double part = static_cast<double>(i) / static_cast<double>(palette.size() - 1);
    const Channels colour = colourOfLightness(darkest + part * (brightest - darkest));
    palette[i] = {rounded(colour[0]), rounded(colour[1]), rounded(colour[2])};
  }
  return palette;
}

Palette makeGreys(bool white_is_hot) {
  Palette palette;
  for (std::size_t i = 0; i < palette.size(); ++i) {
    const auto level = static_cast<uint8_t>(white_is_hot ? i : palette.size() - 1 - i);
    palette[i] = {level, level, level};
  }
  return palette;
}

const Palette& whiteHot() {
  static const Palette palette = makeGreys(true);
  return palette;
}

const Palette& blackHot() {
  static const Palette palette = makeGreys(false);
  return palette;
}

struct PaletteRow {
  const char* name;
  const Palette& (*palette)();
};

constexpr PaletteRow kPalettes[] = {{"thermal", thermalPalette}, {"white-hot", whiteHot}, {"black-hot", blackHot}};

}  // namespace

const Palette& thermalPalette() {
  static const Palette palette = makePalette();
  return palette;
}

const Palette* findPalette(std::string_view name) {
  for (const PaletteRow& row : kPalettes) {
    if (name == row.name) return &row.palette();
  }
  return nullptr;
}

std::vector<std::string> paletteNames() {
  std::vector<std::string> names;
  for (const PaletteRow& row : kPalettes) names.emplace_back(row.name);
  return names;
}

double lightnessOf(const Rgb& colour) {
  return lightness(
      {static_cast<double>(colour.red), static_cast<double>(colour.green), static_cast<double>(colour.blue)});
}

}  // namespace keocam::cli
