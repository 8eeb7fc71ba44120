#include "pv/aravis/StreamChannel.h"

#include <string>

#include "pv/aravis/Error.h"

namespace keocam {

PvResult checkChannel(unsigned int channel) {
  if (channel == 0) return {};
  return failure(PvResult::Code::InvalidParameter,
                 "There is no stream channel " + std::to_string(channel) + "; the only one is 0.");
}

}  // namespace keocam
