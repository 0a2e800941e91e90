#include "suite/file_set.h"

#include <gtest/gtest.h>

#include "suite/operating_system.h"
#include "support/temporary_folder.h"

namespace {

using suite::DataFile;

TEST(FileSet, TheDefaultLayout) {
  const auto system = suite::MakeNativeSystem("/");
  EXPECT_EQ(suite::CompanyFile(*system, "/nonexistent/suite", 7, DataFile::Dat), "/nonexistent/suite/dat.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, "/nonexistent/suite/", 7, DataFile::Customer), "/nonexistent/suite/data/orv7/customer.zdb");
  EXPECT_EQ(suite::CompanyFolder(*system, "/nonexistent/suite", 7), "/nonexistent/suite/data/orv7");
  EXPECT_EQ(suite::TemporaryFile(*system, "/nonexistent/local", 12), "/nonexistent/local/orvTEMP/orvTemp12.zdb");
}

TEST(FileSet, TheDefaultLayoutOfWindowsPaths) {
  const auto system = suite::MakeWindowsStyleSystem({});
  EXPECT_EQ(suite::CompanyFile(*system, "C:\\suite\\", 7, DataFile::Dat), "C:\\suite\\dat.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, "C:\\suite", 7, DataFile::Ledger), "C:\\suite\\data\\orv7\\GL.zdb");
  EXPECT_EQ(suite::TemporaryFile(*system, system->LocalRoot(), 3), "C:\\orvTEMP\\orvTemp3.zdb");
}

TEST(FileSet, TheSettingsFileComesFirst) {
  const TemporaryFolder folder;
  folder.Write("orv3.ini", "[Databases]\nDefault Path=/data/\ncustomer.zdb Path=/x/c.zdb\n");
  const auto system = suite::MakeNativeSystem("/");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 3, DataFile::Customer), "/x/c.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 3, DataFile::Dat), "/data/dat.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 3, DataFile::Transactions), "/data/artrans.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 4, DataFile::FlatRate), folder / "data/orv4/flatrate.zdb");
}

TEST(FileSet, ADefaultPathGetsNoSeparator) {
  const TemporaryFolder folder;
  folder.Write("orv3.ini", "[Databases]\nDefault Path=/data\n");
  EXPECT_EQ(suite::CompanyFile(*suite::MakeNativeSystem("/"), folder.Path(), 3, DataFile::Customer), "/datacustomer.zdb");
}

TEST(FileSet, TheDefaultPathMayNameAServer) {
  const TemporaryFolder folder;
  folder.Write("orv3.ini", "[Databases]\nDefault Path=postgresql://db/suite/orv3/\nGL.zdb Path=postgresql://db/books/ledger.zdb\n");
  const auto system = suite::MakeNativeSystem("/");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 3, suite::DataFile::Customer), "postgresql://db/suite/orv3/customer.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 3, suite::DataFile::Dat), "postgresql://db/suite/orv3/dat.zdb");
  EXPECT_EQ(suite::CompanyFile(*system, folder.Path(), 3, suite::DataFile::Ledger), "postgresql://db/books/ledger.zdb");
}

}  // namespace
