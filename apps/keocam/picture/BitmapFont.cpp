#include "apps/keocam/picture/BitmapFont.h"

#include <algorithm>

namespace keocam::cli {
namespace {

// The sign for degrees in UTF-8: what is drawn is the second byte, the first takes no room.
constexpr char kLeadByte = '\xC2';
constexpr char kDegree = '\xB0';

struct GlyphRow {
  char character;
  const char* dots[kGlyphHeight];
};

// clang-format off
constexpr GlyphRow kGlyphs[] = {
    {'0', {" ### ", "#   #", "#   #", "# # #", "#   #", "#   #", " ### "}},
    {'1', {"  #  ", " ##  ", "# #  ", "  #  ", "  #  ", "  #  ", "#####"}},
    {'2', {" ### ", "#   #", "    #", "  ## ", " #   ", "#    ", "#####"}},
    {'3', {"#### ", "    #", "    #", " ### ", "    #", "    #", "#### "}},
    {'4', {"#  # ", "#  # ", "#  # ", "#####", "   # ", "   # ", "   # "}},
    {'5', {"#####", "#    ", "#    ", "#### ", "    #", "    #", "#### "}},
    {'6', {" ### ", "#    ", "#    ", "#### ", "#   #", "#   #", " ### "}},
    {'7', {"#####", "    #", "   # ", "   # ", "  #  ", "  #  ", "  #  "}},
    {'8', {" ### ", "#   #", "#   #", " ### ", "#   #", "#   #", " ### "}},
    {'9', {" ### ", "#   #", "#   #", " ####", "    #", "    #", " ### "}},
    {'A', {" ### ", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"}},
    {'B', {"#### ", "#   #", "#   #", "#### ", "#   #", "#   #", "#### "}},
    {'C', {" ####", "#    ", "#    ", "#    ", "#    ", "#    ", " ####"}},
    {'D', {"###  ", "#  # ", "#   #", "#   #", "#   #", "#  # ", "###  "}},
    {'E', {"#####", "#    ", "#    ", "###  ", "#    ", "#    ", "#####"}},
    {'F', {"#####", "#    ", "#    ", "###  ", "#    ", "#    ", "#    "}},
    {'G', {" ####", "#    ", "#    ", "#  ##", "#   #", "#   #", " ####"}},
    {'H', {"#   #", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"}},
    {'I', {"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "#####"}},
    {'J', {"  ###", "    #", "    #", "    #", "    #", "#   #", " ### "}},
    {'K', {"#   #", "#  # ", "# #  ", "##   ", "# #  ", "#  # ", "#   #"}},
    {'L', {"#    ", "#    ", "#    ", "#    ", "#    ", "#    ", "#####"}},
    {'M', {"#   #", "## ##", "# # #", "# # #", "#   #", "#   #", "#   #"}},
    {'N', {"#   #", "##  #", "##  #", "# # #", "#  ##", "#  ##", "#   #"}},
    {'O', {" ### ", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "}},
    {'P', {"#### ", "#   #", "#   #", "#### ", "#    ", "#    ", "#    "}},
    {'Q', {" ### ", "#   #", "#   #", "#   #", "# # #", "#  # ", " ## #"}},
    {'R', {"#### ", "#   #", "#   #", "#### ", "# #  ", "#  # ", "#   #"}},
    {'S', {" ####", "#    ", "#    ", " ### ", "    #", "    #", "#### "}},
    {'T', {"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "  #  "}},
    {'U', {"#   #", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "}},
    {'V', {"#   #", "#   #", "#   #", " # # ", " # # ", "  #  ", "  #  "}},
    {'W', {"#   #", "#   #", "#   #", "# # #", "# # #", "## ##", "#   #"}},
    {'X', {"#   #", " # # ", " # # ", "  #  ", " # # ", " # # ", "#   #"}},
    {'Y', {"#   #", "#   #", " # # ", "  #  ", "  #  ", "  #  ", "  #  "}},
    {'Z', {"#####", "    #", "   # ", "  #  ", " #   ", "#    ", "#####"}},
    {' ', {"     ", "     ", "     ", "     ", "     ", "     ", "     "}},
    {'-', {"     ", "     ", "     ", " ### ", "     ", "     ", "     "}},
    {'_', {"     ", "     ", "     ", "     ", "     ", "     ", "#####"}},
    {'.', {"     ", "     ", "     ", "     ", "     ", " ##  ", " ##  "}},
    {':', {"     ", " ##  ", " ##  ", "     ", " ##  ", " ##  ", "     "}},
    {kDegree, {" ##  ", "#  # ", "#  # ", " ##  ", "     ", "     ", "     "}},
    {'/', {"    #", "    #", "   # ", "  #  ", " #   ", "#    ", "#    "}},
};

constexpr GlyphRow kUnknown =
    {'?', {"#####", "#   #", "#   #", "#   #", "#   #", "#   #", "#####"}};
// clang-format on

constexpr std::size_t length(const char* text) {
  std::size_t count = 0;
  while (text[count] != '\0') ++count;
  return count;
}

constexpr bool areFiveDotsWide() {
  for (const GlyphRow& glyph : kGlyphs) {
    for (const char* const dots : glyph.dots) {
      if (length(dots) != kGlyphWidth) return false;
    }
  }
  return true;
}
static_assert(areFiveDotsWide());

char capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

Glyph glyphOf(char c) {
  for (const GlyphRow& glyph : kGlyphs) {
    if (glyph.character == capital(c)) return glyph.dots;
  }
  return kUnknown.dots;
}

void drawText(RgbImage& image, std::size_t x, std::size_t y, std::string_view text, std::size_t scale, Rgb colour) {
  for (const char c : text) {
    if (c == kLeadByte) continue;
    const Glyph glyph = glyphOf(c);
    for (std::size_t row = 0; row < kGlyphHeight; ++row) {
      for (std::size_t dot = 0; dot < kGlyphWidth; ++dot) {
        if (glyph[row][dot] == '#') image.fill(x + dot * scale, y + row * scale, scale, scale, colour);
      }
    }
    x += kGlyphAdvance * scale;
  }
}

std::string_view firstGlyphs(std::string_view text, std::size_t glyphs) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (text[end] == kLeadByte) continue;
    if (glyphs == 0) break;
    --glyphs;
  }
  return text.substr(0, end);
}

std::size_t textWidth(std::string_view text, std::size_t scale) {
  const auto glyphs = text.size() - static_cast<std::size_t>(std::count(text.begin(), text.end(), kLeadByte));
  return glyphs == 0 ? 0 : (glyphs * kGlyphAdvance - (kGlyphAdvance - kGlyphWidth)) * scale;
}

}  // namespace keocam::cli
