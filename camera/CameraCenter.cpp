#include "camera/CameraCenter.h"

#include <iostream>
#include <utility>

#include "base/Log.h"
#include "calibration/CalibrationSource.h"

namespace {

std::string textOf(const PvString& text) { return text.GetAscii() != nullptr ? text.GetAscii() : ""; }

}  // namespace

CameraCenter::CameraCenter(std::string location) : sourceLocation(std::move(location)) {
  calibrationSource = new keocam::CalibrationSource(sourceLocation);
  pvSystem = new PvSystem;
  pvSystem->Find();
  createKEOcams();
}

CameraCenter::~CameraCenter() {
  deleteCameras();
  delete pvSystem;
  delete calibrationSource;
}

void CameraCenter::createKEOcams() {
  unsigned int interfaceCounter = 0;
  unsigned int deviceCounter = 0;
  // Both counts are read anew each time: they are the system's, and may change during the pass.
  while (interfaceCounter < pvSystem->GetInterfaceCount()) {
    const PvInterface* const interface = pvSystem->GetInterface(interfaceCounter++);
    if (interface == nullptr) continue;
    for (unsigned int j = 0; j < interface->GetDeviceCount(); ++j) {
      ++deviceCounter;
      const PvDeviceInfo* const deviceInfo = interface->GetDeviceInfo(j);
      if (deviceInfo == nullptr) continue;
      currentDeviceInfo = deviceInfo;
      keocam::CalibrationEntry entry = calibrationSource->lookUp(textOf(deviceInfo->GetSerialNumber()));
      deviceInfos.push_back(deviceInfo);
      currentCamera =
          new Camera(deviceInfo, std::move(entry.text), std::move(entry.version), std::move(entry.serial_number));
      cameras.push_back(currentCamera);
    }
  }
  keocam::printLine("CameraCenter: Connecting KEO devices results:");
  keocam::printLine("\t- Found interfaces: " + std::to_string(interfaceCounter));
  keocam::printLine("\t- Found cameras: " + std::to_string(deviceCounter));
  if (deviceInfos.empty()) std::cerr << "CameraCenter: No cameras ready to use!" << std::endl;
}

void CameraCenter::RefindCameras() {
  deleteCameras();
  pvSystem->Find();
  createKEOcams();
}

void CameraCenter::deleteCameras() {
  for (Camera* const camera : cameras) delete camera;
  cameras.clear();
}
