// The serial ports of a device that this program has open.
#pragma once

#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace keocam {

/// Keeps a second connection of this program from a port, which the device itself cannot tell from the first. Every
/// member may be called from any thread.
class HeldPorts {
 public:
  /// Holds a port until it ends.
  class Hold {
   public:
    Hold(std::shared_ptr<HeldPorts> ports, std::string port);
    ~Hold();
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    std::shared_ptr<HeldPorts> ports_;
    std::string port_;
  };

  /// Null if the port called `port` is held already.
  static std::unique_ptr<Hold> take(const std::shared_ptr<HeldPorts>& ports, const std::string& port);

 private:
  std::mutex mutex_;
  std::set<std::string> held_;
};

}  // namespace keocam
