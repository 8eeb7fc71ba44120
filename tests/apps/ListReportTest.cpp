// The list of cameras as text and as JSON.
#include "apps/keocam/ListReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

ListedCamera camera(DeviceUse use) {
  DeviceDetails details;
  details.serial_number = "KEOD2001";
  details.vendor = "Vendor";
  details.model = "KEOsim-640";
  details.address = "192.0.2.11";
  details.mac_address = "02:00:00:00:00:01";
  details.interface_name = "eth0";
  details.interface_address = "192.0.2.1";
  return {details, use};
}

TEST(ListReport, Table_HasALinePerCamera) {
  EXPECT_EQ(listTable({camera(DeviceUse::Free), camera(DeviceUse::OtherHost), camera(DeviceUse::NoAnswer)}, 80),
            "SERIAL    MODEL       ADDRESS     INTERFACE  IN USE\n"
            "KEOD2001  KEOsim-640  192.0.2.11  eth0       no\n"
            "KEOD2001  KEOsim-640  192.0.2.11  eth0       yes\n"
            "KEOD2001  KEOsim-640  192.0.2.11  eth0       ?\n");
}

TEST(ListReport, NoCameras_AreAHeadingAndAnEmptyArray) {
  EXPECT_EQ(listTable({}, 80), "SERIAL  MODEL  ADDRESS  INTERFACE  IN USE\n");
  EXPECT_EQ(listJson({}), "[]\n");
}

TEST(ListReport, Json_HasEveryKey) {
  const auto list = nlohmann::json::parse(listJson({camera(DeviceUse::Free)}));
  const nlohmann::json expected = {{"serial_number", "KEOD2001"},
                                   {"model", "KEOsim-640"},
                                   {"vendor", "Vendor"},
                                   {"address", "192.0.2.11"},
                                   {"interface", "eth0"},
                                   {"mac_address", "02:00:00:00:00:01"},
                                   {"in_subnet", true},
                                   {"interface_address", "192.0.2.1"},
                                   {"in_use_by_other_host", false}};
  EXPECT_EQ(list, nlohmann::json::array({expected}));
}

TEST(ListReport, Json_UseHasThreeValues) {
  const auto useIn = [](DeviceUse use) {
    return nlohmann::json::parse(listJson({camera(use)}))[0]["in_use_by_other_host"];
  };
  EXPECT_EQ(useIn(DeviceUse::Free), false);
  EXPECT_EQ(useIn(DeviceUse::ThisProcess), false);
  EXPECT_EQ(useIn(DeviceUse::OtherHost), true);
  EXPECT_TRUE(useIn(DeviceUse::NoAnswer).is_null());
}

TEST(ListReport, HostileText_ReachesNeitherTerminalNorJson) {
  ListedCamera hostile = camera(DeviceUse::Free);
  hostile.details.serial_number = "\x1b]0;x\x07\"\\";
  hostile.details.model = "\xff\xfe\xc2\x9b";
  hostile.details.vendor = std::string("a\0b", 3);
  const std::string table = listTable({hostile}, 80);
  const std::string json = listJson({hostile});
  for (const char c : table) EXPECT_TRUE(c == '\n' || (c >= 0x20 && c < 0x7f));
  for (const char c : json) EXPECT_TRUE(c == '\n' || (c >= 0x20 && c < 0x7f));
  EXPECT_EQ(nlohmann::json::parse(json)[0]["serial_number"], hostile.details.serial_number);
  EXPECT_EQ(nlohmann::json::parse(json)[0]["vendor"], hostile.details.vendor);
}

TEST(ListReport, LongestTexts_StayWithin80Columns) {
  ListedCamera longest = camera(DeviceUse::OtherHost);
  longest.details.serial_number = std::string(16, '\x01');
  longest.details.model = std::string(32, '\x02');
  longest.details.address = "255.255.255.255";
  longest.details.interface_name = "wlp0s20f3vlan42";
  const std::string table = listTable({longest}, 80);
  std::size_t begin = 0;
  for (std::size_t end = table.find('\n'); end != std::string::npos; end = table.find('\n', begin)) {
    EXPECT_LE(columnsOf(table.substr(begin, end - begin)), 80U);
    begin = end + 1;
  }
}

}  // namespace
}  // namespace keocam::cli
