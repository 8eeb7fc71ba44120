// The serial ports that a device can bridge.
#pragma once

enum PvDeviceSerial {
  PvDeviceSerialInvalid = -1,
  PvDeviceSerial0 = 0,
  PvDeviceSerial1 = 1,
  PvDeviceSerialBulk0 = 2,  ///< the port that the feature "BulkSelector" calls "Bulk0"
};
