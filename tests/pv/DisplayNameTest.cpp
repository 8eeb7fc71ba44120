// Names of devices that are safe to print.
#include "pv/aravis/DisplayName.h"

#include <gtest/gtest.h>

namespace {

std::string nameWithModel(const std::string& model) {
  keocam::DeviceDetails details;
  details.model = model;
  details.serial_number = "KEOD2001";
  details.address = "127.0.0.2";
  return keocam::displayName(details);
}

TEST(DisplayName, PlainText_IsUnchanged) { EXPECT_EQ(nameWithModel("KEO ~sim"), "KEO ~sim KEOD2001 (127.0.0.2)"); }

TEST(DisplayName, EveryByteButPrintableAscii_BecomesAQuestionMark) {
  for (int code = 1; code < 256; ++code) {
    const bool printable = code >= 0x20 && code <= 0x7E;
    const std::string byte(1, static_cast<char>(code));
    EXPECT_EQ(nameWithModel(byte), (printable ? byte : "?") + " KEOD2001 (127.0.0.2)") << code;
  }
}

TEST(DisplayName, EncodedControlsAndOverrides_DoNotPass) {
  EXPECT_EQ(nameWithModel("\xC2\x9B"
                          "2J"),
            "??2J KEOD2001 (127.0.0.2)");
  EXPECT_EQ(nameWithModel("\xE2\x80\xAE"), "??? KEOD2001 (127.0.0.2)");
}

}  // namespace
