// The keocam program against cameras in software. Run it where loopback is the only network.
#include <gtest/gtest.h>
#include <png.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "ChildProcess.h"
#include "apps/keocam/picture/Palette.h"
#include "apps/keocam/picture/ThermalPicture.h"

namespace keocam::cli {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

// Far above what anything takes here; a slow machine must not fail a test.
constexpr auto kPatience = 60s;

Arguments with(const char* program, const Arguments& arguments) {
  Arguments all{program};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return all;
}

struct Ended {
  int status;
  std::string output;
  std::string error;
};

Ended ended(ChildProcess& process, std::chrono::milliseconds limit = kPatience) {
  const int status = process.wait(limit);
  return {status, process.text(ChildProcess::Output), process.text(ChildProcess::Error)};
}

Ended keocam(const Arguments& arguments) {
  ChildProcess process(with(KEOCAM_PROGRAM, arguments));
  return ended(process);
}

class Simulator {
 public:
  explicit Simulator(const Arguments& arguments) : process_(with(KEOCAM_SIMULATOR_PROGRAM, arguments)) {
    if (!process_.waitFor(ChildProcess::Output, "ready\n", kPatience)) {
      ADD_FAILURE() << "the simulator did not become ready: " << process_.text(ChildProcess::Error);
    }
  }
  ChildProcess& process() { return process_; }

 private:
  ChildProcess process_;
};

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "keocam-test.XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() { fs::remove_all(path_); }
  std::string file(const char* name) const { return (path_ / name).string(); }

 private:
  fs::path path_;
};

TEST(KeocamList, TwoCameras_AreInTheTableAndInTheJson) {
  const Simulator simulator({"--cameras", "2", "--size", "160x128"});
  const Ended table = keocam({"list"});
  EXPECT_EQ(table.status, 0) << table.error;
  EXPECT_EQ(table.error, "");
  EXPECT_TRUE(contains(table.output, "KEOD2001")) << table.output;
  EXPECT_TRUE(contains(table.output, "KEOD2002")) << table.output;

  const auto list = nlohmann::json::parse(keocam({"list", "--json"}).output);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0]["serial_number"], "KEOD2001");
  EXPECT_EQ(list[1]["serial_number"], "KEOD2002");
  EXPECT_NE(list[0]["address"], list[1]["address"]);
  for (const auto& camera : list) {
    EXPECT_EQ(camera["interface"], "lo");
    EXPECT_EQ(camera["interface_address"], "127.0.0.1");
    EXPECT_EQ(camera["in_use_by_other_host"], false);
    EXPECT_EQ(camera["in_subnet"], true);
  }
}

TEST(KeocamList, NoCamera_IsAResultWithAdvice) {
  const Ended list = keocam({"list", "--json"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.output, "[]\n");
  EXPECT_TRUE(contains(list.error, "lo, address 127.0.0.1")) << list.error;
  EXPECT_TRUE(contains(list.error, "3956")) << list.error;
  EXPECT_EQ(keocam({"--quiet", "list"}).error, "");
}

TEST(KeocamList, ReaderThatGoesAway_IsNoFailure) {
  ChildProcess process({KEOCAM_PROGRAM, "list", "--json", "-q"});
  process.stopReading(ChildProcess::Output);
  const Ended list = ended(process);
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.error, "");
}

TEST(KeocamStream, HundredFrames_ArriveWithoutLoss) {
  const Simulator simulator({"--cameras", "2", "--fps", "50"});
  const Ended stream = keocam({"stream", "-c", "KEOD2002", "--frames", "100", "--json"});
  ASSERT_EQ(stream.status, 0) << stream.error;
  const auto totals = nlohmann::json::parse(stream.output);
  EXPECT_EQ(totals["serial_number"], "KEOD2002");
  EXPECT_EQ(totals["ended_by"], "frames");
  EXPECT_EQ(totals["frames"], 100);
  EXPECT_EQ(totals["frames_lost"], 0);
  EXPECT_EQ(totals["width"], 640);
  EXPECT_EQ(totals["height"], 512);
  EXPECT_EQ(totals["pixel_format"], "Mono14");
  EXPECT_GT(totals["frames_per_second"], 20.0);
  EXPECT_GE(totals["packet_size_bytes"], 576);
  EXPECT_LT(totals["raw_min"], totals["raw_mean"]);
  EXPECT_LT(totals["raw_mean"], totals["raw_max"]);
  EXPECT_LE(totals["raw_max"], 16383);
  EXPECT_TRUE(contains(stream.error, "frames/s, lost 0 (0 in all)")) << stream.error;
}

TEST(KeocamStream, Duration_EndsTheStream) {
  const Simulator simulator({"--size", "160x128"});
  const auto totals = nlohmann::json::parse(keocam({"stream", "--duration", "1.5", "--json", "-q"}).output);
  EXPECT_EQ(totals["ended_by"], "duration");
  EXPECT_GE(totals["duration_s"], 1.5);
  EXPECT_GT(totals["frames"], 1);
}

TEST(KeocamStream, Verbose_KeepsTheLibrarysLinesOffStandardOutput) {
  const Simulator simulator({"--size", "160x128"});
  const Ended plain = keocam({"stream", "-n", "3", "--json", "-q"});
  EXPECT_EQ(plain.error, "");
  const Ended verbose = keocam({"stream", "-n", "3", "--json", "-v"});
  EXPECT_EQ(nlohmann::json::parse(verbose.output)["frames"], 3);
  EXPECT_TRUE(contains(verbose.error, "Camera: Starting Acquisition")) << verbose.error;
}

