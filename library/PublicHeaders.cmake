# The headers that an application may include, and those that they include. The others are not installed.
set(keocam_public_headers
  calibration/Calibration.h
  calibration/CalibrationSource.h
  calibration/CalibrationStruct.h
  calibration/LensChange.h
  camera/Camera.h
  camera/CameraCenter.h
  measurement/Histogram.h
  measurement/Percentiles.h
  measurement/Profile.h
  measurement/Region.h
  measurement/RegionSpans.h
  measurement/RegionText.h
  measurement/Statistics.h
  measurement/TemperatureImage.h
  radiometry/CoreRadiometry.h
  radiometry/LensCorrection.h
  radiometry/Radiance.h
  radiometry/RadiometricModel.h
  radiometry/RangeChange.h
  radiometry/SensorModel.h
  radiometry/TemperatureConverter.h
  radiometry/TemperatureModel.h
  radiometry/TemperatureTables.h
  serial/CameraSerialSettings.h
  serial/CoreReadings.h
  serial/CoreSettings.h
  serial/CoreValue.h
  serial/FunctionCodes.h
  serial/ResponseStatuses.h
  serial/SettingRow.h
  serial/SettingTypes.h
)
if(KEOCAM_PV STREQUAL "aravis")
  list(APPEND keocam_public_headers pv/aravis/DeviceDetails.h pv/aravis/StreamDetails.h)
endif()
