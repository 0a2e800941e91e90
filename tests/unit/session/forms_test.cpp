#include "platform/host/screen.h"
#include "support/session_test.h"

namespace orcussch {
namespace {

using testing::ElementsAre;

class SmallForm final : public platform::Screen {
 public:
  SmallForm(platform::Application& application, std::string name) : Screen(application, std::move(name), "") {}
  void Form_Unload() override {
    ++unloads;
    if (onUnload) onUnload();
  }
  std::function<void()> onUnload;
  int unloads = 0;
};

class FormsTest : public SessionTest {
 protected:
  void LoadAll() {
    for (SmallForm* form : {&first, &second, &third}) app->Load(*form);
    ASSERT_EQ(app->FormCount(), 3);
  }
  SmallForm first{*app, "frmFirst"};
  SmallForm second{*app, "frmSecond"};
  SmallForm third{*app, "frmThird"};
};

TEST_F(FormsTest, WithoutANameAllGoInTheOrderOfTheirLoading) {
  LoadAll();
  EXPECT_TRUE(SafeAppUnloadAllForms());
  EXPECT_EQ(app->FormCount(), 0);
  EXPECT_THAT(events.all, ElementsAre("unloaded frmFirst", "unloaded frmSecond", "unloaded frmThird"));
  for (const SmallForm* form : {&first, &second, &third}) EXPECT_EQ(form->unloads, 1);
}

TEST_F(FormsTest, WithoutAnyFormThereIsNothingToDo) {
  EXPECT_TRUE(SafeAppUnloadAllForms());
  EXPECT_TRUE(SafeAppUnloadAllForms("frmFirst"));
  EXPECT_TRUE(events.all.empty());
  EXPECT_GT(frontEnd->yields, 0);
}

TEST_F(FormsTest, OneFormIsUnloadedToo) {
  app->Load(second);
  EXPECT_TRUE(SafeAppUnloadAllForms());
  EXPECT_EQ(app->FormCount(), 0);
}

TEST_F(FormsTest, TheNamedFormIsPassedOver) {
  LoadAll();
  EXPECT_TRUE(SafeAppUnloadAllForms("frmFirst"));
  EXPECT_TRUE(first.Loaded());
  EXPECT_THAT(events.all, ElementsAre("unloaded frmSecond", "unloaded frmThird"));
}

TEST_F(FormsTest, WhereverItStandsInTheOrder) {
  LoadAll();
  EXPECT_TRUE(SafeAppUnloadAllForms("frmThird"));
  EXPECT_TRUE(third.Loaded());
  EXPECT_THAT(events.all, ElementsAre("unloaded frmFirst", "unloaded frmSecond"));
  events.all.clear();
  app->Load(first);
  app->Load(second);
  EXPECT_TRUE(SafeAppUnloadAllForms("frmFirst"));
  EXPECT_TRUE(first.Loaded());
  EXPECT_THAT(events.all, ElementsAre("unloaded frmThird", "unloaded frmSecond"));
}

TEST_F(FormsTest, NamesAreTrimmedAndCaseDoesNotCount) {
  LoadAll();
  EXPECT_TRUE(SafeAppUnloadAllForms("  FRMsecond "));
  EXPECT_EQ(app->FormCount(), 1);
  EXPECT_TRUE(second.Loaded());
}

TEST_F(FormsTest, ANameThatNoFormBearsLeavesTheLastOne) {
  LoadAll();
  EXPECT_TRUE(SafeAppUnloadAllForms("frmOther"));
  EXPECT_THAT(events.all, ElementsAre("unloaded frmFirst", "unloaded frmSecond"));
  EXPECT_TRUE(third.Loaded());
}

TEST_F(FormsTest, AFormThatUnloadsTheOthersItself) {
  LoadAll();
  first.onUnload = [this] {
    app->Unload(second);
    app->Unload(third);
  };
  EXPECT_TRUE(SafeAppUnloadAllForms());
  EXPECT_EQ(app->FormCount(), 0);
  EXPECT_EQ(second.unloads, 1);
}

TEST_F(FormsTest, AFormThatUnloadsAllFormsWhileItIsUnloaded) {
  LoadAll();
  // What the main screen does when the session ends while it is up.
  first.onUnload = [] { SafeAppUnloadAllForms("frmFirst"); };
  EXPECT_TRUE(SafeAppUnloadAllForms());
  EXPECT_EQ(app->FormCount(), 0);
  for (const SmallForm* form : {&first, &second, &third}) EXPECT_EQ(form->unloads, 1);
}

TEST_F(FormsTest, AFormWhoseUnloadFailsGoesAllTheSame) {
  LoadAll();
  second.onUnload = [] { throw platform::Error(3021, "No current record."); };
  EXPECT_TRUE(SafeAppUnloadAllForms());
  EXPECT_EQ(app->FormCount(), 0);
  ASSERT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(frontEnd->boxes[0].text, "No current record.");
}

TEST_F(FormsTest, FailuresAreReportedAndTheResultIsFalse) {
  LoadAll();
  second.onUnload = [] { throw platform::Error(3021, "No current record."); };
  // The box of the unload's own failure fails: that error reaches the procedure.
  bool failed = false;
  frontEnd->onBox = [&failed] {
    if (!std::exchange(failed, true)) throw platform::Error(5, "Invalid procedure call or argument");
  };
  EXPECT_FALSE(SafeAppUnloadAllForms());
  EXPECT_THAT(Reports(), ElementsAre("SafeAppUnloadAllForms"));
  EXPECT_FALSE(log->records[0].terminate);
}

TEST_F(FormsTest, IsFormLoaded) {
  EXPECT_FALSE(IsFormLoaded(&first));
  app->Load(first);
  app->Load(third);
  EXPECT_TRUE(IsFormLoaded(&first));
  EXPECT_FALSE(IsFormLoaded(&second));
  EXPECT_TRUE(IsFormLoaded(&third));
  EXPECT_FALSE(IsFormLoaded(nullptr));
  app->Unload(first);
  EXPECT_FALSE(IsFormLoaded(&first));
  // The same object counts, not the same name.
  SmallForm namesake(*app, "frmThird");
  EXPECT_FALSE(IsFormLoaded(&namesake));
}

TEST_F(FormsTest, ReleasingTheSessionUnloadsThem) {
  {
    CustSearch host(*app);
    LoadAll();
  }
  EXPECT_EQ(app->FormCount(), 0);
  EXPECT_TRUE(log->records.empty());
}

}  // namespace
}  // namespace orcussch
