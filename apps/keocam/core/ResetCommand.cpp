#include "apps/keocam/core/ResetCommand.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <thread>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/CoreCommand.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/ResetWatch.h"
#include "apps/keocam/terminal/ProgressLine.h"

namespace keocam::cli {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenQuestions{100};

std::string secondsText(int64_t duration_ms) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f s", static_cast<double>(duration_ms) / 1000.0);
  return text;
}

// Asks the core until the watch is content, and returns the time that took.
int64_t waitUntilBack(CoreSession& session, const Console& console) {
  ProgressLine progress(std::cerr, [] { return terminalOn(STDERR_FILENO); });
  ResetWatch watch;
  const auto reset = SteadyClock::now();
  int64_t second_shown = -1;
  while (true) {
    const bool answered = session.ask() == CAM_OK;
    if (!answered) session.requireLink();
    const int64_t since_ms = std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - reset).count();
    const ResetWatch::State state = watch.note(answered, since_ms);
    if (state == ResetWatch::State::Back) return since_ms;
    if (state == ResetWatch::State::GivenUp) {
      progress.finish();
      throw CommandFailure(ExitStatus::LinkLost, "The core of " + nameOf(session.camera()) +
                                                     " has accepted the reset, but does not answer again after " +
                                                     secondsText(since_ms) + ". Switch the camera off and on.");
    }
    if (since_ms / 1000 > second_shown && console.verbosity() != Verbosity::Quiet) {
      progress.show("Waiting for the core to answer again: " + secondsText(since_ms), ProgressMood::Normal);
      second_shown = since_ms / 1000;
    }
    std::this_thread::sleep_for(kBetweenQuestions);
  }
}

}  // namespace

ExitStatus runReset(const ResetOptions& options, const Console& console) {
  const auto session = connectedCore(options.serial_number, console);
  command(*session, CAMERA_RESET, "The reset");
  const int64_t duration_ms = waitUntilBack(*session, console);
  console.note("The core has restarted and answers again after " + secondsText(duration_ms) + ".");
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
