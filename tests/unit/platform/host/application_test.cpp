#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen_ref.h"
#include "support/hosted_test.h"

namespace orcussch {
namespace {

using testing::ElementsAre;

/// A screen that tells what happens to it.
class ToldForm final : public platform::Form {
 public:
  ToldForm(platform::Application& application, std::string name, Events& events)
      : Form(application, std::move(name), ""), events_(events) {}
  ~ToldForm() override { events_.Add("gone " + Name()); }
  void Form_Load() override { Tell("load", onLoad); }
  void Form_Activate() override { Tell("activate", onActivate); }
  void Form_Unload() override { Tell("unload", onUnload); }
  std::function<void()> onLoad, onActivate, onUnload;

  platform::TextBox txtName{*this, "txtName"};
  platform::Toolbar Toolbar1{*this, "Toolbar1", {{"tb_Find", "Find"}}};

 private:
  void Tell(const std::string& what, const std::function<void()>& then) {
    events_.Add(what + " " + Name());
    if (then) then();
  }
  Events& events_;
};

class ApplicationTest : public HostedTest {
 protected:
  std::vector<std::string> Told() { return std::exchange(events.all, {}); }
  /// What the user does on each screen as it is up; a screen that stays up is closed.
  void Serve(std::map<std::string, std::function<void()>> acts) {
    frontEnd->serve = [acts = std::move(acts)](platform::Form& form) {
      if (const auto act = acts.find(form.Name()); act != acts.end()) form.Act(act->second);
    };
  }
  ToldForm first{*app, "frmFirst", events};
  ToldForm second{*app, "frmSecond", events};
  ToldForm third{*app, "frmThird", events};
};

TEST_F(ApplicationTest, AScreenLivesInOneOrder) {
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "unload frmFirst", "unloaded frmFirst"));
  EXPECT_FALSE(first.Loaded());
  EXPECT_FALSE(first.Visible());
  EXPECT_EQ(app->FormCount(), 0);
}

TEST_F(ApplicationTest, LoadingComesOnce) {
  app->Load(first);
  app->Load(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst"));
  EXPECT_FALSE(first.Visible());
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("activate frmFirst", "unload frmFirst", "unloaded frmFirst"));
  app->Unload(first);
  EXPECT_TRUE(Told().empty()) << "a screen that is not loaded is left alone";
}

TEST_F(ApplicationTest, TheScreenBelowBecomesActiveAgainOnce) {
  Serve({{"frmFirst", [this] { app->Show(second); }}});
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "load frmSecond", "activate frmSecond", "unload frmSecond",
                                  "unloaded frmSecond", "activate frmFirst", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, AScreenOnItsWayOutStartsNothing) {
  first.Toolbar1.ButtonClick = [this](const std::string& key) { events.Add("ran " + key); };
  first.onUnload = [this] { first.Toolbar1.Button("tb_Find").UserClick(); };
  Serve({{"frmFirst", [this] { first.Toolbar1.Button("tb_Find").UserClick(); }}});
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "ran tb_Find", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, MessageBoxesActivateNothing) {
  Serve({{"frmFirst", [this] { app->MsgBox("text", 0, "title"); }}});
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "box", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, HidingKeepsTheScreen) {
  Serve({{"frmFirst", [this] { app->Hide(first); }}});
  app->Show(first);
  EXPECT_TRUE(first.Loaded());
  EXPECT_FALSE(first.Visible());
  EXPECT_EQ(app->ActiveForm(), nullptr);
  Told();
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("activate frmFirst"));
  EXPECT_EQ(app->FormCount(), 1);
}

TEST_F(ApplicationTest, AScreenThatIsStillLoadingIsModalToThoseBelow) {
  second.onLoad = [this] { app->Show(third); };
  Serve({{"frmFirst", [this] { app->Show(second); }}});
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "load frmSecond", "load frmThird", "activate frmThird",
                                  "unload frmThird", "unloaded frmThird", "activate frmSecond", "unload frmSecond", "unloaded frmSecond",
                                  "activate frmFirst", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, AHiddenScreenIsPassedOverOnce) {
  Serve({{"frmFirst", [this] { app->Show(second); }}, {"frmSecond", [this] {
                                                         app->Hide(second);
                                                         app->Show(third);
                                                       }}});
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "load frmSecond", "activate frmSecond", "load frmThird",
                                  "activate frmThird", "unload frmThird", "unloaded frmThird", "activate frmFirst", "unload frmFirst",
                                  "unloaded frmFirst"));
}

