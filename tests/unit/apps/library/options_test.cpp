#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "unit/apps/library/library_fixture.h"

namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;

/// The options as the first hosts know them.
struct FirstOptions {
  std::size_t size;
  const char* libraryFolder;
  const char* localFolder;
  const char* settingsFolder;
  const char* title;
  const char* logFile;
};

class OptionsTest : public LibraryTest {
 protected:
  OptionsTest() { ::setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1); }
  ~OptionsTest() override {
    ::unsetenv("XDG_STATE_HOME");
    fs::current_path(before_);
  }
  orcussch_result CreateWith(const orcussch_options& options) {
    orcussch_release(handle);
    handle = reinterpret_cast<orcussch_handle*>(&handle);  // what was there before is overwritten, failed or not
    const orcussch_result result = orcussch_create(&options, &handle);
    EXPECT_EQ(handle == nullptr, result != ORCUSSCH_OK);
    return result;
  }

 private:
  fs::path before_ = fs::current_path();
};

TEST_F(OptionsTest, TheirSizeTellsWhatTheHostKnows) {
  const std::string path = folder.Path();
  FirstOptions first{sizeof first, path.c_str(), path.c_str(), "", "Old host", nullptr};
  orcussch_options options{};
  // Behind the older host's options lies anything.
  std::memset(&options, 0x5A, sizeof options);
  std::memcpy(&options, &first, sizeof first);
  EXPECT_EQ(CreateWith(options), ORCUSSCH_OK) << orcussch_last_error();
  EXPECT_EQ(given.title, "Old host");
  EXPECT_FALSE(given.makeTemporaryFile);
  EXPECT_TRUE(given.places.drives.empty());
  EXPECT_THAT(given.supportLog, EndsWith("-support.log"));

  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, sizeof first - 1, std::size_t{1} << 40U}) {
    options.size = size;
    EXPECT_EQ(CreateWith(options), ORCUSSCH_INVALID_ARGUMENT) << size;
    EXPECT_THAT(orcussch_last_error(), HasSubstr("size"));
  }
}

TEST_F(OptionsTest, ANewerHostIsServedAsLongAsItAsksForNothingNew) {
  struct Newer {
    orcussch_options known;
    const char* more;
  } newer{Options(), nullptr};
  newer.known.size = sizeof newer;
  EXPECT_EQ(CreateWith(newer.known), ORCUSSCH_OK) << orcussch_last_error();
  newer.more = "x";
  EXPECT_EQ(CreateWith(newer.known), ORCUSSCH_INVALID_ARGUMENT);
  EXPECT_THAT(orcussch_last_error(), HasSubstr("newer"));
}

TEST_F(OptionsTest, RelativeNamesCountFromTheWorkingFolder) {
  fs::create_directories(folder / "suite");
  fs::create_directories(folder / "local");
  fs::current_path(folder.Path());
  orcussch_options options = Options();
  options.library_folder = "suite/";
  options.local_folder = "./local";
  options.settings_folder = "settings";
  options.log_file = "logs/../errors.log";
  options.support_log = "support.log";
  ASSERT_EQ(CreateWith(options), ORCUSSCH_OK) << orcussch_last_error();
  const fs::path here = fs::current_path();
  fs::current_path("/");
  EXPECT_EQ(given.settingsFolder, here / "settings");
  EXPECT_EQ(given.errorLog, here / "errors.log");
  EXPECT_EQ(given.supportLog, here / "support.log");
  EXPECT_EQ(orcussch::App().Path(), (here / "suite").string());
  EXPECT_EQ(orcussch::App().System().LocalRoot(), (here / "local").string() + "/");
}

TEST_F(OptionsTest, MissingFoldersAreTold) {
  const std::string missing = folder / "nowhere";
  orcussch_options options = Options();
  options.library_folder = missing.c_str();
  EXPECT_EQ(CreateWith(options), ORCUSSCH_NO_FOLDER);
  EXPECT_EQ(std::string(orcussch_last_error()), "there is no folder " + missing);
  options = Options();
  options.local_folder = missing.c_str();
  EXPECT_EQ(CreateWith(options), ORCUSSCH_NO_FOLDER);
  EXPECT_EQ(std::string(orcussch_last_error()), "there is no folder " + missing);
  const std::string file = folder / "file";
  std::ofstream(file) << "no folder";
  options = Options();
  options.library_folder = file.c_str();
  EXPECT_EQ(CreateWith(options), ORCUSSCH_NO_FOLDER);
  options.library_folder = "";
  EXPECT_EQ(CreateWith(options), ORCUSSCH_NO_FOLDER);
}

TEST_F(OptionsTest, TextsAreUtf8) {
  const std::string path = folder.Path();
  const char* const drives[] = {"C=\xFF", nullptr};
  for (const char* orcussch_options::*text :
       {&orcussch_options::library_folder, &orcussch_options::local_folder, &orcussch_options::settings_folder, &orcussch_options::title,
        &orcussch_options::log_file, &orcussch_options::support_log}) {
    orcussch_options options = Options();
    options.*text = "a\xC3";
    EXPECT_EQ(CreateWith(options), ORCUSSCH_INVALID_ARGUMENT);
    EXPECT_THAT(orcussch_last_error(), HasSubstr("UTF-8"));
  }
  orcussch_options options = Options();
  options.drives = drives;
  EXPECT_EQ(CreateWith(options), ORCUSSCH_INVALID_ARGUMENT);
}

TEST_F(OptionsTest, WhatHoldsWithoutAny) {
  orcussch_options options{};
  options.size = sizeof options;
  const std::string path = folder.Path();
  options.library_folder = path.c_str();
  ASSERT_EQ(CreateWith(options), ORCUSSCH_OK) << orcussch_last_error();
  const std::string state = folder / "state/orcussch/";
  EXPECT_EQ(given.title, "ORCusSch");
  EXPECT_EQ(given.errorLog, state + "orcussch-errors.log");
  EXPECT_EQ(given.supportLog, state + "library_test-support.log") << "one a program";
  EXPECT_EQ(fs::path(given.settingsFolder), fs::path(state));
  EXPECT_EQ(orcussch::App().System().LocalRoot(), state);
  options.settings_folder = "";
  options.support_log = "";
  ASSERT_EQ(CreateWith(options), ORCUSSCH_OK);
  EXPECT_EQ(given.settingsFolder, "");
  EXPECT_EQ(given.supportLog, "");
}

TEST_F(OptionsTest, Drives) {
  const std::string drive = "C=" + folder.Path();
  const char* const drives[] = {drive.c_str(), nullptr};
  orcussch_options options = Options();
  options.drives = drives;
  EXPECT_EQ(CreateWith(options), ORCUSSCH_INVALID_ARGUMENT);
  EXPECT_STREQ(orcussch_last_error(), "with drives, drive C is the local folder");
  options.local_folder = nullptr;
  ASSERT_EQ(CreateWith(options), ORCUSSCH_OK) << orcussch_last_error();
  EXPECT_EQ(orcussch::App().Path(), "C:\\");
  const char* const wrong[] = {"C", nullptr};
  options.drives = wrong;
  EXPECT_EQ(CreateWith(options), ORCUSSCH_INVALID_ARGUMENT);
  EXPECT_STREQ(orcussch_last_error(), "a drive is a letter and a folder, C=DIR, not \"C\"");
}

}  // namespace
