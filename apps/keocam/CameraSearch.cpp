#include "apps/keocam/CameraSearch.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <string>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "pv/aravis/Text.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kMostAskedAtOnce = 16;

}  // namespace

CameraSearch::CameraSearch() {
  const PvResult result = system_.Find();
  if (!result.IsOK()) {
    throw CommandFailure(ExitStatus::Failure,
                         "The search for cameras failed: " + printable(textOf(result.GetDescription())));
  }
  for (unsigned int i = 0; i < system_.GetInterfaceCount(); ++i) {
    const PvInterface* const network = system_.GetInterface(i);
    for (unsigned int j = 0; j < network->GetDeviceCount(); ++j) infos_.push_back(network->GetDeviceInfo(j));
  }
  for (const PvDeviceInfo* const info : infos_) details_.push_back(detailsOf(*info));
}

std::vector<DeviceUse> usesOf(const std::vector<const PvDeviceInfo*>& infos) {
  std::vector<DeviceUse> uses(infos.size(), DeviceUse::NoAnswer);
  std::atomic<std::size_t> next{0};
  const auto ask = [&] {
    for (std::size_t i = next++; i < infos.size(); i = next++) uses[i] = useOf(*infos[i]);
  };
  std::vector<std::future<void>> askers;
  for (std::size_t i = 0; i < std::min(infos.size(), kMostAskedAtOnce); ++i) {
    askers.push_back(std::async(std::launch::async, ask));
  }
  for (std::future<void>& asker : askers) asker.get();
  return uses;
}

}  // namespace keocam::cli
