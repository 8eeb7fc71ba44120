// Under which interface a device is listed, with made-up interfaces.
#include <gtest/gtest.h>

#include "pv/aravis/NetworkInterfaces.h"

namespace {

using keocam::InterfaceDetails;
using keocam::Ipv4;
using keocam::ReachQuestions;

const std::vector<InterfaceDetails> kInterfaces = {
    {"lo", "127.0.0.1", "255.0.0.0"},
    {"eth0", "192.0.2.10", "255.255.255.0"},
    {"eth1", "198.51.100.1", "255.255.255.252"},
    {"eth2", "192.0.2.20", "255.255.255.0"},
};

Ipv4 ip(const char* text) { return keocam::parseIpv4(text).value(); }

ReachQuestions noQuestions() {
  return {[](Ipv4) -> std::optional<Ipv4> {
            ADD_FAILURE() << "asked for a route";
            return {};
          },
          [](const InterfaceDetails&, Ipv4) {
            ADD_FAILURE() << "asked the device";
            return false;
          }};
}

TEST(Ipv4Text, ParseIpv4_Dotted_GivesNumberAndBack) {
  EXPECT_EQ(ip("192.0.2.10"), 0xC000020AU);
  EXPECT_EQ(keocam::formatIpv4(0xC000020AU), "192.0.2.10");
}

TEST(Ipv4Text, ParseIpv4_NotAnAddress_IsEmpty) {
  for (const char* text : {"", "1.2.3", "1.2.3.256", "camera", "1.2.3.4 ", "::1"}) {
    EXPECT_FALSE(keocam::parseIpv4(text)) << text;
  }
}

TEST(ChooseInterface, DeviceInOneSubnet_IsThatInterfaceWithoutAsking) {
  const auto lo = keocam::chooseInterface(kInterfaces, ip("127.0.0.5"), noQuestions());
  ASSERT_TRUE(lo);
  EXPECT_EQ(lo->index, 0U);
  const auto narrow = keocam::chooseInterface(kInterfaces, ip("198.51.100.2"), noQuestions());
  ASSERT_TRUE(narrow);
  EXPECT_EQ(narrow->index, 2U);
  EXPECT_TRUE(narrow->in_subnet);
}

TEST(ChooseInterface, SharedSubnet_IsTheFirstOnWhichTheDeviceAnswers) {
  auto questions = noQuestions();
  std::vector<std::string> asked;
  questions.answers_on = [&](const InterfaceDetails& interface, Ipv4) {
    asked.push_back(interface.name);
    return interface.name == "eth2";
  };
  const auto choice = keocam::chooseInterface(kInterfaces, ip("192.0.2.77"), questions);
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->index, 3U);
  EXPECT_TRUE(choice->in_subnet);
  EXPECT_EQ(asked, (std::vector<std::string>{"eth0", "eth2"}));
}

TEST(ChooseInterface, SharedSubnetWithoutAnAnswer_IsTheFirst) {
  auto questions = noQuestions();
  questions.answers_on = [](const InterfaceDetails&, Ipv4) { return false; };
  const auto choice = keocam::chooseInterface(kInterfaces, ip("192.0.2.77"), questions);
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->index, 1U);
}

TEST(ChooseInterface, OutsideEverySubnet_IsTheInterfaceOfTheRoute) {
  auto questions = noQuestions();
  questions.routed_from = [](Ipv4) { return std::optional<Ipv4>(ip("198.51.100.1")); };
  const auto choice = keocam::chooseInterface(kInterfaces, ip("203.0.113.9"), questions);
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->index, 2U);
  EXPECT_FALSE(choice->in_subnet);
}

TEST(ChooseInterface, WithoutARoute_IsNone) {
  auto questions = noQuestions();
  questions.routed_from = [](Ipv4) { return std::optional<Ipv4>(); };
  EXPECT_FALSE(keocam::chooseInterface(kInterfaces, ip("203.0.113.9"), questions));
}

TEST(NetworkInterfaces, ListInterfaces_LoopbackIsOneOfThem) {
  bool found = false;
  for (const auto& interface : keocam::listInterfaces()) {
    found = found || (interface.name == "lo" && interface.address == "127.0.0.1" && interface.netmask == "255.0.0.0");
  }
  EXPECT_TRUE(found);
  EXPECT_EQ(keocam::routedFrom(ip("127.0.0.9")), ip("127.0.0.1"));
  EXPECT_EQ(keocam::mtuOf("lo"), 65536U);
  EXPECT_EQ(keocam::mtuOf("no-such-interface"), 1500U);
}

}  // namespace
