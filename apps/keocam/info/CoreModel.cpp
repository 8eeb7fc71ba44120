#include "apps/keocam/info/CoreModel.h"

#include "serial/PartNumber.h"

namespace keocam::cli {

bool isTooShort(const std::string& part_number) { return partNumberIn(part_number).size() <= kRadiometryLetter; }

std::optional<CoreModel> coreModelOf(const std::string& part_number) {
  std::string known = partNumberIn(part_number);
  if (isTooShort(known)) return std::nullopt;
  if (resolutionOf(known) == nullptr) {
    const std::optional<KnownModel> alternative = knownModelOf(known);
    if (!alternative) return std::nullopt;
    const ResolutionRow& row = *resolutionRow(alternative->resolution);
    known = alternative->fast ? row.fast : row.slow;
  }
  const ResolutionRow& row = *resolutionOf(known);
  return CoreModel{"KEO_" + std::to_string(row.width), row.width, row.height, isFast(known),
                   keocam::isRadiometric(known)};
}

}  // namespace keocam::cli
