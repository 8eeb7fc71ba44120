// A network that exists only as a script: what discovery finds and how each device behaves. The classes of the seam, as
// a unit-test program links them, follow it and log every call.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "PvResult.h"
#include "PvString.h"
#include "tests/double/EventLog.h"

class PvDeviceInfo;

namespace scripted {

struct Device {
  // A PvString's absence is part of the script: a device may report no serial number at all.
  PvString serial_number{"ABCD1000"};
  PvString connection_id{"192.0.2.10"};
  PvString display_id{"Cam A"};

  bool accepts_connection = true;
  bool is_gige_vision = true;
  bool stays_connected = true;  ///< what IsConnected says of the connected device, until Disconnect
  bool stream_opens = true;
  bool stream_stays_open = true;
  int64_t payload_size = 655360;
  std::vector<std::string> commands = {"AcquisitionStart", "AcquisitionStop"};
  std::vector<std::string> other_features = {"Width"};
};

/// One call of RetrieveNextBuffer: a frame with this first byte, or nothing.
struct Retrieval {
  std::optional<uint8_t> first_byte;
  PvResult result;
  int64_t takes_ms = 0;  ///< for how long the call seems to block
};

/// The serial port of every device.
struct Serial {
  bool opens = true;
  bool takes_writes = true;
  int writes_taken = -1;                     ///< after so many, writes fail; -1 for no end
  std::deque<uint32_t> ready;                ///< what each GetRxBytesReady says; once empty, it fails
  std::function<void()> on_write;            ///< runs at each Write
  std::deque<std::vector<uint8_t>> replies;  ///< what each Read returns; once empty, every Read times out
  std::vector<uint8_t> before_time_out;      ///< what a Read that times out has received nevertheless
};

/// A null device or interface stands for an empty slot.
using Interface = std::vector<std::shared_ptr<Device>>;

struct Network {
  std::vector<std::optional<Interface>> interfaces;
  PvResult find_result;
  std::deque<Retrieval> retrievals;  ///< once empty, every retrieval times out
  Serial serial;
  /// Calls of a device, its features, its stream or its pipeline, as the log has them, that fail with a result that
  /// says so. For calls that return something else, see Device.
  std::set<std::string> refused;
  /// What happens in such a call, whatever it returns. IsConnected and IsOpen have settled their answer by then.
  std::multimap<std::string, std::function<void()>> during;
  std::function<void()> on_find;            ///< lets a search see something else than the one before
  std::function<void()> on_device_visited;  ///< runs after each GetDeviceInfo
};

/// The network of this test process. Assign a new value to start afresh.
Network& network();

/// The description that the double gives a device; the same pointer each time. Lives until releaseInfos().
const PvDeviceInfo* infoOf(const std::shared_ptr<Device>& device);
void releaseInfos();

/// Objects of the double that are alive: "PvDevice", "PvDeviceAdapter", "PvDeviceSerialPort", "PvStream", "PvPipeline",
/// "PvSystem".
int liveObjects(const std::string& kind);

}  // namespace scripted
