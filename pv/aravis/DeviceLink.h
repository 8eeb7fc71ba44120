// The connection to one device: its Aravis object, the thread that works with it and the thread that watches it.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "PvResult.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/GLib.h"
#include "pv/aravis/HeldPorts.h"
#include "pv/aravis/JobQueue.h"

namespace keocam {

class OpeningTurn;
class StreamReceiver;

/// The longest that a call waits for the device. A call that Aravis holds up longer goes on without its caller.
constexpr std::chrono::milliseconds kCallLimit_ms(2500);

/// Connected from connect() until the first of: disconnect(), the device falls silent, or another host takes control.
///
///     connect() -> Connected -> Lost    (found by the watcher; all calls end at once with NotConnected)
///                            -> Closed  (disconnect())
///
/// Neither is ever left again. In both, the working thread gives the Aravis objects back by itself, however long a dead
/// device makes that last. Aravis' feature tree knows no locks and its calls may block for seconds, so all of them run
/// on the working thread; both threads share ownership of the link. Every member may be called from any thread.
class DeviceLink : public std::enable_shared_from_this<DeviceLink> {
 public:
  using Work = std::function<PvResult(ArvDevice*)>;

  /// Takes control of the device, within `limit` of its turn to be opened. The turn may take 9 s to come, when another
  /// device was lost while it was being opened. Null on failure, with the reason in `result`.
  static std::shared_ptr<DeviceLink> connect(const DeviceDetails& device, std::chrono::milliseconds limit,
                                             PvResult& result);

  explicit DeviceLink(DeviceDetails device);
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

  const DeviceDetails& details() const { return details_; }
  /// "KEOsim-640 KEOD2001 (127.0.0.2)", fit to be printed.
  std::string name() const;

  bool connected() const { return connected_; }

  const std::shared_ptr<HeldPorts>& heldPorts() const { return held_ports_; }

  /// Runs `work` on the working thread and returns its result, or NotConnected or Timeout without it.
  PvResult run(const Work& work, std::chrono::milliseconds limit = kCallLimit_ms);
  /// Runs `work` on the working thread some time later, or never if the link ends before.
  void post(const Work& work);
  /// Gives the device back and waits until that is done, 2.5 s at most. A device that was lost is given back by itself
  /// already, so this returns at once.
  void disconnect();
  /// The device is gone; `reason` completes "Lost KEOsim-640 KEOD2001 (127.0.0.2): ...".
  void lose(const std::string& reason);

  /// The receiver of the device's stream, or null. Owned here as well, so that it can be closed before the device is
  /// given back even if its PvStream has gone.
  std::shared_ptr<StreamReceiver> receiver() const;
  void setReceiver(const std::shared_ptr<StreamReceiver>& receiver);

 private:
  friend class DeviceWatcher;

  PvResult openDevice(OpeningTurn& turn);
  void work();
  void giveBack();
  bool end(const PvResult& reason, const std::function<void()>& note = {});
  PvResult confirmControl();
  void confirmControlSoon();

  const DeviceDetails details_;
  const std::shared_ptr<HeldPorts> held_ports_ = std::make_shared<HeldPorts>();
  JobQueue jobs_;
  GObjectPtr<ArvDevice> device_;  // Touched by the working thread alone.
  std::atomic<bool> connected_{false};
  std::atomic<bool> confirming_{false};

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::shared_ptr<StreamReceiver> receiver_;  // Guarded by mutex_, as is all below.
  bool ended_ = false;                        // No longer to be watched.
  PvResult reason_;                           // Why it ended; Ok before.
  int threads_ = 0;                           // Threads that have not finished.
};

}  // namespace keocam
