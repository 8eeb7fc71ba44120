// A scripted core with two lenses in force.
#pragma once

#include "calibration/Calibration.h"
#include "tests/unit/calibration/CalibrationTexts.h"
#include "tests/unit/serial/CoreTest.h"

class LensTest : public CoreTest {
 protected:
  LensTest() { useLenses({tables("L25mm", 300), tables("L50mm", 300, 50)}); }
  ~LensTest() override {
    calibrationVect.clear();
    currentLensNumber = 0;
  }

  using Lens = calibration_texts::Lens;

  static Lens tables(const std::string& name, std::size_t bytes, unsigned int first = 1) {
    Lens lens;
    lens.name = name;
    lens.low = calibration_texts::bytes(bytes, first);
    lens.high = calibration_texts::bytes(bytes, first + 1);
    return lens;
  }

  void useLenses(const std::vector<Lens>& lenses) {
    std::string text;
    for (const Lens& lens : lenses) text += calibration_texts::record(lens);
    core_.setCalibrationData(text, "02", "");
    lenses_ = lenses;
  }

  static Bytes longs(uint32_t first, uint32_t second) {
    Bytes bytes;
    for (const uint32_t value : {first, second}) {
      for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<uint8_t>(value >> shift & 0xFF));
    }
    return bytes;
  }

  static Bytes piece(uint32_t address, const Bytes& table, std::size_t offset, std::size_t size) {
    Bytes payload = longs(address, 0);
    payload.resize(4);
    payload.insert(payload.end(), table.begin() + static_cast<std::ptrdiff_t>(offset),
                   table.begin() + static_cast<std::ptrdiff_t>(offset + size));
    return payload;
  }

  /// The replies to a whole transfer of `size` bytes at `address`, with `block` bytes in each of the flash's blocks.
  static void replyToTransfer(uint32_t address, uint32_t size, uint32_t block, int erasures, uint32_t base = 0) {
    replyTo(214, longs(address, size));
    replyTo(213, longs(base, block));
    for (int i = 0; i < erasures; ++i) replyTo(212, {});
    for (uint32_t written = 0; written < size; written += 128) replyTo(211, {});
  }

  static Log joined(Log left, const Log& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
  }

  /// All calls of one message that is sent through sendMessage, with what it prints once it is over.
  static Log message(uint8_t code, const Bytes& payload, int wait_us, const Log& printed = {}) {
    Log calls = {"PvDeviceAdapter::PvDeviceAdapter Cam A",
                 "PvDeviceSerialPort::Open 2 of Cam A",
                 "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(code, payload)),
                 "usleep " + std::to_string(wait_us) + " us",
                 "PvDeviceSerialPort::GetRxBytesReady",
                 "PvDeviceSerialPort::Read 1024 500"};
    return joined(joined(calls, closing()), printed);
  }
  /// The end of every exchange.
  static Log closing() {
    return {"PvDeviceSerialPort::Close", "PvDeviceSerialPort::~PvDeviceSerialPort",
            "PvDeviceAdapter::~PvDeviceAdapter"};
  }

  std::vector<Lens> lenses_;
};
