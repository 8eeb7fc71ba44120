#include "TerminalJob.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <stdexcept>

namespace {

constexpr int kPatienceMs = 5000;

struct Pipe {
  int read_end = -1;
  int write_end = -1;
};

Pipe openPipe() {
  std::array<int, 2> ends;
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return {ends[0], ends[1]};
}

bool readable(int fd, int timeout_ms) {
  pollfd source{fd, POLLIN, 0};
  return ::poll(&source, 1, timeout_ms) == 1;
}

template <typename Value>
bool readValue(int fd, Value& value) {
  return readable(fd, kPatienceMs) && ::read(fd, &value, sizeof value) == static_cast<ssize_t>(sizeof value);
}

template <typename Value>
void report(int fd, const Value& value) {
  if (::write(fd, &value, sizeof value) < 0) ::_exit(3);
}

[[noreturn]] void runProgram(int terminal, int output, char* const* arguments, int ignored_signal) {
  ::setpgid(0, 0);
  for (const int signal : {SIGHUP, SIGTTOU}) ::signal(signal, SIG_DFL);
  if (ignored_signal != 0) ::signal(ignored_signal, SIG_IGN);
  ::dup2(terminal, STDIN_FILENO);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(output, STDERR_FILENO);
  ::execv(arguments[0], arguments);
  ::_exit(127);
}

/// Leads the session and obeys: f and b move the program, w waits for its end. Ends with its orders.
/// Only functions that are safe after a fork are called here.
[[noreturn]] void runShell(int terminal, int orders, int reports, int output, char* const* arguments,
                           int ignored_signal) {
  ::setsid();
  ::ioctl(terminal, TIOCSCTTY, 0);
  // The shell outlives a hang-up to report how the program ended, and moves the foreground from the background.
  for (const int signal : {SIGHUP, SIGTTOU}) ::signal(signal, SIG_IGN);
  const pid_t program = ::fork();
  if (program == 0) runProgram(terminal, output, arguments, ignored_signal);
  ::close(output);
  ::setpgid(program, program);
  report(reports, program);
  int status = -1;
  for (char order = 0; ::read(orders, &order, 1) == 1;) {
    if (order == 'f') ::tcsetpgrp(terminal, program);
    if (order == 'b') ::tcsetpgrp(terminal, ::getpgrp());
    if (order != 'w') {
      report(reports, order);
    } else if (::waitpid(program, &status, 0) == program) {
      report(reports, status);
    }
  }
  ::_exit(0);
}

}  // namespace

TerminalJob::TerminalJob(const std::vector<std::string>& command, int ignored_signal) {
  terminal_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal_ < 0 || ::grantpt(terminal_) != 0 || ::unlockpt(terminal_) != 0) throw std::runtime_error("no terminal");
  std::array<char, 64> name;
  if (::ptsname_r(terminal_, name.data(), name.size()) != 0) throw std::runtime_error("no terminal's name");
  const int program_side = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  const Pipe orders = openPipe();
  const Pipe reports = openPipe();
  const Pipe output = openPipe();
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);

  shell_ = ::fork();
  if (shell_ == 0) {
    for (const int fd : {terminal_, orders.write_end, reports.read_end, output.read_end}) ::close(fd);
    runShell(program_side, orders.read_end, reports.write_end, output.write_end, arguments.data(), ignored_signal);
  }
  for (const int fd : {program_side, orders.read_end, reports.write_end, output.write_end}) ::close(fd);
  orders_ = orders.write_end;
  reports_ = reports.read_end;
  output_ = output.read_end;
  if (!readValue(reports_, pid_)) throw std::runtime_error("the program did not start");
}

TerminalJob::~TerminalJob() {
  // The shell has reaped a program whose end was waited for; its number may be another's by now.
  if (pid_ > 0) ::kill(pid_, SIGKILL);
  for (const int fd : {orders_, reports_, output_, terminal_}) {
    if (fd >= 0) ::close(fd);
  }
  ::waitpid(shell_, nullptr, 0);
}

char TerminalJob::order(char letter) {
  char answer = 0;
  if (::write(orders_, &letter, 1) != 1 || !readValue(reports_, answer)) throw std::runtime_error("the shell is gone");
  return answer;
}

void TerminalJob::type(const std::string& keys) const {
  if (::write(terminal_, keys.data(), keys.size()) < 0) throw std::runtime_error("the terminal is gone");
}

void TerminalJob::hangUp() {
  ::close(terminal_);
  terminal_ = -1;
}

bool TerminalJob::prints(const std::string& text) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatienceMs);
  while (printed_.find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() >= end) return false;
    if (!readable(output_, 50)) continue;
    std::array<char, 1024> piece;
    const ssize_t size = ::read(output_, piece.data(), piece.size());
    if (size <= 0) return false;
    printed_.append(piece.data(), static_cast<std::size_t>(size));
  }
  return true;
}

bool TerminalJob::stopped() const {
  std::ifstream file("/proc/" + std::to_string(pid_) + "/stat");
  std::string text;
  std::getline(file, text);
  const std::size_t name_end = text.rfind(')');
  return name_end != std::string::npos && text.compare(name_end, 3, ") T") == 0;
}

unsigned long long TerminalJob::mainThreadCpuNs() const {
  const std::string id = std::to_string(pid_);
  std::ifstream file("/proc/" + id + "/task/" + id + "/schedstat");
  unsigned long long spent_ns = 0;
  if (!(file >> spent_ns)) throw std::runtime_error("no processor time is known");
  return spent_ns;
}

int TerminalJob::waitStatus() {
  const char wait = 'w';
  int status = -1;
  if (::write(orders_, &wait, 1) != 1 || !readValue(reports_, status)) return -1;
  pid_ = -1;
  return status;
}
