// Asking the core for its part number, and the forms that its answer may have.
#include "tests/unit/serial/CoreTest.h"

namespace {

class CheckPartNumberTest : public CoreTest {
 protected:
  /// CheckPartNumber with a core that answers `text`, filled up with `padding`.
  int check(const std::string& text, char padding = '^') {
    Bytes answer(text.begin(), text.end());
    answer.resize(32, static_cast<uint8_t>(padding));
    replyTo(102, answer);
    return core_.CheckPartNumber();
  }
};

TEST_F(CheckPartNumberTest, AsksOnceAndCutsThePadding) {
  EXPECT_EQ(check("46336001H-FPNLX"), 0);
  EXPECT_EQ(takeRequests(), requests({{102, {}}}));
  EXPECT_EQ(core_.GetPartNumber(), "46336001H-FPNLX");
  EXPECT_EQ(core_.GetCameraPartNumber(), "46336001H-FPNLX");
  EXPECT_TRUE(core_.GetIsSupported());
  EXPECT_EQ(core_.GetResolutionX(), 336);
  EXPECT_EQ(core_.GetResolutionY(), 256);
  EXPECT_TRUE(core_.GetIsFastVideoSpeed());
  EXPECT_FALSE(core_.CheckIsRadimetric());
  EXPECT_EQ(core_.GetModel(), "KEO_336");
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(CheckPartNumberTest, TextEndsAtTheFirstCaretOrZero) {
  const std::string zero(1, '\0');
  for (const std::string& end : {std::string("^"), zero, "^" + zero, zero + "^", std::string("^junk"), zero + "junk"}) {
    EXPECT_EQ(check("46168060H-SPNLX" + end + "more"), 0);
    EXPECT_EQ(core_.GetCameraPartNumber(), "46168060H-SPNLX");
  }
  EXPECT_FALSE(core_.GetIsFastVideoSpeed());
  EXPECT_EQ(core_.GetModel(), "KEO_160");
}

TEST_F(CheckPartNumberTest, AnswerWithoutAnEnd_IsTakenWhole) {
  const std::string whole = "46640001X-FRNLX and 17 characters";
  EXPECT_EQ(check(whole.substr(0, 32)), 0);
  EXPECT_EQ(core_.GetCameraPartNumber(), whole.substr(0, 32));
  EXPECT_TRUE(core_.GetIsSupported());
}

TEST_F(CheckPartNumberTest, ShortAnswer_IsFilledUpWithNothing) {
  replyTo(102, {'4', '6', '6', '4', '0'});
  EXPECT_EQ(core_.CheckPartNumber(), 0);
  EXPECT_EQ(core_.GetCameraPartNumber().substr(0, 5), "46640");
  EXPECT_TRUE(core_.GetIsSupported());
}

TEST_F(CheckPartNumberTest, NoAnswer_KeepsBothTextsAndSupportsNothing) {
  ASSERT_EQ(check("46999181H-XXXXS"), 0);
  core_.isRadiometric = true;
  core_.isSupported = true;
  const std::string in_use = core_.GetPartNumber();
  const auto expectKept = [&] {
    EXPECT_EQ(core_.CheckPartNumber(), -1);
    EXPECT_EQ(core_.GetCameraPartNumber(), "46999181H-XXXXS");
    EXPECT_EQ(core_.GetPartNumber(), in_use);
    EXPECT_FALSE(core_.GetIsSupported());
    EXPECT_TRUE(core_.GetIsRadiometric());
  };
  expectKept();
  replyTo(102, Bytes(32, '1'), 3);
  expectKept();
  scripted::network().serial.opens = false;
  expectKept();
}

struct Model {
  const char* digits;
  const char* fast;
  const char* slow;
};

class AlternativeFormTest : public CheckPartNumberTest, public testing::WithParamInterface<Model> {};

TEST_P(AlternativeFormTest, IsReplacedByTheModelsPartNumber) {
  const Model& model = GetParam();
  // The fifteenth character tells the speed; without one the core is fast.
  const std::string stem = std::string("500000") + model.digits + "X-FRNL";
  for (const auto& [text, fast] : {std::pair(stem + "S", false), std::pair(stem + "F", true),
                                   std::pair(stem + "SS", false), std::pair(stem, true), std::pair(stem + "s", true)}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(check(text), 0);
    EXPECT_EQ(core_.GetPartNumber(), fast ? model.fast : model.slow);
    EXPECT_EQ(core_.GetCameraPartNumber(), text);
    EXPECT_TRUE(core_.GetIsSupported());
  }
  EXPECT_EQ(check(std::string("500000") + model.digits), 0);
  EXPECT_EQ(core_.GetPartNumber(), model.fast) << "the model's digits suffice";
}

INSTANTIATE_TEST_SUITE_P(Models, AlternativeFormTest,
                         testing::Values(Model{"73", "46324007H-FPNLX", "46324001H-SPNLX"},
                                         Model{"77", "46336001H-FPNLX", "46336007X-SPNLX"},
                                         Model{"81", "46640001X-FPNLX ", "46640019H-SPNLX"},
                                         Model{"85", "46324007H-FPNLX", "46324001H-SPNLX"},
                                         Model{"87", "46640001X-FPNLX ", "46640019H-SPNLX"}));

TEST_F(CheckPartNumberTest, KnownResolution_IsNotTakenForTheAlternativeForm) {
  EXPECT_EQ(check("46336081H-FPNLS"), 0);
  EXPECT_EQ(core_.GetPartNumber(), "46336081H-FPNLS");
  EXPECT_TRUE(core_.GetIsSupported());
}

TEST_F(CheckPartNumberTest, UnknownPartNumber_IsNoFailureButNotSupported) {
  for (const char* const text : {"46999099H-FPNLX", "46999072H-FPNLX", "46999088H-FPNLX", "no part number"}) {
    SCOPED_TRACE(text);
    core_.isSupported = true;
    EXPECT_EQ(check(text), 0);
    EXPECT_EQ(core_.GetPartNumber(), text);
    EXPECT_EQ(core_.GetCameraPartNumber(), text);
    EXPECT_FALSE(core_.GetIsSupported());
    EXPECT_EQ(core_.GetResolutionX(), -1);
    EXPECT_EQ(core_.GetManufacturer(), "");
    EXPECT_EQ(core_.GetModel(), "KEO_-1");
  }
}

TEST_F(CheckPartNumberTest, TextTooShortForACode_IsUnknownAndNoFailure) {
  for (const char* const text : {"", "4", "4664", "50000", "5000008"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(check(text), 0);
    EXPECT_EQ(core_.GetPartNumber(), text);
    EXPECT_FALSE(core_.GetIsSupported());
  }
}

}  // namespace
