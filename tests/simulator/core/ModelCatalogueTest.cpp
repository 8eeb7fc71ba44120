// The models of cores: what a host makes of their part numbers, and what cores of them take and refuse.
#include "simulator/core/ModelCatalogue.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "CoreBench.h"
#include "simulator/core/CoreOptionsFor.h"

namespace {

using namespace simulator;
using core_test::CoreBench;
using core_test::wordBytes;

constexpr uint8_t kRange = 0x03;
constexpr uint8_t kNotEnabled = 0x0A;
constexpr uint8_t kPartNumber = 102;
constexpr uint8_t kVideoStandard = 114;

/// What hosts know of part numbers.
const std::map<std::string, ImageSize> kSizeOfResolution{{"640", {640, 512}}, {"336", {336, 256}}, {"324", {320, 256}},
                                                         {"168", {160, 128}}, {"162", {160, 128}}, {"160", {160, 128}}};
const std::map<std::string, ImageSize> kSizeOfModelCode{
    {"73", {320, 256}}, {"85", {320, 256}}, {"77", {336, 256}}, {"81", {640, 512}}, {"87", {640, 512}}};

CoreOptions optionsOf(const CoreModel& model) {
  CameraOptions camera;
  camera.sensor = model.sensor;
  CoreOptions options = coreOptionsFor(camera);
  options.thermal.still = true;
  options.identity = identityOf(model);
  return options;
}

std::string resolutionOf(const CoreModel& model) { return std::string(model.part_number.substr(2, 3)); }
std::string modelCodeOf(const CoreModel& model) { return std::string(model.part_number.substr(6, 2)); }

TEST(ModelCatalogue, EveryResolution_IsThereInAllSpeedsWithAndWithoutRadiometry) {
  std::map<std::tuple<std::string, bool, bool>, int> kinds;
  std::map<char, int> letters;
  for (const CoreModel& model : kCoreModels) {
    const auto size = kSizeOfResolution.find(resolutionOf(model));
    if (size == kSizeOfResolution.end()) continue;
    EXPECT_TRUE(model.sensor == size->second) << model.id;
    const bool fast = model.part_number[10] == 'F';
    const bool radiometric = model.part_number[11] != 'P';
    EXPECT_EQ(isFast(identityOf(model)), fast) << model.id;
    EXPECT_EQ(isRadiometric(identityOf(model)), radiometric) << model.id;
    ++kinds[{size->first, fast, radiometric}];
    ++letters[model.part_number[11]];
  }
  EXPECT_EQ(kinds.size(), 24U);
  for (const auto& [kind, count] : kinds) EXPECT_EQ(count, 1) << std::get<0>(kind);
  EXPECT_EQ(letters, (std::map<char, int>{{'R', 6}, {'I', 6}, {'P', 12}}));
}

TEST(ModelCatalogue, AlternativeForms_AreThereFastAndSlow) {
  std::map<std::pair<std::string, bool>, int> kinds;
  for (const CoreModel& model : kCoreModels) {
    const auto size = kSizeOfModelCode.find(modelCodeOf(model));
    if (kSizeOfResolution.count(resolutionOf(model)) != 0 || size == kSizeOfModelCode.end()) continue;
    EXPECT_TRUE(model.sensor == size->second) << model.id;
    const bool fast = model.part_number.at(14) != 'S';
    EXPECT_EQ(isFast(identityOf(model)), fast) << model.id;
    EXPECT_FALSE(isRadiometric(identityOf(model))) << model.id;
    ++kinds[{size->first, fast}];
  }
  EXPECT_EQ(kinds.size(), 10U);
}

TEST(ModelCatalogue, UnknownPartNumber_TellsHostsNothing) {
  const CoreModel* unknown = findModel("unknown");
  ASSERT_NE(unknown, nullptr);
  EXPECT_EQ(kSizeOfResolution.count(resolutionOf(*unknown)), 0U);
  EXPECT_EQ(kSizeOfModelCode.count(modelCodeOf(*unknown)), 0U);
  EXPECT_EQ(findModel("nonsense"), nullptr);
}

TEST(ModelCatalogue, UsualModel_IsFastAndRadiometric) {
  for (const ImageSize sensor : {ImageSize{640, 512}, {336, 256}, {320, 256}, {160, 128}}) {
    const CoreModel* model = usualModel(sensor);
    ASSERT_NE(model, nullptr);
    EXPECT_TRUE(isFast(identityOf(*model)));
    EXPECT_TRUE(isRadiometric(identityOf(*model)));
    EXPECT_TRUE(model->sensor == sensor);
  }
  EXPECT_EQ(usualModel({100, 100}), nullptr);
}

TEST(ModelCatalogue, PartNumberOnTheWire_IsFilledUpWithTo32Bytes) {
  for (const CoreModel& model : kCoreModels) {
    CoreBench bench(optionsOf(model));
    const core_test::Bytes answer = bench.ask(kPartNumber).payload;
    const std::string text(answer.begin(), answer.end());
    EXPECT_EQ(text, std::string(model.part_number) + std::string(32 - model.part_number.size(), '^'));
  }
}

TEST(ModelCatalogue, Radiometry_IsRefusedByCoresWithoutIt) {
  for (const CoreModel& model : kCoreModels) {
    CoreBench bench(optionsOf(model));
    const uint8_t expected = isRadiometric(identityOf(model)) ? 0 : kNotEnabled;
    EXPECT_EQ(bench.statusOf(142, {0x00, 0x40}), expected) << model.id;
    EXPECT_EQ(bench.statusOf(142, {0x00, 0x40, 0x00, 0x01}), expected) << model.id;
    EXPECT_EQ(bench.statusOf(229, {0x01, 0x00}), expected) << model.id;
    EXPECT_EQ(bench.statusOf(229, {0x01, 0x00, 0x1E, 0x66}), expected) << model.id;
  }
}

TEST(ModelCatalogue, FastVideoStandards_AreOutOfRangeForSlowCores) {
  for (const CoreModel& model : kCoreModels) {
    CoreBench bench(optionsOf(model));
    const uint8_t expected = isFast(identityOf(model)) ? 0 : kRange;
    EXPECT_EQ(bench.statusOf(kVideoStandard, wordBytes(1)), 0) << model.id;
    EXPECT_EQ(bench.statusOf(kVideoStandard, wordBytes(3)), 0) << model.id;
    EXPECT_EQ(bench.statusOf(kVideoStandard, wordBytes(4)), expected) << model.id;
    EXPECT_EQ(bench.statusOf(kVideoStandard, wordBytes(5)), expected) << model.id;
    EXPECT_EQ(bench.word(kVideoStandard), expected == 0 ? 5 : 3) << model.id;
  }
}

TEST(ModelCatalogue, Table_HasALineForEachOfAtMost80Columns) {
  std::istringstream table(modelTable());
  std::string line;
  ASSERT_TRUE(std::getline(table, line));
  for (const CoreModel& model : kCoreModels) {
    ASSERT_TRUE(std::getline(table, line)) << model.id;
    EXPECT_LE(line.size(), 80U);
    std::istringstream words(line);
    std::string id;
    words >> id;
    EXPECT_EQ(id, model.id);
    EXPECT_NE(line.find(model.part_number), std::string::npos) << line;
  }
  EXPECT_FALSE(std::getline(table, line));
}

TEST(ModelCatalogue, Json_HasAnObjectForEach) {
  const std::string json = modelJson();
  std::size_t from = 0;
  for (const CoreModel& model : kCoreModels) {
    from = json.find(R"({"model": ")" + std::string(model.id) + '"', from);
    ASSERT_NE(from, std::string::npos) << model.id;
  }
  EXPECT_NE(json.find(R"({"model": "324-slow", "name": "Slow 324", "width": 320, "height": 256, "frame_rate_hz": 9, )"
                      R"("last_video_standard": 3, "radiometric": false, "part_number": "46324001H-SPNLX", )"
                      R"("first_serial": "KEOC2001"},)"),
            std::string::npos)
      << json;
  EXPECT_EQ(json.substr(0, 4), "[\n  ");
  EXPECT_EQ(json.substr(json.size() - 4), "}\n]\n");
}

TEST(IsFast, AlternativeFormWithoutItsSpeedLetter_IsFast) {
  CoreIdentity identity;
  identity.part_number = "46000081H-SP";
  EXPECT_TRUE(isFast(identity));
  // A resolution that hosts know goes before the model code.
  identity.part_number = "46640081H-FPNLS";
  EXPECT_TRUE(isFast(identity));
  identity.part_number = "46640081H-SPNLF";
  EXPECT_FALSE(isFast(identity));
}

}  // namespace
