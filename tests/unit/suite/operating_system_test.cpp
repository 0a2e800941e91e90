#include "suite/operating_system.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/values/error.h"
#include "support/temporary_folder.h"

namespace {

int ErrorOf(const platform::OperatingSystem& system, const std::string& path) {
  try {
    system.FileLength(path);
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

TEST(NativeSystem, WritesPathsAsTheHostDoes) {
  const auto system = suite::MakeNativeSystem("/var/local");
  EXPECT_EQ(system->LocalRoot(), "/var/local/");
  EXPECT_EQ(suite::MakeNativeSystem("/var/local/")->LocalRoot(), "/var/local/");
  EXPECT_EQ(system->Separator(), "/");
  EXPECT_EQ(system->ToHostPath("/a\\b/c"), "/a/b/c");
  EXPECT_EQ(system->FromHostPath("/a/b"), "/a/b");
}

TEST(NativeSystem, TheLocalRootIsTheUsersStateFolder) {
  ::setenv("XDG_STATE_HOME", "/state", 1);
  EXPECT_EQ(suite::MakeNativeSystem()->LocalRoot(), "/state/orcussch/");
  ::setenv("XDG_STATE_HOME", "relative", 1);
  ::setenv("HOME", "/home/u", 1);
  EXPECT_EQ(suite::MakeNativeSystem()->LocalRoot(), "/home/u/.local/state/orcussch/");
  ::unsetenv("XDG_STATE_HOME");
  EXPECT_EQ(suite::MakeNativeSystem()->LocalRoot(), "/home/u/.local/state/orcussch/");
}

TEST(WindowsStyleSystem, TheLocalRootIsTheDriveOfTheSystemFolder) {
  EXPECT_EQ(suite::MakeWindowsStyleSystem({})->LocalRoot(), "C:\\");
  EXPECT_EQ(suite::MakeWindowsStyleSystem({}, "D:\\WINNT")->LocalRoot(), "D:\\");
  EXPECT_EQ(suite::MakeWindowsStyleSystem({})->Separator(), "\\");
}

TEST(WindowsStyleSystem, FilesAndSettingsAreFoundThroughDrives) {
  const TemporaryFolder folder;
  folder.Write("suite/orv3.ini", "[Databases]\nDefault Path=D:\\data\\\n");
  suite::DriveMap drives;
  drives.Add('C', folder.Path());
  const auto system = suite::MakeWindowsStyleSystem(drives);
  EXPECT_EQ(system->FileLength("C:\\suite\\orv3.ini"), 34);
  EXPECT_EQ(system->ReadIniValue("Databases", "Default Path", "", "C:\\suite\\orv3.ini", 127), "D:\\data\\");
  EXPECT_EQ(system->ReadIniValue("Databases", "Default Path", "", "E:\\suite\\orv3.ini", 127), "");
  EXPECT_EQ(system->FromHostPath(folder / "suite"), "C:\\suite");
  EXPECT_EQ(ErrorOf(*system, "E:\\x"), 76);
}

TEST(BothStyles, LeaveAServersPathAsItIs) {
  const TemporaryFolder folder;
  suite::DriveMap drives;
  drives.Add('C', folder.Path());
  const std::string path = "postgresql://db.office:5433,spare/suite/orv1/Customer.zdb";
  EXPECT_EQ(suite::MakeNativeSystem("/")->ToHostPath(path), path);
  EXPECT_EQ(suite::MakeWindowsStyleSystem(drives)->ToHostPath(path), path);
  EXPECT_EQ(suite::MakeWindowsStyleSystem(drives)->ToHostPath("PostgreSQL://db/suite/dat.zdb"), "PostgreSQL://db/suite/dat.zdb");
  EXPECT_EQ(ErrorOf(*suite::MakeNativeSystem("/"), path), 76);
}

TEST(FileLength, SaysWhetherFileOrFolderIsMissing) {
  const TemporaryFolder folder;
  const auto system = suite::MakeNativeSystem("/");
  folder.Write("empty", "");
  EXPECT_EQ(system->FileLength(folder.Write("five", "12345")), 5);
  EXPECT_EQ(system->FileLength(folder / "empty"), 0);
  EXPECT_EQ(ErrorOf(*system, folder / "missing"), 53);
  EXPECT_EQ(ErrorOf(*system, folder / "no/missing"), 76);
  EXPECT_EQ(ErrorOf(*system, folder.Path()), 53);
  EXPECT_EQ(ErrorOf(*system, ""), 53);
}

TEST(OperatingSystem, WithSeparatorAddsOneOnlyWhenNeeded) {
  const auto native = suite::MakeNativeSystem("/");
  const auto windows = suite::MakeWindowsStyleSystem({});
  EXPECT_EQ(platform::WithSeparator(*native, "/a"), "/a/");
  EXPECT_EQ(platform::WithSeparator(*native, "/a/"), "/a/");
  EXPECT_EQ(platform::WithSeparator(*windows, "C:\\a"), "C:\\a\\");
  EXPECT_EQ(platform::WithSeparator(*windows, "C:\\"), "C:\\");
}

TEST(OperatingSystem, TheProcessNumberIsThisProcess) { EXPECT_EQ(suite::MakeNativeSystem("/")->ProcessNumber(), ::getpid()); }

}  // namespace
