// A GigE Vision thermal camera in software: answers discovery and control, streams pictures, bridges a UART.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "simulator/Faults.h"
#include "simulator/Scene.h"
#include "simulator/Statistics.h"
#include "simulator/UartPeer.h"

namespace simulator {

class ThermalCore;

/// Of serial number and user ID.
constexpr std::size_t kLongestName = 15;

struct CameraOptions {
  std::string address = "127.0.0.2";  ///< a local IPv4 address of this machine; all of 127.0.0.0/8 is
  std::string serial = "KEOD2001";    ///< at most 15 characters; unique among cameras
  std::string user_id;                ///< at most 15 characters; empty gives the serial number
  ImageSize sensor;                   ///< also the default of Width and Height
  double frame_rate_hz = 30.0;  ///< start value of AcquisitionFrameRate, 1 to 1000; a slow core lowers it to its own
  uint64_t seed = 1;            ///< of the scene's noise and of the faults' draws
  /// The scene is one in degrees; empty: the moving one. trueTemperatures() says what each pixel of a frame sees.
  std::optional<TemperatureSceneSettings> temperatures;
  bool uart_pacing = true;              ///< false: serial bytes arrive at once, whatever the baud rate
  std::shared_ptr<UartPeer> uart_peer;  ///< null: nothing is connected, bytes to it vanish
  std::shared_ptr<ThermalCore> core;    ///< at the UART's other end and in the pictures' way; excludes `uart_peer`
  FaultSettings faults;
};

/// One camera. It is on the network from construction to destruction; all members may be called from any thread.
class SimulatedCamera {
 public:
  /// Binds the address and starts. Throws std::runtime_error with a text that names the address and what to do.
  explicit SimulatedCamera(const CameraOptions& options);

  /// Stops streaming, closes the sockets and joins the threads; sends nothing.
  ~SimulatedCamera();

  SimulatedCamera(const SimulatedCamera&) = delete;
  SimulatedCamera& operator=(const SimulatedCamera&) = delete;

  const CameraOptions& options() const;
  std::string model() const;                  ///< such as "KEOsim-640"
  std::array<uint8_t, 6> macAddress() const;  ///< locally administered, made from the address
  /// Without a core Scene(sceneSettings()).render(...) recomputes streamed frames; with one renderVideo() does, from
  /// this scene and the core's videoOf() the frame's block.
  SceneSettings sceneSettings() const;
  std::shared_ptr<const Scene> scene() const;

  /// Another scene in degrees, or the moving one, from the next frame on, also while the shutter is closed. Returns
  /// that frame's block id, which is 1 if the host begins a new stream before it. Throws std::invalid_argument for a
  /// scene that does not serve; the one before stays.
  uint64_t show(const std::optional<TemperatureSceneSettings>& temperatures);

  Faults& faults();
  Statistics statistics() const;

  /// The controlling host loses control at once, as if another host had taken and left it; the stream stops.
  void dropControl();

  /// True: another host seems to control the camera, which refuses every write with "access denied". A host that
  /// has control loses it. False: the camera is free again.
  void setOccupied(bool occupied);

  bool controlled() const;  ///< a host, real or seeming, has control
  bool streaming() const;   ///< acquisition is running

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace simulator
