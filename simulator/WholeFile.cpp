#include "simulator/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
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
  return std::runtime_error(std::string("cannot ") + what + " '" + path + "': " + std::strerror(error));
}

bool writeAll(int fd, const char* data, std::size_t size) {
  for (std::size_t done = 0; done < size;) {
    const ssize_t written = ::write(fd, data + done, size - done);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace

std::optional<std::string> readWholeFile(const std::string& path, std::size_t most_bytes) {
  // A pipe's other end may never come, so it must not be waited for.
  const OpenFile file(path, O_RDONLY | O_NONBLOCK);
  if (file.fd() < 0 && errno == ENOENT) return std::nullopt;
  struct stat status {};
  if (file.fd() < 0 || ::fstat(file.fd(), &status) != 0) throw failure("read", path, errno);
  if (!S_ISREG(status.st_mode)) throw std::runtime_error("'" + path + "' is no regular file; name one");
  if (static_cast<uint64_t>(status.st_size) > most_bytes) {
    throw std::runtime_error("'" + path + "' has " + std::to_string(status.st_size) + " bytes; " +
                             std::to_string(most_bytes) + " are the most that are read");
  }
  std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t got = ::read(file.fd(), bytes.data() + done, bytes.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) throw failure("read", path, got == 0 ? EIO : errno);
    done += static_cast<std::size_t>(got);
  }
  return bytes;
}

void writeWholeFile(const std::string& path, const void* data, std::size_t size) {
  // Beside the file, as only within one file system a file can take another's place. Other processes use other names.
  const std::string temporary = path + "." + std::to_string(::getpid()) + ".part";
  OpenFile file(temporary, O_WRONLY | O_CREAT | O_TRUNC);
  if (file.fd() < 0) throw failure("write", path, errno);
  const bool written =
      writeAll(file.fd(), static_cast<const char*>(data), size) && ::fsync(file.fd()) == 0 && file.close();
  if (!written || std::rename(temporary.c_str(), path.c_str()) != 0) {
    const int error = errno;
    ::unlink(temporary.c_str());
    throw failure("write", path, error);
  }
}

}  // namespace simulator
