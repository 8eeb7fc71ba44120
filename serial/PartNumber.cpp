#include "serial/PartNumber.h"

#include <algorithm>
#include <array>

namespace keocam {
namespace {

using Core = CameraSerialSettings;

constexpr std::size_t kResolutionDigits = 2;
constexpr std::size_t kModelDigits = 6;
constexpr std::size_t kSpeedLetter = 10;
constexpr std::size_t kModelSpeedLetter = 14;

// The blank at the end of the first one belongs to it: applications compare the text.
constexpr std::array<ResolutionRow, 6> kRows = {{
    {Core::Resolution640, 640, 640, 512, "46640001X-FPNLX ", "46640019H-SPNLX"},
    {Core::Resolution336, 336, 336, 256, "46336001H-FPNLX", "46336007X-SPNLX"},
    {Core::Resolution324, 324, 320, 256, "46324007H-FPNLX", "46324001H-SPNLX"},
    {Core::Resolution168, 168, 160, 128, "46168060H-FPNLX", "46168060H-SPNLX"},
    {Core::Resolution162, 162, 160, 128, "46162025H-FPNLX", "46162019H-SPNLX"},
    {Core::Resolution160, 160, 160, 128, "46160007H-FPNLX", "46160025H-SPNLX"},
}};

struct ModelRow {
  int code;
  Resolution resolution;
};

constexpr std::array<ModelRow, 5> kModels = {{
    {73, Core::Resolution324},
    {77, Core::Resolution336},
    {81, Core::Resolution640},
    {85, Core::Resolution324},
    {87, Core::Resolution640},
}};

template <typename Rows, typename Matches>
auto find(const Rows& rows, Matches matches) -> decltype(rows.data()) {
  const auto row = std::find_if(rows.begin(), rows.end(), matches);
  return row != rows.end() ? &*row : nullptr;
}

// Other characters than digits count by their distance from '0', the same on processors whose char has no sign.
constexpr int digit(char character) { return static_cast<signed char>(character) - '0'; }

}  // namespace

const ResolutionRow* resolutionRow(Resolution resolution) {
  return find(kRows, [=](const ResolutionRow& row) { return row.resolution == resolution; });
}

const ResolutionRow* resolutionOf(const std::string& part_number) {
  int code = 0;
  for (std::size_t i = 0; i < 3; ++i) code = code * 10 + digit(part_number.at(kResolutionDigits + i));
  return find(kRows, [=](const ResolutionRow& row) { return row.code == code; });
}

bool isFast(const std::string& part_number) { return part_number.at(kSpeedLetter) == 'F'; }

bool isRadiometric(const std::string& part_number) {
  const char letter = part_number.at(kRadiometryLetter);
  return letter == 'R' || letter == 'I';
}

std::string partNumberIn(std::string_view answer) {
  constexpr std::string_view kEnds("^\0", 2);
  return std::string(answer.substr(0, answer.find_first_of(kEnds)));
}

std::optional<KnownModel> knownModelOf(std::string_view part_number) {
  if (part_number.size() < kModelDigits + 2) return std::nullopt;
  const int code = digit(part_number[kModelDigits]) * 10 + digit(part_number[kModelDigits + 1]);
  const ModelRow* const row = find(kModels, [=](const ModelRow& model) { return model.code == code; });
  if (row == nullptr) return std::nullopt;
  const bool slow = part_number.size() > kModelSpeedLetter && part_number[kModelSpeedLetter] == 'S';
  return KnownModel{row->resolution, !slow};
}

}  // namespace keocam