TEST_F(ApplicationTest, ActiveIsTheTopMostVisibleScreen) {
  Serve({{"frmFirst",
          [this] {
            EXPECT_EQ(app->ActiveForm(), &first);
            EXPECT_TRUE(app->TakesInput(first));
            app->Load(third);
            EXPECT_EQ(app->ActiveForm(), &first) << "a screen that is loaded alone is not up";
            app->Show(second);
            EXPECT_EQ(app->ActiveForm(), &first);
          }},
         {"frmSecond", [this] {
            EXPECT_EQ(app->ActiveForm(), &second);
            EXPECT_FALSE(app->TakesInput(first));
          }}});
  app->Show(first);
  EXPECT_EQ(app->ActiveForm(), nullptr);
  EXPECT_EQ(&app->FormAt(0), &third);
  EXPECT_THROW(app->FormAt(1), platform::Error);
}

TEST_F(ApplicationTest, ClosingByTheFrameWaitsForTheHandlerThatRuns) {
  Serve({{"frmFirst", [this] {
            first.UserClose();
            EXPECT_TRUE(first.Loaded());
            events.Add("handler ends");
          }}});
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "handler ends", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, UnloadingTwiceAtOnceIsOneUnload) {
  first.onUnload = [this] { app->Unload(first); };
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "activate frmFirst", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, ATouchOfAScreenThatUnloadsDoesNotLoadItAgain) {
  first.onUnload = [this] { app->Load(first); };
  app->Load(first);
  app->Unload(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "unload frmFirst", "unloaded frmFirst"));
}

TEST_F(ApplicationTest, AnErrorThatNoHandlerTookShowsOneBoxAndTheScreenStaysUsable) {
  std::vector<int> unhandled;
  app->OnUnhandled = [&](const platform::Error& error) { unhandled.push_back(error.Number()); };
  Serve({{"frmFirst", [this] {
            first.Act([this] {
              first.Toolbar1.Enabled(false);
              app->MousePointer(platform::pointer::Hourglass);
              throw platform::Error(3021, "No current record.");
            });
            EXPECT_TRUE(first.Toolbar1.Enabled());
            EXPECT_EQ(app->MousePointer(), platform::pointer::Default);
            EXPECT_TRUE(first.Visible());
          }}});
  app->Show(first);
  EXPECT_THAT(unhandled, ElementsAre(3021));
  ASSERT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(frontEnd->boxes[0].text, "No current record.");
  EXPECT_EQ(frontEnd->boxes[0].title, "The host");
  EXPECT_TRUE(log->records.empty());
}

TEST_F(ApplicationTest, AToolbarThatWasOffBeforeTheActStaysOff) {
  first.Toolbar1.Enabled(false);
  app->Load(first);
  first.Act([] { throw platform::Error(5, "x"); });
  EXPECT_FALSE(first.Toolbar1.Enabled());
}

TEST_F(ApplicationTest, ErrorsOfLoadAndUnloadEndNothing) {
  first.onLoad = [] { throw platform::Error(5, "in load"); };
  first.onUnload = [] { throw platform::Error(6, "in unload"); };
  app->Show(first);
  EXPECT_THAT(Told(), ElementsAre("load frmFirst", "box", "activate frmFirst", "unload frmFirst", "box", "unloaded frmFirst"));
  EXPECT_EQ(app->FormCount(), 0);
}

TEST_F(ApplicationTest, AReleasedScreenLivesUntilItsHandlersHaveEnded) {
  auto owned = std::make_unique<ToldForm>(*app, "frmOwned", events);
  ToldForm& screen = *owned;
  screen.onUnload = [&] { app->Bury(std::move(owned)); };
  Serve({{"frmOwned", [&] {
            app->Unload(screen);
            app->DoEvents();
            events.Add("handler ends");
          }}});
  app->Show(screen);
  EXPECT_THAT(Told(),
              ElementsAre("load frmOwned", "activate frmOwned", "unload frmOwned", "unloaded frmOwned", "handler ends", "gone frmOwned"));
}

}  // namespace
}  // namespace orcussch
