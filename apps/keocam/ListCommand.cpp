#include "apps/keocam/ListCommand.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CameraSearch.h"
#include "apps/keocam/ListReport.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

std::vector<ListedCamera> camerasOf(const CameraSearch& search) {
  const std::vector<DeviceUse> uses = usesOf(search.infos());
  std::vector<ListedCamera> cameras;
  for (std::size_t i = 0; i < uses.size(); ++i) cameras.push_back({search.details()[i], uses[i]});
  return cameras;
}

}  // namespace

ExitStatus runList(const ListOptions& options, const Console& console, DataOutput& output) {
  const CameraSearch search;
  const std::vector<ListedCamera> cameras = camerasOf(search);
  output.write(options.json ? listJson(cameras) : listTable(cameras, widthOfOutput()));
  if (cameras.empty()) console.note(noCameraAdvice(searchedInterfaces()));
  for (const ListedCamera& camera : cameras) {
    if (!camera.details.in_subnet) console.warning(subnetAdvice(camera.details));
  }
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
