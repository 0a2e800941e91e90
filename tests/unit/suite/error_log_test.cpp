#include "suite/error_log.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <regex>
#include <sstream>

#include "suite/line_log.h"
#include "support/temporary_folder.h"

namespace {

platform::ErrorRecord Record() {
  return {7, true, "Customer Maintenance", "frmCustMain.SQLData", 12, 3024, "Couldn't find file 'x\\y'.\rsecond\tline\n"};
}

std::vector<std::string> Lines(const std::string& path) {
  std::istringstream text(ReadAll(path));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

TEST(ErrorLog, WritesTheSevenValuesOnOneLine) {
  const TemporaryFolder folder;
  const std::string path = folder / "new/folder/error.log";
  suite::MakeErrorLog(path)->Write(Record());
  const auto lines = Lines(path);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_TRUE(std::regex_match(lines[0].substr(0, 19), std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)"))) << lines[0];
  EXPECT_EQ(lines[0].substr(19), "\t" + std::to_string(::getpid()) +
                                     "\tcompany=7\tterminate=1\tapplication=Customer Maintenance\tmodule=frmCustMain.SQLData\tuser=12"
                                     "\terror=3024\tdescription=Couldn't find file 'x\\\\y'.\\rsecond\\tline\\n");
}

TEST(ErrorLog, AddsToWhatIsThere) {
  const TemporaryFolder folder;
  const auto log = suite::MakeErrorLog(folder / "error.log");
  for (int i = 0; i < 3; ++i) log->Write(Record());
  EXPECT_EQ(Lines(folder / "error.log").size(), 3U);
}

TEST(ErrorLog, APlaceThatCantBeWrittenIsNoError) {
  const TemporaryFolder folder;
  folder.Write("file", "x");
  suite::MakeErrorLog(folder / "file/error.log")->Write(Record());
  suite::MakeErrorLog(folder.Path())->Write(Record());
  EXPECT_EQ(ReadAll(folder / "file"), "x");
}

TEST(ErrorLog, AFullFileIsRenamedOnce) {
  const TemporaryFolder folder;
  const std::string path = folder / "error.log";
  folder.Write("error.log", std::string(2000, 'x') + "\n");
  const auto log = suite::MakeErrorLog(path, 1000);
  log->Write(Record());
  log->Write(Record());
  EXPECT_EQ(Lines(path).size(), 2U);
  EXPECT_EQ(ReadAll(path + ".1"), std::string(2000, 'x') + "\n");
}

TEST(ErrorLog, SeveralProcessesLoseNoLine) {
  const TemporaryFolder folder;
  const std::string path = folder / "error.log";
  constexpr int kProcesses = 4;
  constexpr int kRecords = 200;
  std::vector<pid_t> children;
  for (int i = 0; i < kProcesses; ++i) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      auto record = Record();
      record.user = i;
      // Small enough that several renamings happen while others write; all but the last two files' lines are dropped then,
      // so the size is chosen to rename once at most.
      const auto log = suite::MakeErrorLog(path, 100'000);
      for (int n = 0; n < kRecords; ++n) {
        record.number = n;
        log->Write(record);
      }
      ::_exit(0);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  ASSERT_TRUE(std::filesystem::exists(path + ".1"));
  std::map<std::string, int> records;
  for (const auto& file : {path, path + ".1"}) {
    for (const auto& line : Lines(file)) {
      std::smatch parts;
      ASSERT_TRUE(std::regex_search(line, parts, std::regex("\tuser=(\\d+)\terror=(\\d+)\tdescription=.*n$"))) << line;
      ++records[parts[1].str() + "/" + parts[2].str()];
    }
  }
  EXPECT_EQ(records.size(), static_cast<std::size_t>(kProcesses * kRecords));
}

TEST(DiagnosticLog, WritesRecordsFromItsLevelOn) {
  const TemporaryFolder folder;
  const auto log = suite::MakeDiagnosticLog(folder / "support.log", platform::LogLevel::Warning);
  EXPECT_EQ(log->Lowest(), platform::LogLevel::Warning);
  log->Write(platform::LogLevel::Information, "no");
  log->Write(platform::LogLevel::Warning, "a");
  log->Write(platform::LogLevel::Failure, "card 4111 1111 1111 1111\nend");
  const auto lines = Lines(folder / "support.log");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[0].ends_with("\tWARNING\ta")) << lines[0];
  EXPECT_TRUE(lines[1].ends_with("\tFAILURE\tcard **** **** **** 1111\\nend")) << lines[1];
}

TEST(MaskCardNumbers, HidesAllButTheLastFourDigits) {
  EXPECT_EQ(suite::MaskCardNumbers("4111111111111111"), "************1111");
  EXPECT_EQ(suite::MaskCardNumbers("x4111-1111-1111-1111y"), "x****-****-****-1111y");
  EXPECT_EQ(suite::MaskCardNumbers("3782 822463 10005."), "**** ****** *0005.");
  EXPECT_EQ(suite::MaskCardNumbers("4222222222222"), "*********2222");
  EXPECT_EQ(suite::MaskCardNumbers("41111111111111112222"), "****************2222");
}

TEST(MaskCardNumbers, LeavesOtherNumbers) {
  for (const char* text : {"", "(612) 555-1234", "422222222222", "6125551234 and 6515551234", "12 - 34", "2026-01-31 13:05:09"}) {
    EXPECT_EQ(suite::MaskCardNumbers(text), text);
  }
}

TEST(OneLine, EscapesControlCharacters) {
  EXPECT_EQ(suite::OneLine(std::string("a\\b\0c\x1B\x7F\xC3\xA9", 9)), "a\\\\b\\x00c\\x1B\\x7F\xC3\xA9");
}

}  // namespace
