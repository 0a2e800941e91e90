#include <new>
#include <stdexcept>

#include "unit/apps/library/library_fixture.h"

namespace {

using testing::HasSubstr;

struct OfTheHost {};

/// What a place of the front end may raise, and the text that the host gets. Memory that lacks inside of an act of the screen is
/// told to the user there, and the call goes on.
struct Raised {
  const char* name;
  void (*raise)();
  const char* text;
};

const Raised kRaised[] = {
    {"memory", [] { throw std::bad_alloc(); }, "out of memory"},
    {"standard", [] { throw std::logic_error("a broken thing"); }, "a broken thing"},
    {"host", [] { throw OfTheHost(); }, "unknown failure"},
};

class ExceptionsTest : public LibraryTest, public testing::WithParamInterface<Raised> {
 protected:
  void Open() {
    MakeCompany();
    ASSERT_EQ(Create(), ORCUSSCH_OK) << orcussch_last_error();
    ASSERT_EQ(orcussch_set_number(handle, "UserID", 1), ORCUSSCH_OK);
    ASSERT_EQ(orcussch_set_number(handle, "CompanyID", 1), ORCUSSCH_OK);
  }
  /// Raises at the n-th time that the place is reached, once.
  void RaiseAt(const std::string& place, int nth = 1) {
    raised = false;
    at = [this, place, nth, count = 0](const std::string& now) mutable {
      if (raised || now != place || ++count != nth) return;
      raised = true;
      GetParam().raise();
    };
  }
  /// A whole round works: the screen comes up, once, and goes.
  void ExpectUsable() {
    int loaded = 0;
    int modal = 0;
    int unloaded = 0;
    at = [&](const std::string& place) {
      loaded += place == "loaded" ? 1 : 0;
      modal += place == "modal" ? 1 : 0;
      unloaded += place == "unloaded" ? 1 : 0;
    };
    EXPECT_EQ(orcussch_set_number(handle, "CompanyID", 1), ORCUSSCH_OK) << orcussch_last_error();
    EXPECT_EQ(orcussch_show_user(handle), ORCUSSCH_OK) << orcussch_last_error();
    EXPECT_STREQ(orcussch_last_error(), "");
    EXPECT_EQ(loaded, 1);
    EXPECT_EQ(modal, 1);
    EXPECT_EQ(unloaded, 1);
    at = nullptr;
    EXPECT_EQ(Number("UserID"), 1);
  }
  bool raised = false;
};

TEST_P(ExceptionsTest, InACreation) {
  creating = GetParam().raise;
  EXPECT_EQ(Create(), ORCUSSCH_FAILED);
  EXPECT_STREQ(orcussch_last_error(), GetParam().text);
  EXPECT_EQ(handle, nullptr);
  creating = nullptr;
  Open();
  ExpectUsable();
}

TEST_P(ExceptionsTest, InABoxOfALet) {
  Open();
  RaiseAt("box");
  EXPECT_EQ(orcussch_set_number(handle, "CompanyID", 99), ORCUSSCH_FAILED);
  EXPECT_TRUE(raised);
  EXPECT_STREQ(orcussch_last_error(), GetParam().text);
  ExpectUsable();
}

TEST_P(ExceptionsTest, WhereverAScreenIsShown) {
  Open();
  for (const char* place : {"loaded", "shown", "modal", "hidden", "unloaded"}) {
    SCOPED_TRACE(place);
    RaiseAt(place);
    EXPECT_EQ(orcussch_show_user(handle), ORCUSSCH_FAILED);
    EXPECT_TRUE(raised);
    EXPECT_STREQ(orcussch_last_error(), GetParam().text);
    ExpectUsable();
  }
}

TEST_P(ExceptionsTest, AtAnyYieldOfAScreen) {
  Open();
  int places = 0;
  for (const char* place : {"yield", "pointer"}) {
    for (int nth = 1;; ++nth) {
      SCOPED_TRACE(place + std::to_string(nth));
      RaiseAt(place, nth);
      const orcussch_result result = orcussch_show_user(handle);
      if (!raised) {
        EXPECT_EQ(result, ORCUSSCH_OK);
        break;
      }
      ++places;
      // Lack of memory inside of an act ends there, in a box.
      const bool inAnAct = result == ORCUSSCH_OK && std::string(GetParam().name) == "memory";
      if (!inAnAct) {
        EXPECT_EQ(result, ORCUSSCH_FAILED);
        EXPECT_STREQ(orcussch_last_error(), GetParam().text);
      }
      ExpectUsable();
    }
  }
  EXPECT_GT(places, 5);
}

TEST_P(ExceptionsTest, InARelease) {
  Open();
  RaiseAt("yield");
  EXPECT_EQ(orcussch_release(handle), ORCUSSCH_OK) << "what can be closed is closed, and the handle is gone";
  EXPECT_TRUE(raised);
  EXPECT_EQ(orcussch_release(handle), ORCUSSCH_INVALID_HANDLE);
  at = nullptr;
  ASSERT_EQ(Create(), ORCUSSCH_OK);
  orcussch_set_number(handle, "UserID", 1);
  ExpectUsable();
}

INSTANTIATE_TEST_SUITE_P(All, ExceptionsTest, testing::ValuesIn(kRaised), [](const auto& test) { return std::string(test.param.name); });

}  // namespace
