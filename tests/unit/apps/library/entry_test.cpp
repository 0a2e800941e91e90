#include <set>
#include <thread>

#include "unit/apps/library/library_fixture.h"

namespace {

using testing::Contains;
using testing::HasSubstr;

class EntryTest : public LibraryTest {
 protected:
  /// Every call, from inside another one: refused, and nothing has changed.
  void TryAll(const std::string& place) {
    places.insert(place);
    const orcussch_options options = Options();
    orcussch_handle* other = handle;
    EXPECT_EQ(orcussch_create(&options, &other), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(other, nullptr) << place;
    EXPECT_STREQ(orcussch_last_error(), "another call is running");
    EXPECT_EQ(orcussch_set_text(handle, "UserID", "99"), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(orcussch_set_number(handle, "UserID", 99), ORCUSSCH_BUSY) << place;
    char buffer[10] = "untouched";
    std::size_t needed = 77;
    EXPECT_EQ(orcussch_get_text(handle, "UserID", buffer, sizeof buffer, &needed), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(needed, 77U);
    EXPECT_STREQ(buffer, "untouched");
    std::int32_t number = 55;
    EXPECT_EQ(orcussch_get_number(handle, "UserID", &number), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(number, 55);
    EXPECT_EQ(orcussch_show_user(handle), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(orcussch_release(handle), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(orcussch_get_number(nullptr, nullptr, nullptr), ORCUSSCH_BUSY) << place;
    EXPECT_EQ(orcussch_release(nullptr), ORCUSSCH_OK);
  }
  std::set<std::string> places;
};

TEST_F(EntryTest, NoCallRunsInsideAnother) {
  MakeCompany();
  ASSERT_EQ(Create(), ORCUSSCH_OK) << orcussch_last_error();
  ASSERT_EQ(orcussch_set_number(handle, "UserID", 1), ORCUSSCH_OK);
  at = [this](const std::string& place) { TryAll("let: " + place); };
  ASSERT_EQ(orcussch_set_number(handle, "CompanyID", 99), ORCUSSCH_OK);
  EXPECT_STREQ(orcussch_last_error(), "") << "the refused calls inside leave no text behind";
  at = nullptr;
  ASSERT_EQ(orcussch_set_number(handle, "CompanyID", 1), ORCUSSCH_OK);
  at = [this](const std::string& place) { TryAll("show: " + place); };
  ASSERT_EQ(orcussch_show_user(handle), ORCUSSCH_OK);
  EXPECT_STREQ(orcussch_last_error(), "");
  at = nullptr;
  EXPECT_EQ(Number("UserID"), 1);
  at = [this](const std::string& place) { TryAll("release: " + place); };
  ASSERT_EQ(orcussch_release(handle), ORCUSSCH_OK);
  handle = nullptr;
  for (const char* place : {"let: box", "show: loaded", "show: modal", "show: yield", "show: unloaded", "release: yield"})
    EXPECT_THAT(places, Contains(place));
}

TEST_F(EntryTest, AHandleThatWasReleasedIsKnownAsSuch) {
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  orcussch_handle* const first = handle;
  ASSERT_EQ(orcussch_release(first), ORCUSSCH_OK);
  EXPECT_EQ(orcussch_release(first), ORCUSSCH_INVALID_HANDLE);
  EXPECT_STREQ(orcussch_last_error(), "the handle was released");
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  EXPECT_NE(handle, first) << "an old handle never stands for a new session";
  EXPECT_EQ(orcussch_set_number(first, "UserID", 5), ORCUSSCH_INVALID_HANDLE);
  EXPECT_EQ(orcussch_show_user(first), ORCUSSCH_INVALID_HANDLE);
  EXPECT_EQ(orcussch_release(first), ORCUSSCH_INVALID_HANDLE);
  EXPECT_EQ(Number("UserID"), 0);
}

TEST_F(EntryTest, AnUnknownHandleIsRefused) {
  std::int32_t number = 0;
  auto* const unknown = reinterpret_cast<orcussch_handle*>(&number);
  EXPECT_EQ(orcussch_get_number(unknown, "UserID", &number), ORCUSSCH_INVALID_HANDLE);
  EXPECT_EQ(orcussch_release(unknown), ORCUSSCH_INVALID_HANDLE);
  EXPECT_STREQ(orcussch_last_error(), "there is no such handle");
}

TEST_F(EntryTest, AnotherThreadIsRefusedWhileACallRuns) {
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  orcussch_result let = ORCUSSCH_OK;
  orcussch_result create = ORCUSSCH_OK;
  at = [&](const std::string&) {
    std::thread([&] {
      let = orcussch_set_number(handle, "UserID", 9);
      const orcussch_options options = Options();
      orcussch_handle* other = nullptr;
      create = orcussch_create(&options, &other);
    }).join();
  };
  EXPECT_EQ(orcussch_show_user(handle), ORCUSSCH_OK);
  EXPECT_EQ(let, ORCUSSCH_WRONG_THREAD);
  EXPECT_EQ(create, ORCUSSCH_BUSY);
}

TEST_F(EntryTest, ThereIsOneHandleAProcess) {
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  const orcussch_options options = Options();
  orcussch_handle* second = handle;
  EXPECT_EQ(orcussch_create(&options, &second), ORCUSSCH_ALREADY_OPEN);
  EXPECT_EQ(second, nullptr);
}

TEST_F(EntryTest, NamesOfPropertiesAreUtf8) {
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  EXPECT_EQ(orcussch_set_number(handle, "User\xFF", 1), ORCUSSCH_INVALID_ARGUMENT);
  EXPECT_STREQ(orcussch_last_error(), "the property's name is no UTF-8 text");
}

TEST_F(EntryTest, ALongTextIsCutBetweenCharacters) {
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  std::string name;
  for (int i = 0; i < 1000; ++i) name += "\xC3\xB6";
  for (const char* before : {"", "x"}) {
    EXPECT_EQ(orcussch_set_number(handle, (before + name).c_str(), 1), ORCUSSCH_UNKNOWN_PROPERTY);
    const std::string told = orcussch_last_error();
    EXPECT_GT(told.size(), 900U);
    EXPECT_EQ(told.substr(told.size() - 2), "\xC3\xB6");
  }
}

TEST_F(EntryTest, TheTemporaryFileIsMadeWhereItIsAskedFor) {
  MakeCompany();
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  orcussch_set_number(handle, "UserID", 7);
  orcussch_set_number(handle, "CompanyID", 1);
  EXPECT_FALSE(std::filesystem::exists(folder / "orvTEMP/orvTemp7.zdb"));
  orcussch_release(handle);

  const std::string local = folder / "new/local";
  orcussch_options options = Options();
  options.local_folder = local.c_str();
  options.make_temporary_file = 1;
  ASSERT_EQ(orcussch_create(&options, &handle), ORCUSSCH_OK) << orcussch_last_error();
  orcussch_set_number(handle, "UserID", 7);
  int boxes = 0;
  at = [&](const std::string& place) { boxes += place == "box" ? 1 : 0; };
  EXPECT_EQ(orcussch_set_number(handle, "CompanyID", 1), ORCUSSCH_OK) << orcussch_last_error();
  EXPECT_TRUE(std::filesystem::exists(local + "/orvTEMP/orvTemp7.zdb"));
  EXPECT_EQ(boxes, 0);
}

TEST_F(EntryTest, ATemporaryFileThatCantBeMadeFailsTheLet) {
  MakeCompany();
  std::filesystem::remove_all(folder / "orvTEMP");
  std::ofstream(folder / "orvTEMP") << "in the way";
  orcussch_options options = Options();
  options.make_temporary_file = 1;
  ASSERT_EQ(orcussch_create(&options, &handle), ORCUSSCH_OK);
  orcussch_set_number(handle, "UserID", 1);
  EXPECT_EQ(orcussch_set_number(handle, "CompanyID", 1), ORCUSSCH_NO_FOLDER);
  EXPECT_THAT(orcussch_last_error(), HasSubstr("orvTEMP can't be made"));
}

}  // namespace
