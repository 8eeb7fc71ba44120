// The program keocam-simulator: cameras from options, then commands from standard input until the end.
#include <poll.h>
#include <pthread.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <iostream>

#include "simulator/Clock.h"
#include "simulator/CommandLine.h"
#include "simulator/ConsoleCommands.h"

namespace {

using namespace simulator;

constexpr std::size_t kLongestLine = 4096;

/// SIGINT and SIGTERM as a file descriptor. Made before any thread starts, so that all of them leave the signals to it.
int openSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

/// Executes the complete lines of `input` and leaves the rest; true when one of them asked to quit.
bool executeLines(std::string& input, const Cameras& cameras) {
  for (std::size_t end = input.find('\n'); end != std::string::npos; end = input.find('\n')) {
    const ConsoleReply reply = executeConsoleLine(input.substr(0, end), cameras);
    input.erase(0, end + 1);
    std::cerr << reply.text << std::flush;
    if (reply.quit) return true;
  }
  if (input.size() > kLongestLine) {
    std::cerr << "a line of more than " << kLongestLine << " characters was dropped\n";
    input.clear();
  }
  return false;
}

int remainingMs(uint64_t end_ns) {
  if (end_ns == kNever) return -1;
  const uint64_t now_ns = monotonicNs();
  if (now_ns >= end_ns) return 0;
  return static_cast<int>(std::min<uint64_t>((end_ns - now_ns) / kNanosecondsPerMillisecond + 1, 1'000'000));
}

void serve(int signals, uint64_t end_ns, const Cameras& cameras) {
  std::array<pollfd, 2> sources{{{signals, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}}};
  std::string input;
  while (monotonicNs() < end_ns) {
    ::poll(sources.data(), sources.size(), remainingMs(end_ns));
    if (sources[0].revents != 0) return;
    if (sources[1].revents == 0) continue;
    std::array<char, 1024> piece;
    const ssize_t size = ::read(STDIN_FILENO, piece.data(), piece.size());
    if (size <= 0) {
      sources[1].fd = -1;  // Nobody will type any more; the cameras stay.
      continue;
    }
    input.append(piece.data(), static_cast<std::size_t>(size));
    if (executeLines(input, cameras)) return;
  }
}

int run(int argc, const char* const* argv) {
  const auto parsed = parseCommandLine(argc, argv);
  if (const int* exit_code = std::get_if<int>(&parsed)) return *exit_code;
  const auto& program = std::get<ProgramOptions>(parsed);
  const int signals = openSignals();
  Cameras cameras;
  for (const CameraOptions& options : program.cameras) {
    cameras.push_back(std::make_unique<SimulatedCamera>(options));
    if (program.occupied[cameras.size() - 1]) cameras.back()->setOccupied(true);
  }
  if (!program.quiet) {
    for (std::size_t i = 0; i < cameras.size(); ++i) {
      const CameraOptions& options = cameras[i]->options();
      std::cerr << i + 1 << ": " << cameras[i]->model() << " " << options.serial << " on " << options.address << '\n';
    }
  }
  std::cout << "ready" << std::endl;
  const uint64_t end_ns =
      program.duration_s ? monotonicNs() + static_cast<uint64_t>(*program.duration_s * 1e9) : kNever;
  serve(signals, end_ns, cameras);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "keocam-simulator: " << error.what() << '\n';
    return 1;
  }
}
