#include "apps/keocam/StreamCommand.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CameraSearch.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/ConnectedDevice.h"
#include "apps/keocam/PendingFile.h"
#include "apps/keocam/StreamReport.h"
#include "apps/keocam/StreamRun.h"
#include "apps/keocam/frames/OpenedStream.h"
#include "apps/keocam/picture/Png.h"
#include "apps/keocam/picture/ThermalPicture.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/ProgressLine.h"

namespace keocam::cli {
namespace {

StreamResult streamFrom(Camera& camera, const StreamOptions& options, const Console& console, StopSignal& stop) {
  ProgressLine progress(std::cerr, [] { return terminalOn(STDERR_FILENO); });
  const auto report = [&](const StreamPeriod& second, const StreamPeriod& all) {
    if (console.verbosity() == Verbosity::Quiet) return;
    const bool trouble = second.frames_lost > 0 || second.frames == 0;
    progress.show(progressText(second, all), trouble ? ProgressMood::Trouble : ProgressMood::Normal);
    // Whoever read the messages has gone, as after "2>&1 | head": nobody is left to stream for.
    if (!std::cerr) stop.request();
  };
  return runStream(camera, options.limits, options.picture_path.has_value(), stop, report);
}

void requirePngName(const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension();
  if (extension == ".png" || extension == ".PNG") return;
  throw CommandFailure(ExitStatus::Usage,
                       "The picture is written as a PNG: let the name " + inQuotes(path) + " end in .png.");
}

// A picture that was asked for and cannot be made is a failure, with the reason.
void writePicture(PendingFile& file, const std::string& path, const DeviceDetails& camera, const StreamResult& result) {
  const FrameDetails& details = result.last_frame;
  const RawFrame frame{result.last_frame_pixels.data(), result.last_frame_pixels.size(), details.width, details.height,
                       details.pixel_format};
  const auto image = rawImageOf(frame);
  if (!image) {
    throw CommandFailure(
        ExitStatus::Failure,
        inQuotes(path) + " was not written: " +
            (result.total.frames == 0 ? "no frame arrived." : "the frames are not ones of raw counts."));
  }
  file.commit(encodePng(thermalPicture(*image, printable(camera.serial_number))));
}

void warnOfUnknownFormat(const Console& console, const StreamResult& result) {
  if (result.total.frames == 0 || findPixelFormat(result.last_frame.pixel_format) != nullptr) return;
  console.warning("The raw values of the pixel format " + pixelFormatName(result.last_frame.pixel_format) +
                  " are not understood and left out; set the camera to one of " + understoodPixelFormats() + ".");
}

}  // namespace

ExitStatus runStreamCommand(const StreamOptions& options, const Console& console, DataOutput& output) {
  std::optional<PendingFile> picture;
  if (options.picture_path) {
    requirePngName(*options.picture_path);
    picture.emplace(*options.picture_path);
  }

  StopSignal stop;
  const CameraSearch search;
  const std::size_t chosen = chooseCamera(search.details(), options.serial_number, searchedInterfaces());
  const DeviceDetails& camera = search.details()[chosen];
  if (!camera.in_subnet) console.warning(subnetAdvice(camera));

  const PvDeviceInfo& info = *search.infos()[chosen];
  const ConnectedDevice device = connectDevice(info);
  OpenedStream opened(*device, info);
  console.detail("Connected to " + nameOf(camera) + ".");

  const StreamResult result = streamFrom(opened.camera(), options, console, stop);
  output.write(options.json ? streamJson(camera, result) : streamText(camera, result));
  warnOfUnknownFormat(console, result);
  if (const std::string limit = libraryLimitText(camera, result.total); !limit.empty()) console.note(limit);
  const bool failed = result.end == StreamEnd::NoFrames || result.end == StreamEnd::CameraLost;
  if (picture && (result.total.frames > 0 || !failed)) writePicture(*picture, *options.picture_path, camera, result);
  if (failed) throw CommandFailure(ExitStatus::LinkLost, failureText(camera, result, options.limits.timeout_s));
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
