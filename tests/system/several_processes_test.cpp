#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "engine/data_file.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "support/temporary_folder.h"
#include "system/child.h"
#include "system/numbered_writes.h"

/// Several processes on the same files.
namespace system_test {
namespace {

class SeveralProcesses : public testing::Test {
 protected:
  SeveralProcesses() { MakeCompany(folder_.Path()); }
  std::string File() const { return CustomerFile(folder_.Path()); }
  std::unique_ptr<Child> Writer(int writer, int count) const {
    const std::string first = std::to_string(writer * kNumbersOfAWriter + 1);
    return std::make_unique<Child>(std::vector<std::string>{WRITER_PROGRAM, File(), first, std::to_string(count)});
  }
  TemporaryFolder folder_;
};

TEST_F(SeveralProcesses, WritersBesideEachOtherLoseNothing) {
  constexpr int kEach = 64;
  std::vector<std::unique_ptr<Child>> writers;
  for (int writer = 0; writer < kWriters; ++writer) writers.push_back(Writer(writer, kEach));
  Ledger ledger;
  for (const auto& writer : writers) {
    for (std::string line; writer->ReadLine(line);) ledger.acknowledged.insert(std::stoll(line));
    EXPECT_EQ(writer->Wait(), 0);
  }
  EXPECT_EQ(ledger.acknowledged.size(), static_cast<std::size_t>(kWriters * kEach));
  EXPECT_THAT(Compare(File(), ledger), testing::IsEmpty());
  EXPECT_THAT(engine::CheckDataFile(File(), suite::TablesOf(suite::DataFile::Customer)), testing::IsEmpty());
}

TEST_F(SeveralProcesses, AReaderSeesWholeWritesOnly) {
  const auto writer = Writer(0, 200);
  Session session(File());
  int looks = 0;
  std::string line;
  // Each look is one statement, in the middle of the other's writing.
  while (writer->ReadLine(line)) {
    const auto rows = session.Database().OpenRecordset("SELECT Addr1, Addr2, City, Latitude, Longitude FROM Customers ORDER BY AcctNum");
    for (; !rows->Eof(); rows->MoveNext()) {
      const std::string mark = platform::CStr(rows->Field("Latitude"));
      ASSERT_EQ(platform::CStr(rows->Field("Addr1")), mark);
      ASSERT_EQ(platform::CStr(rows->Field("Addr2")), mark);
      ASSERT_EQ(platform::CStr(rows->Field("City")), mark);
      ASSERT_EQ(platform::CStr(rows->Field("Longitude")), mark);
    }
    rows->Close();
    ++looks;
  }
  EXPECT_EQ(writer->Wait(), 0);
  EXPECT_EQ(looks, 200);
}

TEST_F(SeveralProcesses, WhatAnotherProcessCommittedShowsAtTheNextFetch) {
  Session session(File());
  const auto rows = session.Database().OpenRecordset("Customers", platform::RecordsetType::Table);
  rows->SetIndex("ByAcct");
  rows->Seek("=", {1});
  EXPECT_EQ(rows->Field("City"), platform::Value("0"));
  // Its first change is of customer 1.
  const auto writer = Writer(0, 1);
  std::string line;
  ASSERT_TRUE(writer->ReadLine(line));
  ASSERT_EQ(line, "1");
  EXPECT_EQ(rows->Field("City"), platform::Value("0")) << "the fetched row stays as it is";
  rows->Move(0);
  EXPECT_EQ(rows->Field("City"), platform::Value("1"));
  EXPECT_EQ(writer->Wait(), 0);
}

TEST_F(SeveralProcesses, TheToolReadsAndWritesWhileASessionIsOpen) {
  Session session(File());
  const auto rows = session.Database().OpenRecordset("SELECT * FROM Customers ORDER BY AcctNum");
  Child update({SUITEFILES_PROGRAM, "sql", File(), "UPDATE Customers SET City='Zanesville' WHERE AcctNum=2"});
  EXPECT_EQ(update.Wait(), 0);
  rows->MoveNext();
  EXPECT_EQ(rows->Field("City"), platform::Value("Zanesville"));
  rows->Edit();
  rows->SetField("State", "OH");
  rows->Update();
  Child read({SUITEFILES_PROGRAM, "sql", "--no-header", File(), "SELECT City, State FROM Customers WHERE AcctNum=2"});
  std::string line;
  ASSERT_TRUE(read.ReadLine(line));
  EXPECT_EQ(line, "Zanesville\tOH") << "each wrote its own field";
  EXPECT_EQ(read.Wait(), 0);
  Child check({SUITEFILES_PROGRAM, "backup", folder_.Path(), folder_ / "copy"});
  EXPECT_EQ(check.Wait(), 0);
}

/// Runs the tool several times at once; the exit statuses, sorted.
std::vector<int> AtOnce(const std::vector<std::vector<std::string>>& commands) {
  std::vector<std::unique_ptr<Child>> tools;
  for (std::vector<std::string> words : commands) {
    words.insert(words.begin(), SUITEFILES_PROGRAM);
    tools.push_back(std::make_unique<Child>(words));
  }
  std::vector<int> ends;
  for (const auto& tool : tools) {
    for (std::string line; tool->ReadLine(line);) {
    }
    ends.push_back(tool->Wait());
  }
  std::ranges::sort(ends);
  return ends;
}

TEST_F(SeveralProcesses, OneTemporaryFileForAllWhoMakeIt) {
  for (int user = 1; user <= 8; ++user) {
    const std::vector<std::string> command{"temp", folder_.Path(), "--user", std::to_string(user)};
    EXPECT_THAT(AtOnce({command, command, command, command}), testing::Each(0)) << "user " << user;
    EXPECT_THAT(
        engine::CheckDataFile(folder_ / ("orvTEMP/orvTemp" + std::to_string(user) + ".zdb"), suite::TablesOf(suite::DataFile::Temporary)),
        testing::IsEmpty());
  }
}

TEST_F(SeveralProcesses, CompaniesMadeAtTheSameMoment) {
  for (int round = 0; round < 5; ++round) {
    const std::string folder = folder_ / ("new" + std::to_string(round));
    const auto create = [&](const char* company) { return std::vector<std::string>{"create", folder, "--company", company}; };
    EXPECT_THAT(AtOnce({create("1"), create("2"), create("3")}), testing::Each(0)) << "they share dat.zdb";
    EXPECT_THAT(AtOnce({create("4"), create("4"), create("4")}), testing::ElementsAre(0, 1, 1)) << "one makes it";
    EXPECT_THAT(AtOnce({{"check", folder}}), testing::Each(0));
  }
}

TEST_F(SeveralProcesses, NumbersOfNewRowsAreNeverGivenTwice) {
  Session one(File());
  Session two(File());
  const auto first = one.Database().OpenRecordset("Customers", platform::RecordsetType::Table);
  const auto second = two.Database().OpenRecordset("Customers", platform::RecordsetType::Table);
  first->AddNew();
  second->AddNew();
  const std::int32_t ofFirst = platform::CLng(first->Field("AcctNum"));
  const std::int32_t ofSecond = platform::CLng(second->Field("AcctNum"));
  EXPECT_NE(ofFirst, ofSecond);
  second->Update();
  first->CancelUpdate();
  first->AddNew();
  EXPECT_GT(platform::CLng(first->Field("AcctNum")), ofSecond) << "a dropped number is lost";
  first->Update();
}

}  // namespace
}  // namespace system_test
