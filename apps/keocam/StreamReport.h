// What a stream came to, in words and as JSON.
#pragma once

#include <string>

#include "apps/keocam/StreamRun.h"
#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

/// One line: rate, loss in this second and in all, lowest, mean and highest raw value.
std::string progressText(const StreamPeriod& second, const StreamPeriod& all);

/// The totals, a line each, aligned.
std::string streamText(const DeviceDetails& camera, const StreamResult& result);

/// The totals as an object, ASCII only; null for figures that do not exist without frames.
std::string streamJson(const DeviceDetails& camera, const StreamResult& result);

/// Why a stream that ended as NoFrames or CameraLost did so, and what to check.
std::string failureText(const DeviceDetails& camera, const StreamResult& result, double timeout_s);

/// That applications get fewer frames of a camera than came here, and why; empty if they do not.
std::string libraryLimitText(const DeviceDetails& camera, const StreamPeriod& total);

}  // namespace keocam::cli
