// A small fixed-width font for captions in pictures.
#pragma once

#include <cstddef>
#include <string_view>

#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

inline constexpr std::size_t kGlyphWidth = 5;
inline constexpr std::size_t kGlyphHeight = 7;
inline constexpr std::size_t kGlyphAdvance = kGlyphWidth + 1;

/// The seven rows of five dots that show `c`, from the top, a '#' for each dot set. Digits, letters and a few signs are
/// drawn; lower-case letters look like capitals, and everything else is an empty box. The sign for degrees is the
/// second byte of its UTF-8 form.
using Glyph = const char* const*;
Glyph glyphOf(char c);

/// Draws `text` with its upper left corner at (x, y), each dot `scale` pixels wide and high. What does not fit into the
/// picture is left out.
void drawText(RgbImage& image, std::size_t x, std::size_t y, std::string_view text, std::size_t scale, Rgb colour);

/// As much of `text` as so many glyphs show.
std::string_view firstGlyphs(std::string_view text, std::size_t glyphs);

/// The pixels that `text` takes in width, without the gap behind its last glyph.
std::size_t textWidth(std::string_view text, std::size_t scale);

}  // namespace keocam::cli
