// A serial port through the standard's file access features, one after the other: slow, and known to every device.
#pragma once

#include <string>

#include "pv/aravis/SerialAccess.h"

namespace keocam {

class SerialFeatureAccess : public SerialAccess {
 public:
  explicit SerialFeatureAccess(std::string port);

  PvResult open(ArvDevice* device) override;
  PvResult close(ArvDevice* device) override;
  uint32_t pieceSize() const override { return piece_bytes_; }
  PvResult write(ArvDevice* device, const uint8_t* data, uint32_t size, uint32_t& taken) override;
  PvResult waiting(ArvDevice* device, uint32_t& count) override;
  PvResult read(ArvDevice* device, uint8_t* data, uint32_t capacity, uint32_t& count) override;

 private:
  std::string port_;
  uint32_t piece_bytes_ = 1;
};

}  // namespace keocam
