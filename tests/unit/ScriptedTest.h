// What every unit test on the double starts from: an empty log, a fresh network, captured output and recorded time.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/double/EventLog.h"
#include "tests/double/RecordedTime.h"
#include "tests/double/ScriptedNetwork.h"

class ScriptedTest : public testing::Test {
 protected:
  using Log = std::vector<std::string>;

  ScriptedTest() {
    scripted::network() = {};
    scripted::releaseInfos();
    log().clear();
  }
  ~ScriptedTest() override { scripted::releaseInfos(); }

  static scripted::EventLog& log() { return scripted::eventLog(); }

  /// The events since the last call that begin with one of `prefixes`; forgets all of them.
  static Log take(const std::vector<std::string>& prefixes) {
    Log events = log().of(prefixes);
    log().clear();
    return events;
  }
  static Log takeAll() { return take({""}); }
  static Log takePrinted() { return take({"out", "err"}); }

  static std::shared_ptr<scripted::Device> makeDevice(const char* serial, const char* address = "192.0.2.10") {
    auto device = std::make_shared<scripted::Device>();
    device->serial_number = serial;
    device->connection_id = address;
    return device;
  }

  static constexpr int64_t kStart_ms = 1'700'000'000'123;
  scripted::RecordedTime time_{kStart_ms * 1'000'000};
  scripted::CapturedOutput output_;
};

/// A test with one camera on the network.
class ScriptedCameraTest : public ScriptedTest {
 protected:
  ScriptedCameraTest() { scripted::network().interfaces = {scripted::Interface{device_}}; }

  const PvDeviceInfo* info() const { return scripted::infoOf(device_); }

  std::shared_ptr<scripted::Device> device_ = makeDevice("ABCD1000");
};
