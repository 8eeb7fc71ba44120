// The keocam program: list, simulate, and command lines that are wrong.
#include <gtest/gtest.h>
#include <signal.h>

#include <nlohmann/json.hpp>

#include "KeocamRun.h"

namespace keocam::cli {
namespace {

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
  ChildProcess process(keocamWith({"list", "--json", "-q"}));
  process.stopReading(ChildProcess::Output);
  const Ended list = ended(process);
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.error, "");
}

TEST(Keocam, WrongOptionOrVerb_IsStatus2) {
  EXPECT_EQ(keocam({"stream", "--frame", "1"}).status, 2);
  const Ended verb = keocam({"strem"});
  EXPECT_EQ(verb.status, 2);
  EXPECT_EQ(verb.output, "");
  EXPECT_TRUE(contains(verb.error, "\"stream\"")) << verb.error;
}

TEST(KeocamSimulate, Arguments_GoToTheSimulator) {
  const Ended help = keocam({"simulate", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(contains(help.output, "--cameras")) << help.output;

  ChildProcess simulator(keocamWith({"simulate", "--size", "160x128", "--serial", "KEOE3000"}));
  ASSERT_TRUE(simulator.waitFor(ChildProcess::Output, "ready\n", kPatience)) << simulator.text(ChildProcess::Error);
  EXPECT_TRUE(contains(keocam({"list"}).output, "KEOE3000"));
  simulator.signal(SIGTERM);
  EXPECT_EQ(simulator.wait(kPatience), 0);
}

}  // namespace
}  // namespace keocam::cli
