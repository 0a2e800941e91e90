#include <gtest/gtest.h>

#include <sstream>

#include "custsearch/answer.h"
#include "custsearch/options.h"
#include "engine/engine.h"
#include "robot/scripted_front_end.h"
#include "session/CustSearch.h"
#include "suite/operating_system.h"

/// The sample host's command line and its answer.
namespace custsearch {
namespace {

std::string UsageMistake(const std::vector<std::string>& words) {
  try {
    ParseOptions(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(Options, WhatHoldsWithoutAny) {
  const Options options = ParseOptions({});
  EXPECT_EQ(options.task, Task::Work);
  EXPECT_EQ(options.data, ".");
  EXPECT_EQ(options.company, 1);
  EXPECT_EQ(options.user, 1);
  EXPECT_FALSE(options.local || options.customer || options.threshold || options.json || options.maintenanceOnly || options.windowsPaths);
}

TEST(Options, EachIsRead) {
  const Options work = ParseOptions(
      {"--data", "a", "--local=b", "--company", "3", "--user=12", "--customer", "17", "--billing", "N", "--maintenance-only", "--json"});
  EXPECT_EQ(work.data, "a");
  EXPECT_EQ(work.local, "b");
  EXPECT_EQ(work.company, 3);
  EXPECT_EQ(work.user, 12);
  EXPECT_EQ(work.customer, 17);
  EXPECT_EQ(work.billing, "N");
  EXPECT_TRUE(work.maintenanceOnly);
  EXPECT_TRUE(work.json);
  const Options scenario = ParseOptions(
      {"--scenario", "-", "--front", "desktop", "--paths", "windows", "--drive", "C=c", "--drive", "D=d=e", "--threshold", "0"});
  EXPECT_EQ(scenario.task, Task::Scenario);
  EXPECT_EQ(scenario.scenario, "-");
  EXPECT_EQ(scenario.front, Front::Desktop);
  EXPECT_EQ(scenario.drives, (std::vector<std::string>{"C=c", "D=d=e"}));
  EXPECT_EQ(scenario.threshold, 0);
  EXPECT_EQ(ParseOptions({"--scenario", "x", "--help"}).task, Task::Help);
  EXPECT_EQ(ParseOptions({"--version"}).task, Task::Version);
}

TEST(Options, Mistakes) {
  EXPECT_EQ(UsageMistake({"--colour"}), "unknown option --colour");
  EXPECT_EQ(UsageMistake({"file"}), "\"file\" is one word too many");
  EXPECT_EQ(UsageMistake({"--data"}), "option --data needs a value");
  EXPECT_EQ(UsageMistake({"--json=yes"}), "option --json takes no value");
  EXPECT_EQ(UsageMistake({"--company", "x"}), "option --company needs a whole number from 0, not \"x\"");
  EXPECT_EQ(UsageMistake({"--user", "3000000000"}), "option --user needs a whole number from 0, not \"3000000000\"");
  EXPECT_EQ(UsageMistake({"--billing", "b"}), "option --billing is B or N, not \"b\"");
  EXPECT_EQ(UsageMistake({"--front", "mouse"}), "option --front is robot or desktop, not \"mouse\"");
}

TEST(Options, WhatDoesNotGoTogether) {
  EXPECT_EQ(UsageMistake({"--scenario", "x", "--customer", "1"}),
            "option --customer has no meaning with --scenario, whose host commands say it");
  EXPECT_EQ(UsageMistake({"--scenario", "x", "--json"}), "option --json has no meaning with --scenario, whose host commands say it");
  EXPECT_EQ(UsageMistake({"--front", "robot"}), "option --front is for --scenario");
  EXPECT_EQ(UsageMistake({"--paths", "windows"}), "option --paths windows needs --drive C=DIR");
  EXPECT_EQ(UsageMistake({"--drive", "C=x"}), "option --drive is for --paths windows");
  EXPECT_EQ(UsageMistake({"--paths", "windows", "--drive", "C=x", "--local", "y"}),
            "with --paths windows the local root is drive C; --local has no meaning");
}

class Answer : public testing::Test {
 protected:
  static platform::ApplicationParts Parts() {
    platform::ApplicationParts parts;
    parts.engine = engine::MakeEngine();
    parts.system = suite::MakeNativeSystem("/");
    parts.frontEnd = std::make_unique<robot::NoWindows>();
    parts.path = "/";
    parts.title = "Test";
    return parts;
  }
  void SetUp() override {
    host_.Let("CustomerLastName", "O'Brien \"Bob\"");
    host_.Let("CustomerAddr1", "1 Main St\r\nBack");
    host_.Let("CustomerCity", "M\xC3\xBCnchen");
    host_.Let("CustomerZip", "a\\b");
  }
  platform::Application app_{Parts()};
  orcussch::CustSearch host_{app_};
};

TEST_F(Answer, OneLineEach) {
  std::ostringstream out;
  PrintAnswer(host_, out);
  EXPECT_EQ(
      out.str(),
      "Customer=0\nCustomerLastName=O'Brien \"Bob\"\nCustomerFirstName=\nCustomerTitle=\nCustomerAddr1=1 Main St  Back\nCustomerAddr2=\n"
      "CustomerCity=M\xC3\xBCnchen\nCustomerState=\nCustomerZip=a\\b\n");
}

TEST_F(Answer, AsJson) {
  std::ostringstream out;
  PrintAnswerAsJson(host_, out);
  EXPECT_EQ(out.str(),
            "{\"Customer\":0,\"CustomerLastName\":\"O'Brien \\\"Bob\\\"\",\"CustomerFirstName\":\"\",\"CustomerTitle\":\"\","
            "\"CustomerAddr1\":\"1 Main St\\u000d\\u000aBack\",\"CustomerAddr2\":\"\",\"CustomerCity\":\"M\xC3\xBCnchen\","
            "\"CustomerState\":\"\",\"CustomerZip\":\"a\\\\b\"}\n");
}

}  // namespace
}  // namespace custsearch
