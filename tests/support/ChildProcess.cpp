#include "tests/support/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace test_support {
namespace {

using Clock = std::chrono::steady_clock;

struct Pipe {
  Pipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(std::strerror(errno));
    read_end = ends[0];
    write_end = ends[1];
  }
  int read_end = -1;
  int write_end = -1;
};

void closeIfOpen(int& fd) {
  if (fd >= 0) ::close(fd);
  fd = -1;
}

int millisecondsUntil(Clock::time_point deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
  return left > 0 ? static_cast<int>(left) : 0;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, Written written) {
  // Everything that allocates comes before the fork.
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  const Pipe input;
  const Pipe output;
  const Pipe error;
  const Pipe failure;  // Closed by a successful start, and otherwise told why not.
  pid_ = ::fork();
  if (pid_ < 0) throw std::runtime_error(std::strerror(errno));
  if (pid_ == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(input.read_end, STDIN_FILENO);
    const int nowhere = written == Written::Discarded ? ::open("/dev/null", O_WRONLY | O_CLOEXEC) : -1;
    ::dup2(nowhere >= 0 ? nowhere : output.write_end, STDOUT_FILENO);
    ::dup2(nowhere >= 0 ? nowhere : error.write_end, STDERR_FILENO);
    ::execvp(pointers[0], pointers.data());
    const int reason = errno;
    static_cast<void>(!::write(failure.write_end, &reason, sizeof reason));
    ::_exit(127);
  }
  ::close(input.read_end);
  ::close(output.write_end);
  ::close(error.write_end);
  ::close(failure.write_end);
  input_ = input.write_end;
  pipes_ = {output.read_end, error.read_end};
  int reason = 0;
  const bool failed = ::read(failure.read_end, &reason, sizeof reason) > 0;
  ::close(failure.read_end);
  if (!failed) return;
  end();
  throw std::runtime_error("cannot start " + arguments.front() + ": " + std::strerror(reason));
}

ChildProcess::~ChildProcess() { end(); }

void ChildProcess::end() {
  if (pid_ > 0) {
    signal(SIGKILL);
    reap();
  }
  closeIfOpen(input_);
  for (int& pipe : pipes_) closeIfOpen(pipe);
}

// Waits for more text on either stream. False at the deadline, and when both streams have ended.
bool ChildProcess::readSome(Clock::time_point deadline) {
  std::array<pollfd, 2> polled{};
  for (std::size_t i = 0; i < polled.size(); ++i) polled[i] = {pipes_[i], POLLIN, 0};
  if (pipes_[Output] < 0 && pipes_[Error] < 0) return false;
  if (::poll(polled.data(), polled.size(), millisecondsUntil(deadline)) <= 0) return false;
  for (std::size_t i = 0; i < polled.size(); ++i) {
    if (polled[i].revents == 0) continue;
    char buffer[4096];
    const ssize_t count = ::read(pipes_[i], buffer, sizeof buffer);
    if (count > 0) {
      texts_[i].append(buffer, static_cast<std::size_t>(count));
    } else {
      closeIfOpen(pipes_[i]);
    }
  }
  return true;
}

bool ChildProcess::waitFor(Stream stream, const std::string& text, std::chrono::milliseconds limit) {
  const auto deadline = Clock::now() + limit;
  while (texts_[stream].find(text) == std::string::npos) {
    if (!readSome(deadline)) return false;
  }
  return true;
}

int ChildProcess::wait(std::chrono::milliseconds limit) {
  const auto deadline = Clock::now() + limit;
  while (readSome(deadline)) {
  }
  const bool too_long = pipes_[Output] >= 0 || pipes_[Error] >= 0;
  if (too_long) signal(SIGKILL);
  reap();
  if (too_long) return kTooLong;
  return WIFEXITED(status_) ? WEXITSTATUS(status_) : 128 + WTERMSIG(status_);
}

void ChildProcess::reap() {
  if (pid_ <= 0) return;
  while (::waitpid(pid_, &status_, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
}

bool ChildProcess::running() const {
  if (pid_ > 0 && ::waitpid(pid_, &status_, WNOHANG) != 0) pid_ = -1;
  return pid_ > 0;
}

void ChildProcess::send(const std::string& line) {
  const std::string text = line + '\n';
  if (::write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error("The program does not read its standard input.");
  }
}

void ChildProcess::signal(int number) const {
  if (pid_ > 0) ::kill(pid_, number);
}

void ChildProcess::stopReading(Stream stream) { closeIfOpen(pipes_[stream]); }

}  // namespace test_support
