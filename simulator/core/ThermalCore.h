// The thermal core: the device at the other end of the camera's UART, and what makes the camera's pictures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "simulator/Clock.h"
#include "simulator/UartPeer.h"
#include "simulator/VideoSource.h"
#include "simulator/core/CoreFaults.h"
#include "simulator/core/CoreLog.h"
#include "simulator/core/CoreState.h"
#include "simulator/core/FrameDecoder.h"
#include "simulator/core/VideoHistory.h"

namespace simulator {

/// The core's flash at its first power-on, and where it is kept.
struct FlashOptions {
  FlashGeometry geometry = flashGeometryFor(640 * 512 * 4);
  uint32_t erase_ms = 200;               ///< from a request to erase a block to its answer
  std::array<Bytes, kLensSlots> tables;  ///< the factory's, of the slots' sizes; empty: erased
  std::string file;                      ///< read at the start, written at the end; empty: forgotten at the end
};

struct CoreOptions {
  CoreIdentity identity;          ///< its part number says whether the core is radiometric, and how fast it is
  ThermalProfile thermal;         ///< start temperatures, and whether they stay
  uint64_t seed = 1;              ///< of the faults' draws, the temperatures' wander and the columns' and rows' offsets
  uint32_t processing_us = 1000;  ///< from a request's last byte to the answer's first
  uint32_t shutter_ms = 500;      ///< how long a flat-field correction takes
  uint32_t reset_ms = 1500;       ///< how long the core is silent after a reset
  std::size_t log_entries = 256;  ///< kept in log()
  CoreFaultSettings faults;
  FlashOptions flash;
  std::function<uint64_t()> clock = monotonicNs;
};

/// One core, for one camera. All members may be called from any thread; none calls anything of the camera.
class ThermalCore final : public UartPeer, public VideoSource {
 public:
  /// The only line settings that the core understands.
  static constexpr UartLine kLine{57600, 1, UartParity::None};

  /// Powers on. Throws std::invalid_argument for a part number or a flash that does not serve, and std::runtime_error
  /// for a flash file that does not.
  explicit ThermalCore(const CoreOptions& options = {});

  /// Saves the flash; what goes wrong is said on standard error.
  ~ThermalCore() override;
  ThermalCore(const ThermalCore&) = delete;
  ThermalCore& operator=(const ThermalCore&) = delete;

  UartReply receive(const uint8_t* data, std::size_t size, const UartLine& line) override;
  CoreVideo nextVideo(uint64_t block_id) override;

  /// How the picture of one of the last VideoHistory::kBlocks blocks came about: renderVideo() with it recomputes the
  /// frame. Empty for a block that was not sent or is no longer kept.
  std::optional<CoreVideo> videoOf(uint64_t block_id) const;

  /// What was received and answered, oldest first.
  std::vector<CoreLogEntry> log() const;
  void clearLog();

  /// The present settings, with the automatic corrections that are due by now made up for, as all the others.
  CoreSettings settings() const;
  CoreSettings powerOnSettings() const;
  /// The first word of a present setting. Throws std::out_of_range where the function table has no such setting.
  uint16_t word(uint8_t code, uint8_t selector = 0) const;
  CoreTemperatures temperatures() const;
  uint64_t ffcCount() const;
  bool shutterClosed() const;
  bool radiometric() const;
  const CoreIdentity& identity() const { return options_.identity; }
  uint64_t powerOnNs() const;

  CoreFaultSettings faults() const;
  void setFault(CoreFault fault, uint32_t value, uint32_t frames = CoreFaultSetting::kForGood);
  void setFault(CoreFault fault, const CoreFaultSetting& setting);
  void clearFaults();

  /// The contents of lens slot 0 or 1, and their replacement as in the factory: at no time, without wear.
  Bytes lensTable(std::size_t slot) const;
  void setLensTable(std::size_t slot, const Bytes& table);
  FlashGeometry flashGeometry() const;
  FlashCounters flashCounters() const;
  std::vector<uint32_t> flashWear() const;  ///< how often each block was erased
  /// Writes the flash to its file, if it has one and has changed since. Throws std::runtime_error; the change is then
  /// given up.
  void saveFlash();

 private:
  /// One answer, faults included; its bytes are empty where nothing is sent.
  struct Sent {
    Bytes bytes;
    uint64_t busy_ns = 0;  ///< what the request itself takes
    uint64_t late_ns = 0;  ///< by a fault
  };
  Sent answer(const DecodedFrame& frame, uint64_t now_ns);
  CoreVideo videoNow(uint64_t block_id, uint64_t now_ns);
  void noteSeen(uint64_t now_ns);
  /// The state as it is now; `mutex_` must be held.
  const CoreState& current() const;
  void logUnheard(Verdict verdict, const uint8_t* data, std::size_t size, uint64_t now_ns);

  const CoreOptions options_;
  mutable std::mutex mutex_;  ///< guards everything below
  mutable CoreState state_;   ///< catches up with the clock whenever it is looked at
  FrameDecoder decoder_;
  CoreFaults faults_;
  CoreLog log_;
  VideoHistory videos_;
  std::optional<CoreVideo> last_open_video_;
  uint64_t saved_changes_ = 0;  ///< of the flash, that its file has
};

}  // namespace simulator
