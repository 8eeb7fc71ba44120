// One GigE Vision thermal camera: connection, stream and frames.
#pragma once

#include <cstdint>
#include <string>

#include "PvBuffer.h"
#include "PvDevice.h"
#include "PvDeviceInfo.h"
#include "PvGenCommand.h"
#include "PvGenParameterArray.h"
#include "PvPipeline.h"
#include "PvStream.h"

class CameraSerialSettings;

/// A camera found by CameraCenter.
///
///     Disconnected --Connect--> Connected --StartAcquisition--> Acquiring
///          ^                     |  ^                            |  |
///          +----- Disconnect ----+  +------ StopAcquisition -----+  |
///          +--------------------- Disconnect -----------------------+
///
/// Frames are fetched in a loop of RetreiveBuffer and ReleaseBuffer. Every operation runs on the caller's thread; the
/// operations of one camera must not overlap. Progress is written to standard output, a line each.
///
/// The destructor neither disconnects nor frees anything of the network: call Disconnect() first.
class Camera {
 public:
  /// `deviceInfo` is not owned; it belongs to the PvSystem that found it. Without a serial number Connect() throws.
  explicit Camera(PvDeviceInfo const* deviceInfo);
  Camera(PvDeviceInfo const* deviceInfo, std::string calibrationText);
  Camera(PvDeviceInfo const* deviceInfo, std::string calibrationText, std::string calibrationVersion);
  Camera(PvDeviceInfo const* deviceInfo, std::string calibrationText, std::string calibrationVersion,
         std::string serialNumber);
  virtual ~Camera();
  Camera(const Camera&) = delete;
  Camera& operator=(const Camera&) = delete;

  /// Connects the device, opens its stream, makes a pipeline of 2 buffers, puts the camera's calibration in force and
  /// starts its core up, see CameraSerialSettings::SetDefault. Takes some 4 seconds. Returns 0, or -1 on failure; what
  /// had been made before a failure stays, and Disconnect() releases it. -1 for a camera that is connected already,
  /// which is left alone. A core that does not answer, which takes 2 seconds longer to find out, is no failure, since
  /// frames arrive without one: `serialSettings` tells, its GetIsSupported is then false and its GetCameraPartNumber
  /// empty. Nor is a device that is lost during the start-up: IsConnected() tells. A device that falls silent, whenever
  /// it does, makes this last 3 seconds longer at most. One that did so while it was being connected is given up some
  /// seconds later; connecting another camera waits for that, 9 seconds at most.
  ///
  /// Throws std::out_of_range for a serial number of fewer than 4 characters and std::invalid_argument for one without
  /// a number at position 4, both before anything is connected. A calibration that cannot be used throws as
  /// CameraSerialSettings::setCalibrationData does, and a core with a part number of fewer than 12 characters
  /// std::out_of_range: device, stream, pipeline and `serialSettings` are then there, but the core is not started up.
  ///
  /// Calibration and radiometric model are the process': cameras connect one after the other, and the last is in force.
  int Connect();

  /// Negotiates the packet size and tells the device where to stream to. Connect() calls it.
  void ConfigureStream();

  /// A new pipeline on `stream` with 2 buffers of the device's payload size; the caller owns it. Connect() calls it.
  PvPipeline* CreatePipeline(PvDevice* device, PvStream* stream);

  /// Stops the acquisition if it runs and releases pipeline, stream and device. Always waits one second. Call it once
  /// per successful Connect(): the pipeline's pointer keeps its old value. A `device` that was lost stays, as does a
  /// `stream` that closed with it, and `acquiring`: to connect again, or before the camera is deleted, give them to
  /// PvStream::Free and PvDevice::Free, which take null as well, and reset all three.
  void Disconnect();

  bool IsConnected();
  bool IsAcquiring();

  /// "Acquiring", "Connected" or "Disconnected". It says "Acquiring" until StopAcquisition() has run, also when the
  /// device has dropped meanwhile.
  std::string GetStatus();

  /// Starts pipeline, stream and device. It does not check that the camera is connected, nor that each step succeeded:
  /// frames that do not arrive show that it did not.
  void StartAcquisition();

  /// Stops device, stream and pipeline, if the camera is connected and acquiring; does nothing otherwise.
  void StopAcquisition();

  /// Waits up to 1000 ms for the next frame and returns its data: one 16-bit little-endian value per pixel, row by row,
  /// valid until ReleaseBuffer(). If none came, the data of the buffer handed out last are returned once more, or null
  /// if there has been none. To tell the two apart, set `buffer` to null before the call: it then stays null, and so
  /// does the result. A camera of the slow class hands out at most one frame per 100 ms; the call sleeps for the rest.
  uint8_t* RetreiveBuffer();

  /// Gives the frame retrieved last back. Harmless if there is none.
  void ReleaseBuffer();

  /// Degrees Celsius of a pixel's raw value, as CameraSerialSettings::RawToTemp of `serialSettings`, which must exist.
  double CalculateTemperatureC(unsigned short raw);
  /// The same in kelvin.
  double CalculateTemperatureK(unsigned short raw);

  PvStream* stream = nullptr;                       ///< the open video stream; null when not connected
  PvPipeline* pipeline = nullptr;                   ///< buffers on `stream`; not reset by Disconnect()
  PvDevice* device = nullptr;                       ///< the connected device; null when not connected
  PvGenCommand* acquisitionStartCommand = nullptr;  ///< "AcquisitionStart", owned by the device
  PvGenCommand* acquisitionStopCommand = nullptr;   ///< "AcquisitionStop", owned by the device
  PvBuffer* buffer = nullptr;                       ///< the buffer handed out last, owned by the pipeline
  PvGenParameterArray* parameters = nullptr;        ///< the device's features, owned by the device
  PvDeviceInfo const* deviceInfo = nullptr;         ///< owned by the PvSystem
  /// Control of the thermal core, made by Connect(). It survives Disconnect(), of no use, and the next Connect()
  /// replaces it. The library never deletes it; an application that connects often does, before the next Connect().
  CameraSerialSettings* serialSettings = nullptr;
  std::string calibrationText;
  std::string calibrationVersion = "00";
  std::string serialNumber;
  bool acquiring = false;       ///< between StartAcquisition() and StopAcquisition()
  int64_t lastFrameTime = 0;    ///< ms of the system clock; the slow class's last hand-out
  bool limitFrameRate = false;  ///< a camera of the slow class; set by Connect()

 private:
  bool PipelineExists() const;
  void HandOverToCore();

  bool pipelineDeleted_ = false;  // What `pipeline` points to has gone.
};
