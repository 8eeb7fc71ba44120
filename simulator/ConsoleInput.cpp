#include "simulator/ConsoleInput.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "simulator/Clock.h"

namespace simulator {
namespace {

/// Nothing tells a program that it has come to the foreground, so it looks this often while there is input.
constexpr uint64_t kRetryNs = 250 * kNanosecondsPerMillisecond;

/// A second description of the terminal, whose reads never wait: another reader may take the input that poll(2) saw.
/// The first one is shared with the shell, which does not expect it to become non-blocking.
int openAgain(int fd) {
  const std::string link = "/proc/self/fd/" + std::to_string(fd);
  return ::open(link.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

bool isTransient(int error) { return error == EIO || error == EINTR || error == EAGAIN; }

}  // namespace

ConsoleInput::ConsoleInput(int fd)
    : terminal_(::isatty(fd) == 1), own_fd_(terminal_ ? openAgain(fd) : -1), fd_(own_fd_ >= 0 ? own_fd_ : fd) {
  ::signal(SIGTTIN, SIG_IGN);
}

ConsoleInput::~ConsoleInput() {
  if (own_fd_ >= 0) ::close(own_fd_);
}

uint64_t ConsoleInput::retryNs(uint64_t now_ns) const { return ended_ || now_ns >= retry_ns_ ? kNever : retry_ns_; }

// A terminal of another session has no foreground group that one could belong to; it is left to that session.
bool ConsoleInput::mayRead() const { return !terminal_ || ::tcgetpgrp(fd_) == ::getpgrp(); }

void ConsoleInput::receive(uint64_t now_ns, std::string& text) {
  if (!mayRead()) {
    retry_ns_ = now_ns + kRetryNs;
    return;
  }
  std::array<char, 1024> piece;
  const ssize_t size = ::read(fd_, piece.data(), piece.size());
  if (size > 0) {
    text.append(piece.data(), static_cast<std::size_t>(size));
  } else if (size < 0 && isTransient(errno)) {
    retry_ns_ = now_ns + kRetryNs;
  } else {
    ended_ = true;
  }
}

}  // namespace simulator
