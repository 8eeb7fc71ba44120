// Which camera is meant, and what is said when it is unclear.
#include "apps/keocam/CameraChoice.h"

#include <gtest/gtest.h>

#include "apps/keocam/CommandFailure.h"

namespace keocam::cli {
namespace {

DeviceDetails camera(const std::string& serial_number, const std::string& address) {
  DeviceDetails details;
  details.serial_number = serial_number;
  details.address = address;
  details.interface_name = "eth0";
  details.interface_address = "192.0.2.1";
  return details;
}

const std::vector<DeviceDetails> kTwo = {camera("KEOD2001", "192.0.2.11"), camera("KEOD2002", "192.0.2.12")};
const std::vector<InterfaceDetails> kInterfaces = {{"lo", "127.0.0.1", "255.0.0.0"},
                                                   {"eth0", "192.0.2.1", "255.255.255.0"}};

CommandFailure failureOf(const std::vector<DeviceDetails>& found, const std::optional<std::string>& serial_number) {
  try {
    chooseCamera(found, serial_number, kInterfaces);
  } catch (const CommandFailure& failure) {
    return failure;
  }
  ADD_FAILURE() << "a camera was chosen";
  return {ExitStatus::Ok, ""};
}

void expectMentions(const CommandFailure& failure, std::initializer_list<const char*> words) {
  for (const char* const word : words) EXPECT_NE(std::string(failure.what()).find(word), std::string::npos) << word;
}

TEST(CameraChoice, SerialNumber_ChoosesItsCamera) { EXPECT_EQ(chooseCamera(kTwo, "KEOD2002", kInterfaces), 1U); }

TEST(CameraChoice, OnlyCamera_NeedsNoSerialNumber) {
  EXPECT_EQ(chooseCamera({kTwo[1]}, std::nullopt, kInterfaces), 0U);
}

TEST(CameraChoice, SeveralCameras_AreAUsageErrorThatListsThem) {
  const CommandFailure failure = failureOf(kTwo, std::nullopt);
  EXPECT_EQ(failure.status(), ExitStatus::Usage);
  expectMentions(failure, {"--camera", "KEOD2001 at 192.0.2.11", "KEOD2002 at 192.0.2.12"});
}

TEST(CameraChoice, UnknownSerialNumber_ListsThoseFoundAndTheNearest) {
  const CommandFailure failure = failureOf(kTwo, "KEOD202");
  EXPECT_EQ(failure.status(), ExitStatus::NoSuchCamera);
  expectMentions(failure, {"\"KEOD202\"", "did you mean \"KEOD2002\"?", "KEOD2001 at"});
}

TEST(CameraChoice, NothingFound_NamesTheInterfacesAndWhatToCheck) {
  for (const auto& serial_number : {std::optional<std::string>(), std::optional<std::string>("KEOD2001")}) {
    const CommandFailure failure = failureOf({}, serial_number);
    EXPECT_EQ(failure.status(), ExitStatus::NoSuchCamera);
    expectMentions(failure, {"eth0, address 192.0.2.1, netmask 255.255.255.0", "power", "cable", "3956"});
  }
}

TEST(CameraChoice, NoInterface_IsSaid) {
  EXPECT_NE(noCameraAdvice({}).find("No network interface"), std::string::npos);
}

TEST(CameraChoice, TwoCamerasOfOneSerialNumber_AreAUsageError) {
  const CommandFailure failure = failureOf({kTwo[0], camera("KEOD2001", "192.0.2.13")}, "KEOD2001");
  EXPECT_EQ(failure.status(), ExitStatus::Usage);
  expectMentions(failure, {"192.0.2.11", "192.0.2.13"});
}

TEST(CameraChoice, HostileSerialNumbers_AreEscaped) {
  const CommandFailure failure = failureOf({camera("\x1b[2J", "192.0.2.11")}, "x\ny");
  EXPECT_EQ(std::string(failure.what()).find('\x1b'), std::string::npos);
  expectMentions(failure, {"\\x1b[2J", "x\\x0ay"});
}

TEST(CameraChoice, SubnetAdvice_NamesBothAddresses) {
  const std::string advice = subnetAdvice(camera("KEOD2001", "10.9.8.7"));
  for (const char* const word : {"KEOD2001", "10.9.8.7", "eth0", "192.0.2.1"}) {
    EXPECT_NE(advice.find(word), std::string::npos) << word;
  }
}

TEST(CameraChoice, CameraWithoutSerialNumber_HasAName) {
  EXPECT_EQ(nameOf(camera("", "192.0.2.11")), "(no serial number) at 192.0.2.11");
}

}  // namespace
}  // namespace keocam::cli