TEST(KeocamStream, WrongSerialNumber_IsStatus3WithTheNearOne) {
  const Simulator simulator({"--size", "160x128"});
  const Ended stream = keocam({"stream", "--camera", "KEOD2011"});
  EXPECT_EQ(stream.status, 3);
  EXPECT_EQ(stream.output, "");
  EXPECT_TRUE(contains(stream.error, "did you mean \"KEOD2001\"?")) << stream.error;
}

TEST(KeocamStream, WithoutCamera_IsStatus3) { EXPECT_EQ(keocam({"stream"}).status, 3); }

TEST(KeocamStream, SeveralCamerasAndNoChoice_IsStatus2WithTheirNames) {
  const Simulator simulator({"--cameras", "2", "--size", "160x128"});
  const Ended stream = keocam({"stream", "--frames", "1"});
  EXPECT_EQ(stream.status, 2);
  EXPECT_TRUE(contains(stream.error, "KEOD2001") && contains(stream.error, "KEOD2002")) << stream.error;
}

TEST(Keocam, WrongOptionOrVerb_IsStatus2) {
  EXPECT_EQ(keocam({"stream", "--frame", "1"}).status, 2);
  const Ended verb = keocam({"strem"});
  EXPECT_EQ(verb.status, 2);
  EXPECT_EQ(verb.output, "");
  EXPECT_TRUE(contains(verb.error, "\"stream\"")) << verb.error;
}

TEST(KeocamStream, SerialNumberOfAnotherFamily_IsExplained) {
  const Simulator simulator({"--serial", "AB1", "--size", "160x128"});
  const Ended stream = keocam({"stream", "--frames", "1"});
  EXPECT_EQ(stream.status, 1);
  EXPECT_TRUE(contains(stream.error, "AB1") && contains(stream.error, "KEOD2001")) << stream.error;
}

TEST(KeocamStream, CameraInUse_IsStatus4AndAnInterruptedStreamGivesItsTotals) {
  const Simulator simulator({"--size", "160x128"});
  ChildProcess first({KEOCAM_PROGRAM, "stream", "--json"});
  ASSERT_TRUE(first.waitFor(ChildProcess::Error, "frames/s", kPatience)) << first.text(ChildProcess::Error);

  const Ended second = keocam({"stream", "--frames", "1"});
  EXPECT_EQ(second.status, 4);
  EXPECT_TRUE(contains(second.error, "in use")) << second.error;
  EXPECT_EQ(nlohmann::json::parse(keocam({"list", "--json"}).output)[0]["in_use_by_other_host"], true);

  first.signal(SIGINT);
  const Ended interrupted = ended(first);
  EXPECT_EQ(interrupted.status, 0) << interrupted.error;
  const auto totals = nlohmann::json::parse(interrupted.output);
  EXPECT_EQ(totals["ended_by"], "signal");
  EXPECT_GT(totals["frames"], 0);
  EXPECT_EQ(keocam({"stream", "--frames", "1"}).status, 0) << "the camera is free again";
}

TEST(KeocamStream, CameraThatDies_IsStatus5WithinTenSeconds) {
  Simulator simulator({"--size", "160x128"});
  ChildProcess stream({KEOCAM_PROGRAM, "stream", "--json", "--timeout", "30"});
  ASSERT_TRUE(stream.waitFor(ChildProcess::Error, "frames/s", kPatience)) << stream.text(ChildProcess::Error);
  simulator.process().signal(SIGKILL);
  const Ended lost = ended(stream, 10s);
  EXPECT_EQ(lost.status, 5) << lost.error;
  EXPECT_TRUE(contains(lost.error, "was lost")) << lost.error;
  EXPECT_EQ(nlohmann::json::parse(lost.output)["ended_by"], "camera_lost");
}

TEST(KeocamStream, NoPacketArrives_IsStatus5ThatNamesTheFirewall) {
  Simulator simulator({"--size", "160x128"});
  simulator.process().send("loss 1000");
  const Ended stream = keocam({"stream", "--timeout", "2"});
  EXPECT_EQ(stream.status, 5) << stream.error;
  EXPECT_TRUE(contains(stream.error, "no complete frame")) << stream.error;
  EXPECT_TRUE(contains(stream.output, "Rate            - frames/s")) << stream.output;
}

TEST(KeocamStream, ReaderOfMessagesThatGoesAway_EndsTheStream) {
  const Simulator simulator({"--size", "160x128"});
  ChildProcess stream({KEOCAM_PROGRAM, "stream", "--json"});
  ASSERT_TRUE(stream.waitFor(ChildProcess::Error, "frames/s", kPatience));
  stream.stopReading(ChildProcess::Error);
  const Ended end = ended(stream);
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(nlohmann::json::parse(end.output)["ended_by"], "signal");
}

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

TEST(KeocamSimulate, Arguments_GoToTheSimulator) {
  const Ended help = keocam({"simulate", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(contains(help.output, "--cameras")) << help.output;

  ChildProcess simulator({KEOCAM_PROGRAM, "simulate", "--size", "160x128", "--serial", "KEOE3000"});
  ASSERT_TRUE(simulator.waitFor(ChildProcess::Output, "ready\n", kPatience)) << simulator.text(ChildProcess::Error);
  EXPECT_TRUE(contains(keocam({"list"}).output, "KEOE3000"));
  simulator.signal(SIGTERM);
  EXPECT_EQ(simulator.wait(kPatience), 0);
}

}  // namespace
}  // namespace keocam::cli
