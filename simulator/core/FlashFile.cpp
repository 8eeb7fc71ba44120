#include "simulator/core/FlashFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <stdexcept>

namespace simulator {
namespace {

/// A file descriptor that is closed on every way out.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags) : fd_(::open(path.c_str(), flags | O_CLOEXEC, 0644)) {}
  ~OpenFile() { close(); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int fd() const { return fd_; }
  bool close() {
    const int fd = fd_;
    fd_ = -1;
    return fd < 0 || ::close(fd) == 0;
  }

 private:
  int fd_;
};

std::runtime_error failure(const char* what, const std::string& path, int error) {
  return std::runtime_error(std::string("cannot ") + what + " the flash file '" + path + "': " + std::strerror(error));
}

bool writeAll(int fd, const Bytes& bytes) {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t written = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

/// Empty when there is no such file.
std::optional<Bytes> readFile(const std::string& path, std::size_t expected_bytes) {
  // A pipe's other end may never come, so it must not be waited for.
  const OpenFile file(path, O_RDONLY | O_NONBLOCK);
  if (file.fd() < 0 && errno == ENOENT) return std::nullopt;
  struct stat status {};
  if (file.fd() < 0 || ::fstat(file.fd(), &status) != 0) throw failure("read", path, errno);
  if (!S_ISREG(status.st_mode)) throw std::runtime_error("'" + path + "' is no regular file; name one for the flash");
  if (static_cast<std::size_t>(status.st_size) != expected_bytes) {
    throw std::runtime_error("the flash file '" + path + "' has " + std::to_string(status.st_size) +
                             " bytes, but this core's flash has " + std::to_string(expected_bytes) +
                             ": it belongs to another core or sensor; name another file, or remove it");
  }
  Bytes bytes(expected_bytes);
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t got = ::read(file.fd(), bytes.data() + done, bytes.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) throw failure("read", path, got == 0 ? EIO : errno);
    done += static_cast<std::size_t>(got);
  }
  return bytes;
}

}  // namespace

void openFlashFile(const std::string& path, FlashMemory& flash) {
  if (std::optional<Bytes> contents = readFile(path, flash.contents().size())) {
    flash.setContents(std::move(*contents));
  } else {
    writeFlashFile(path, flash.contents());
  }
}

void writeFlashFile(const std::string& path, const Bytes& contents) {
  // Beside the file, as only within one file system a file can take another's place. Cores of other processes use
  // other names.
  const std::string temporary = path + "." + std::to_string(::getpid()) + ".part";
  OpenFile file(temporary, O_WRONLY | O_CREAT | O_TRUNC);
  if (file.fd() < 0) throw failure("write", path, errno);
  const bool written = writeAll(file.fd(), contents) && ::fsync(file.fd()) == 0 && file.close();
  if (!written || std::rename(temporary.c_str(), path.c_str()) != 0) {
    const int error = errno;
    ::unlink(temporary.c_str());
    throw failure("write", path, error);
  }
}

}  // namespace simulator
