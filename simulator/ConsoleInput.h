// The bytes typed or piped into the program, also where it shares the terminal with a shell.
#pragma once

#include <cstdint>
#include <string>

namespace simulator {

/// Reads a descriptor that poll(2) watches. A terminal is read only while the program is in its foreground: what is
/// typed at other times is for the shell.
class ConsoleInput {
 public:
  /// From now on the program ignores SIGTTIN, which would stop it when it loses the foreground right before a read.
  /// `fd` stays the caller's.
  explicit ConsoleInput(int fd);
  ~ConsoleInput();
  ConsoleInput(const ConsoleInput&) = delete;
  ConsoleInput& operator=(const ConsoleInput&) = delete;

  /// What poll(2) should watch; -1, which it passes over, after the end and while it is no use.
  int pollFd(uint64_t now_ns) const { return ended_ || now_ns < retry_ns_ ? -1 : fd_; }
  /// When pollFd() is worth asking again at the latest; kNever when nothing but the descriptor will change it.
  uint64_t retryNs(uint64_t now_ns) const;
  /// Appends what is there to `text`; to be called when pollFd() is ready. Where nothing can be had for now it leaves
  /// the descriptor alone for a while, so that a loop around it does not spin.
  void receive(uint64_t now_ns, std::string& text);
  /// Nothing more will come.
  bool ended() const { return ended_; }

 private:
  bool mayRead() const;

  const bool terminal_;
  const int own_fd_;  ///< the terminal opened once more, or -1
  const int fd_;
  bool ended_ = false;
  uint64_t retry_ns_ = 0;
};

}  // namespace simulator
