// What discovery lists, and what stays valid from one pass to the next.
#include <gtest/gtest.h>

#include "PvSystem.h"
#include "pv/aravis/DeviceDetails.h"
#include "tests/pv/TestCamera.h"

namespace {

using keocam::DeviceUse;

simulator::CameraOptions cameraAt(const char* address, const char* serial) {
  auto options = pv_test::smallCamera();
  options.address = address;
  options.serial = serial;
  return options;
}

const PvDeviceInfo* find(const PvSystem& system, const std::string& serial) {
  for (unsigned int i = 0; i < system.GetInterfaceCount(); ++i) {
    const PvInterface* const interface = system.GetInterface(i);
    for (unsigned int d = 0; d < interface->GetDeviceCount(); ++d) {
      if (serial == interface->GetDeviceInfo(d)->GetSerialNumber().GetAscii()) return interface->GetDeviceInfo(d);
    }
  }
  return nullptr;
}

TEST(Discovery, Find_CamerasOnLoopback_AreListedUnderIt) {
  const simulator::SimulatedCamera first(cameraAt("127.0.0.2", "KEOD2001"));
  const simulator::SimulatedCamera second(cameraAt("127.0.0.3", "KEOD2002"));
  PvSystem system;
  EXPECT_EQ(system.GetInterfaceCount(), 0U);
  ASSERT_TRUE(system.Find().IsOK());
  ASSERT_EQ(system.GetInterfaceCount(), keocam::searchedInterfaces().size());
  const PvDeviceInfo* const info = find(system, "KEOD2002");
  ASSERT_NE(info, nullptr);
  EXPECT_STREQ(info->GetConnectionID().GetAscii(), "127.0.0.3");
  EXPECT_EQ(info->GetDisplayID().GetAscii(), first.model() + " KEOD2002 (127.0.0.3)");
  const auto details = keocam::detailsOf(*info);
  EXPECT_EQ(details.interface_name, "lo");
  EXPECT_EQ(details.interface_address, "127.0.0.1");
  EXPECT_EQ(details.model, second.model());
  EXPECT_TRUE(details.in_subnet);
  EXPECT_EQ(system.GetInterface(1000), nullptr);
  EXPECT_EQ(system.GetInterface(0)->GetDeviceInfo(1000), nullptr);
}

TEST(Discovery, Find_Again_KeepsDescriptionsAndSeesDevicesComeAndGo) {
  const simulator::SimulatedCamera stays(cameraAt("127.0.0.2", "KEOD2001"));
  auto goes = std::make_unique<simulator::SimulatedCamera>(cameraAt("127.0.0.3", "KEOD2002"));
  PvSystem system;
  ASSERT_TRUE(system.Find().IsOK());
  const PvInterface* const interface = system.GetInterface(0);
  const PvDeviceInfo* const staying = find(system, "KEOD2001");
  const PvDeviceInfo* const going = find(system, "KEOD2002");
  ASSERT_NE(staying, nullptr);
  ASSERT_NE(going, nullptr);
  goes.reset();
  const simulator::SimulatedCamera comes(cameraAt("127.0.0.4", "KEOD2003"));
  ASSERT_TRUE(system.Find().IsOK());
  EXPECT_EQ(system.GetInterface(0), interface);
  EXPECT_EQ(find(system, "KEOD2001"), staying);
  EXPECT_EQ(find(system, "KEOD2002"), nullptr);
  EXPECT_NE(find(system, "KEOD2003"), nullptr);
  EXPECT_STREQ(going->GetSerialNumber().GetAscii(), "KEOD2002");
}

TEST(Discovery, Find_Repeatedly_LeaksNoDescriptorAndTakesASecond) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  PvSystem system;
  ASSERT_TRUE(system.Find().IsOK());
  const std::size_t before = pv_test::openDescriptors();
  for (int pass = 0; pass < 3; ++pass) {
    EXPECT_LT(pv_test::durationOf([&] { EXPECT_TRUE(system.Find().IsOK()); }), 2000);
  }
  // Devices of the tests before may have been closing since, so that there can be fewer; a leak adds three.
  EXPECT_LE(pv_test::openDescriptors(), before);
}

TEST(DeviceUse, UseOf_TellsWhoControlsTheDevice) {
  const auto options = pv_test::smallCamera();
  const auto info = pv_test::describe(options);
  EXPECT_EQ(keocam::useOf(*info), DeviceUse::NoAnswer);
  simulator::SimulatedCamera camera(options);
  EXPECT_EQ(keocam::useOf(*info), DeviceUse::Free);
  camera.setOccupied(true);
  EXPECT_EQ(keocam::useOf(*info), DeviceUse::OtherHost);
  camera.setOccupied(false);
  PvResult result;
  const pv_test::DevicePtr device(PvDevice::CreateAndConnect(info.get(), &result));
  ASSERT_TRUE(device) << pv_test::textOf(result);
  EXPECT_EQ(keocam::useOf(*info), DeviceUse::ThisProcess);
}

}  // namespace
