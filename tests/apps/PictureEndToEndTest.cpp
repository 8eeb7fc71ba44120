// The keocam program: pictures of frames.
#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>
#include <set>
#include <tuple>

#include "KeocamRun.h"
#include "TemporaryFolder.h"
#include "apps/keocam/picture/Palette.h"
#include "apps/keocam/picture/ThermalPicture.h"

namespace keocam::cli {
namespace {

struct DecodedPng {
  explicit DecodedPng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
      ADD_FAILURE() << path << ": " << image.message;
      return;
    }
    width = image.width;
    height = image.height;
    format = image.format;
    pixels.resize(std::size_t{width} * height);
    if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0) ADD_FAILURE() << image.message;
  }

  std::size_t width = 0;
  std::size_t height = 0;
  png_uint_32 format = 0;
  std::vector<Rgb> pixels;
};

TEST(KeocamStream, Picture_ShowsTheFrameInAllColoursOfThePalette) {
  for (const auto& [size, frame_width, frame_height] :
       {std::tuple("640x512", 640U, 512U), std::tuple("160x128", 160U, 128U)}) {
    const TemporaryFolder folder;
    const Simulator simulator({"--size", size});
    const Ended stream = keocam({"stream", "--frames", "5", "--picture", folder.file("last.png")});
    ASSERT_EQ(stream.status, 0) << stream.error;

    const DecodedPng png(folder.file("last.png"));
    const PictureLayout layout = layoutOf(frame_width, frame_height);
    ASSERT_EQ(png.width, layout.width);
    ASSERT_EQ(png.height, layout.height);
    EXPECT_EQ(png.format, static_cast<png_uint_32>(PNG_FORMAT_RGB));

    std::set<std::tuple<int, int, int>> colours;
    for (std::size_t y = 0; y < frame_height * layout.enlargement; ++y) {
      for (std::size_t x = 0; x < frame_width * layout.enlargement; ++x) {
        const Rgb pixel = png.pixels[(layout.frame_y + y) * png.width + layout.frame_x + x];
        colours.emplace(pixel.red, pixel.green, pixel.blue);
      }
    }
    const Palette& palette = thermalPalette();
    for (const Rgb& end : {palette.front(), palette.back()}) {
      EXPECT_EQ(colours.count({end.red, end.green, end.blue}), 1U) << "the frame reaches both ends of the palette";
    }
    EXPECT_GT(colours.size(), 100U);
    EXPECT_LE(colours.size(), palette.size());
  }
}

TEST(KeocamStream, PictureThatCannotBeWritten_FailsBeforeTheSearch) {
  const Ended stream = keocam({"stream", "--picture", "/nowhere/at/all.png"});
  EXPECT_EQ(stream.status, 1) << "and not 3, for no camera is there";
  EXPECT_TRUE(contains(stream.error, "/nowhere/at/all.png")) << stream.error;
}

TEST(KeocamStream, PictureNamedAsAnotherFormat_IsStatus2AndLeavesNoFile) {
  const TemporaryFolder folder;
  const std::string path = folder.file("frame.jpg");
  const Ended stream = keocam({"stream", "--picture", path});
  EXPECT_EQ(stream.status, 2);
  EXPECT_TRUE(contains(stream.error, "let the name \"" + path + "\" end in .png.")) << stream.error;
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace keocam::cli
