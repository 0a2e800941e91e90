#include <gtest/gtest.h>

#include <sstream>

#include "custsearch/answer.h"
#include "custsearch/options.h"
#include "platform/values/calendar.h"

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
  EXPECT_EQ(UsageMistake({"--threshold", "5"}), "option --threshold is for --scenario");
  EXPECT_EQ(UsageMistake({"--paths", "windows"}), "option --paths windows needs --drive C=DIR");
  EXPECT_EQ(UsageMistake({"--drive", "C=x"}), "option --drive is for --paths windows");
  EXPECT_EQ(UsageMistake({"--paths", "windows", "--drive", "C=x", "--local", "y"}),
            "with --paths windows the local root is drive C; --local has no meaning");
}

TEST(Options, AReportIsOneOfTheCatalogueIntoAFile) {
  const Options report = ParseOptions({"report", "Customer List", "--to", "list.CSV", "--customers", "17", "--formula", "Title=A=B",
                                       "--date=2024-02-29", "--data", "a", "--company", "2", "--user", "3"});
  EXPECT_EQ(report.task, Task::Report);
  EXPECT_EQ(report.report, "Customer List");
  EXPECT_EQ(report.to, "list.CSV");
  EXPECT_EQ(report.customers, "17");
  EXPECT_EQ(report.formulas, (std::vector<std::string>{"Title=A=B"}));
  EXPECT_EQ(report.date, platform::DateSerial(2024, 2, 29));
  EXPECT_EQ(ParseOptions({"report", "11", "--help"}).task, Task::Help);
  EXPECT_FALSE(ParseOptions({"report", "11", "--to", "x.pdf"}).date);
}

TEST(Options, WhatAReportCantHave) {
  EXPECT_EQ(UsageMistake({"report"}), "which report? Its place, file or name in the catalogue");
  EXPECT_EQ(UsageMistake({"report", "--to", "x.pdf"}), "which report? Its place, file or name in the catalogue");
  EXPECT_EQ(UsageMistake({"report", "11"}), "a report needs --to FILE");
  EXPECT_EQ(UsageMistake({"report", "11", "--to", "x.doc"}), "the report's file ends in .pdf, .csv or .xlsx, not \"x.doc\"");
  EXPECT_EQ(UsageMistake({"--date", "2024-02-29"}),
            "options --to, --customers, --formula and --date are for reports: custsearch report NAME --to FILE");
  for (const char* day : {"2023-02-29", "1/31/1999", "1999-1-31", "99-01-31", "", "1999-12-32"})
    EXPECT_EQ(UsageMistake({"report", "11", "--to", "x.pdf", "--date", day}),
              "option --date needs a day such as 1999-12-31, not \"" + std::string(day) + "\"");
  const std::vector<std::vector<std::string>> useless{
      {"--customer", "1"}, {"--billing", "B"}, {"--maintenance-only"}, {"--json"}, {"--scenario", "x"}, {"--front", "robot"}, {"--threshold", "5"}};
  for (const std::vector<std::string>& option : useless) {
    std::vector<std::string> words{"report", "11", "--to", "x.pdf"};
    words.insert(words.end(), option.begin(), option.end());
    EXPECT_EQ(UsageMistake(words), "option " + option[0] + " has no meaning with a report");
  }
}

Answer Found() {
  return {17,
          {{"CustomerLastName", "O'Brien \"Bob\""},
           {"CustomerAddr1", "1 Main St\r\nBack"},
           {"CustomerCity", "M\xC3\xBCnchen"},
           {"CustomerZip", "a\\b"}}};
}

TEST(AnswerTest, OneLineEach) {
  std::ostringstream out;
  PrintAnswer(Found(), out);
  EXPECT_EQ(
      out.str(),
      "Customer=17\nCustomerLastName=O'Brien \"Bob\"\nCustomerAddr1=1 Main St  Back\nCustomerCity=M\xC3\xBCnchen\nCustomerZip=a\\b\n");
}

TEST(AnswerTest, AsJson) {
  std::ostringstream out;
  PrintAnswerAsJson(Found(), out);
  EXPECT_EQ(out.str(),
            "{\"Customer\":17,\"CustomerLastName\":\"O'Brien \\\"Bob\\\"\",\"CustomerAddr1\":\"1 Main St\\u000d\\u000aBack\","
            "\"CustomerCity\":\"M\xC3\xBCnchen\",\"CustomerZip\":\"a\\\\b\"}\n");
}

TEST(AnswerTest, ItsTextsAreThoseOfTheCustomer) {
  EXPECT_EQ(AnswerTexts(), (std::vector<std::string>{"CustomerLastName", "CustomerFirstName", "CustomerTitle", "CustomerAddr1",
                                                     "CustomerAddr2", "CustomerCity", "CustomerState", "CustomerZip"}));
}

}  // namespace
}  // namespace custsearch
