#include "streets/file/street_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "streets/check/check_file.h"
#include "streets/file/database.h"
#include "streets/file/file_error.h"
#include "streets/file/street_files.h"
#include "support/temporary_folder.h"

namespace streets {
namespace {

using testing::EndsWith;
using testing::IsEmpty;

// What opening says, without the path.
std::string Complaint(const std::string& path) {
  try {
    OpenStreetFile(path);
  } catch (const FileError& problem) {
    const std::string words = problem.what();
    return words.starts_with(path) ? words.substr(path.size()) : words;
  }
  return "opened";
}

class StreetFileTest : public testing::Test {
 protected:
  StreetFileTest() : path_(folder_ / "streets.zds") { OpenOrMakeStreetFile(path_); }

  void Patch(std::size_t at, const std::string& bytes) const {
    std::string content = ReadAll(path_);
    folder_.Write("streets.zds", content.replace(at, bytes.size(), bytes));
  }

  TemporaryFolder folder_;
  std::string path_;
};

TEST_F(StreetFileTest, ANewFileCanBeReadAndIsWell) {
  EXPECT_EQ(Complaint(path_), "opened");
  EXPECT_THAT(CheckStreetFile(path_), IsEmpty());
}

TEST_F(StreetFileTest, AMissingFileAFolderAndAnEmptyFileAreTold) {
  EXPECT_EQ(Complaint(folder_ / "none.zds"), " is not there.");
  EXPECT_EQ(Complaint(folder_.Path()), " is not a file.");
  EXPECT_EQ(Complaint(folder_.Write("empty.zds", "")), " is empty.");
}

TEST_F(StreetFileTest, ForeignFilesAreTold) {
  EXPECT_EQ(Complaint(folder_.Write("text.zds", "zip,latitude")), " is not a streets file.");
  EXPECT_EQ(Complaint(folder_.Write("long.zds", std::string(5'000, 'x'))), " is not a streets file.");
  constexpr std::size_t kApplicationAt = 68;
  Patch(kApplicationAt, std::string(4, '\0'));  // another program's file of the same store
  EXPECT_EQ(Complaint(path_), " is not a streets file.");
}

// The files as they lie on the disk while somebody writes are those that a killed program leaves behind.
TEST_F(StreetFileTest, WhatAKilledWriterLeftIsUndoneByWhoeverReadsNext) {
  {
    Database writer(path_, Database::Use::Write, 0);
    writer.Execute("CREATE TABLE Kept (text)");
    writer.Execute("PRAGMA cache_size = 1; PRAGMA cache_spill = 1");
    Transaction half(writer);
    writer.Execute("CREATE TABLE Half (text)");
    writer.Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500) INSERT INTO Half SELECT hex(zeroblob(1000)) FROM n");
    folder_.Write("left.zds", ReadAll(path_));
    folder_.Write("left.zds-journal", ReadAll(path_ + "-journal"));
  }
  const std::string left = folder_ / "left.zds";
  Database reader(left, Database::Use::Read, 0);
  EXPECT_EQ(reader.Ask("SELECT count(*) FROM sqlite_schema WHERE name = 'Kept'"), 1);
  EXPECT_EQ(reader.Ask("SELECT count(*) FROM sqlite_schema WHERE name = 'Half'"), 0);
  EXPECT_THROW(reader.Execute("CREATE TABLE Written (text)"), FileError);
}

TEST_F(StreetFileTest, ANewerFormatIsTold) {
  constexpr std::size_t kFormatAt = 60;
  Patch(kFormatAt, std::string("\0\0\0\x07", 4));
  EXPECT_EQ(Complaint(path_), " was made by a newer version of the programs (format 7).");
  EXPECT_THROW(OpenOrMakeStreetFile(path_), FileError);
}

TEST_F(StreetFileTest, ACutFileIsTold) {
  const std::string content = ReadAll(path_);
  for (const std::size_t size : {content.size() - 1, content.size() / 2, std::size_t{4'096}, std::size_t{100}}) {
    EXPECT_EQ(Complaint(folder_.Write("cut.zds", content.substr(0, size))), " is cut short.") << size;
  }
  EXPECT_EQ(Complaint(folder_.Write("cut.zds", content.substr(0, 99))), " is not a streets file.");
}

TEST_F(StreetFileTest, DamagedPagesAreToldAndHarmNothing) {
  const std::string content = ReadAll(path_);
  for (std::size_t at = 100; at < content.size(); at += 997) {
    std::string damaged = content;
    for (std::size_t i = at; i < std::min(at + 200, damaged.size()); ++i) damaged[i] = static_cast<char>(damaged[i] ^ 0x5a);
    const std::string path = folder_.Write("damaged.zds", damaged);
    CheckStreetFile(path);
    StreetFiles files({path});  // opened or told
    EXPECT_EQ(files.All().empty(), !files.Complaint().empty());
  }
}

TEST_F(StreetFileTest, ALockedFileIsTold) {
  Database other(path_, Database::Use::Write, 0);
  other.Execute("BEGIN EXCLUSIVE");
  EXPECT_EQ(Complaint(path_), " is locked by another program.");
}

TEST_F(StreetFileTest, AFileOnADiskThatCantBeWrittenIsRead) {
  ::chmod(path_.c_str(), 0444);
  ::chmod(folder_.Path().c_str(), 0555);
  EXPECT_EQ(Complaint(path_), "opened");
  ::chmod(folder_.Path().c_str(), 0755);
}

TEST_F(StreetFileTest, TheOthersAreUsedWhenOneCantBe) {
  const std::string missing = folder_ / "none.zds";
  StreetFiles files({missing, path_, missing});
  ASSERT_EQ(files.All().size(), 1u);
  EXPECT_EQ(files.Complaint(), missing + " is not there.");
}

TEST_F(StreetFileTest, CheckTellsRowsThatReferToNothing) {
  Database file(path_, Database::Use::Write, 0);
  file.Execute("INSERT INTO Edges VALUES(5, 4, 'Main St', x'0000')");
  file.Execute("INSERT INTO Ranges VALUES(1, 59645, 7, 0, 1, 9, '', 0)");
  const auto found = CheckStreetFile(path_);
  EXPECT_THAT(found, testing::Contains(EndsWith(": 1 ranges lie along no piece of street.")));
  EXPECT_THAT(found, testing::Contains(EndsWith(": 1 pieces of street are not drawn.")));
  EXPECT_THAT(found, testing::Contains(EndsWith(": 1 lines of Edges are damaged.")));
}

}  // namespace
}  // namespace streets
