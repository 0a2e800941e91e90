#include "suite/drive_map.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace {

class DriveMapTest : public testing::Test {
 protected:
  DriveMapTest() { drives.Add('c', folder.Path()); }
  TemporaryFolder folder;
  suite::DriveMap drives;
};

TEST_F(DriveMapTest, ADriveStandsForItsFolder) {
  EXPECT_EQ(drives.ToHostPath("C:\\suite\\dat.zdb", 'C'), folder / "suite/dat.zdb");
  EXPECT_EQ(drives.ToHostPath("c:/suite/dat.zdb", 'C'), folder / "suite/dat.zdb");
  EXPECT_EQ(drives.ToHostPath("C:\\", 'C'), folder.Path());
  EXPECT_EQ(drives.ToHostPath("C:\\suite\\", 'C'), folder / "suite");
  EXPECT_EQ(drives.ToHostPath("C:x.zdb", 'C'), folder / "x.zdb");
}

TEST_F(DriveMapTest, WithoutALetterTheCurrentDriveIsMeant) {
  EXPECT_EQ(drives.ToHostPath("\\suite\\x", 'C'), folder / "suite/x");
  EXPECT_EQ(drives.ToHostPath("\\suite\\x", 'D'), "");
}

TEST_F(DriveMapTest, SharesAndUnknownLettersHaveNoHostPath) {
  EXPECT_EQ(drives.ToHostPath("\\\\server\\share\\x", 'C'), "");
  EXPECT_EQ(drives.ToHostPath("//server/share/x", 'C'), "");
  EXPECT_EQ(drives.ToHostPath("D:\\x", 'C'), "");
}

TEST_F(DriveMapTest, NoPathLeavesItsDrive) {
  EXPECT_EQ(drives.ToHostPath("C:\\a\\..\\..\\..\\b", 'C'), folder / "b");
  EXPECT_EQ(drives.ToHostPath("C:\\.\\a\\\\b", 'C'), folder / "a/b");
}

TEST_F(DriveMapTest, ExistingNamesAreFoundWithoutCase) {
  folder.Write("Suite/GL.zdb", "x");
  EXPECT_EQ(drives.ToHostPath("C:\\SUITE\\gl.ZDB", 'C'), folder / "Suite/GL.zdb");
  folder.Write("Suite/gl.zdb", "y");
  EXPECT_EQ(drives.ToHostPath("C:\\Suite\\gl.zdb", 'C'), folder / "Suite/gl.zdb");
  EXPECT_EQ(drives.ToHostPath("C:\\suite\\NEW.zdb", 'C'), folder / "Suite/NEW.zdb");
}

TEST_F(DriveMapTest, HostPathsComeBackByTheInnermostDrive) {
  drives.Add('D', folder / "data");
  EXPECT_EQ(drives.FromHostPath(folder / "suite/dat.zdb"), "C:\\suite\\dat.zdb");
  EXPECT_EQ(drives.FromHostPath(folder / "data/orv1/customer.zdb"), "D:\\orv1\\customer.zdb");
  EXPECT_EQ(drives.FromHostPath(folder / "database"), "C:\\database");
  EXPECT_EQ(drives.FromHostPath(folder.Path()), "C:\\");
  EXPECT_EQ(drives.FromHostPath("/nonexistent/x"), "");
}

TEST(DriveMap, TheRootOfTheHostCanBeADrive) {
  suite::DriveMap drives;
  drives.Add('Z', "/");
  EXPECT_EQ(drives.ToHostPath("Z:\\nonexistent\\x", 'C'), "/nonexistent/x");
  EXPECT_EQ(drives.FromHostPath("/nonexistent/x"), "Z:\\nonexistent\\x");
}

TEST(DriveOption, IsALetterAndAFolder) {
  const auto option = suite::ParseDriveOption("c=/srv/suite");
  ASSERT_TRUE(option);
  EXPECT_EQ(option->letter, 'C');
  EXPECT_EQ(option->folder, "/srv/suite");
  for (const char* wrong : {"", "C", "C=", "C:/x", "1=/x", "CD=/x", "=/x"}) EXPECT_FALSE(suite::ParseDriveOption(wrong)) << wrong;
}

}  // namespace
