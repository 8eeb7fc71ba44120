// Text from a network on its way to a terminal.
#include "apps/keocam/terminal/PrintableText.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

TEST(PrintableText, PlainAsciiAndEuropeanLetters_AreKept) {
  EXPECT_EQ(printable("KEOD2001 (a~b)"), "KEOD2001 (a~b)");
  EXPECT_EQ(printable("Müller Ω Ж"), "Müller Ω Ж");
}

TEST(PrintableText, ControlCharacters_AreEscaped) {
  EXPECT_EQ(printable("a\x1b[2Jb\nc\td\x7f"), "a\\x1b[2Jb\\x0ac\\x09d\\x7f");
  EXPECT_EQ(printable(std::string_view("a\0b", 3)), "a\\x00b");
}

TEST(PrintableText, ControlSequenceIntroducerAsTwoBytes_IsEscaped) { EXPECT_EQ(printable("\xc2\x9b"), "\\xc2\\x9b"); }

TEST(PrintableText, InvalidUtf8_IsEscaped) {
  EXPECT_EQ(printable("\xff"), "\\xff");
  EXPECT_EQ(printable("\xc3"), "\\xc3");           // cut off
  EXPECT_EQ(printable("\xc3("), "\\xc3(");         // no continuation
  EXPECT_EQ(printable("\xc1\xa1"), "\\xc1\\xa1");  // overlong "a"
  EXPECT_EQ(printable("\xbc"), "\\xbc");           // continuation alone
}

TEST(PrintableText, InvisibleAndReorderingCharacters_AreEscaped) {
  EXPECT_EQ(printable("\xe2\x80\xae"), "\\xe2\\x80\\xae");  // right-to-left override
  EXPECT_EQ(printable("\xc2\xad"), "\\xc2\\xad");           // soft hyphen
  EXPECT_EQ(printable("a\xcc\x81"), "a\\xcc\\x81");         // combining accent
}

TEST(PrintableText, EveryByteAlone_GivesPrintableAscii) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = printable(std::string(1, static_cast<char>(byte)));
    for (const char c : text) EXPECT_TRUE(c >= 0x20 && c < 0x7f) << byte;
  }
}

TEST(PrintableText, Columns_CountsCodePoints) { EXPECT_EQ(columnsOf("Müller"), 6U); }

TEST(PrintableText, Fitted_CutsAndMarksWhatIsTooLong) {
  EXPECT_EQ(fitted("Müller", 6), "Müller");
  EXPECT_EQ(fitted("Müller", 3), "Mü~");
  EXPECT_EQ(fitted("Müller", 1), "~");
  EXPECT_EQ(fitted("Müller", 0), "");
}

TEST(PrintableText, InQuotes_QuotesAndEscapes) { EXPECT_EQ(inQuotes("a\n"), "\"a\\x0a\""); }

}  // namespace
}  // namespace keocam::cli
