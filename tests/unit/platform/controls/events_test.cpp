#include "platform/values/calendar.h"
#include "platform/values/error.h"
#include "support/every_control.h"

// Which act fires what, and which assignment in code.
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Events = ScreenTest;

TEST_F(Events, TextEdits) {
  auto& box = screen->txtText;
  box.UserType("ab");
  EXPECT_THAT(screen->Seen(), ElementsAre("KeyPress", "Change txtText", "KeyPress", "Change txtText"));
  box.Text("ab");
  EXPECT_THAT(screen->Seen(), IsEmpty()) << "the same text changes nothing";
  box.Text("cd");
  EXPECT_THAT(screen->Seen(), ElementsAre("Change txtText"));
  box.Text("abcdefg");
  EXPECT_EQ(box.Text(), "abcde") << "assignments are cut too";
  screen->Seen();
  box.UserType("f");
  EXPECT_THAT(screen->Seen(), ElementsAre("KeyPress")) << "there is no room";
  box.Select(0, 5);
  box.UserPaste("12345678");
  EXPECT_EQ(box.Text(), "12345");
  EXPECT_THAT(screen->Seen(), ElementsAre("Change txtText"));
}

TEST_F(Events, WhatTheMaskRefusesIsPassedOver) {
  auto& box = screen->txtPhone;
  box.UserType("5a5");
  EXPECT_EQ(box.Text(), "55");
  EXPECT_THAT(screen->Seen(), ElementsAre("KeyPress", "Change txtPhone", "KeyPress", "KeyPress", "Change txtPhone"));
  box.UserPaste("x5-12-34y5");
  EXPECT_EQ(box.Text(), "5551234");
  EXPECT_EQ(box.DisplayText(), "555-1234");
  box.Text("anything");
  EXPECT_EQ(box.Text(), "anything") << "code assigns past the mask";
}

TEST_F(Events, AKeyThatIsDroppedChangesNothing) {
  screen->txtText.KeyPress = [](int& key) { key = 0; };
  screen->txtText.UserType("a");
  EXPECT_EQ(screen->txtText.Text(), "");
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(Events, NumberEdits) {
  auto& number = screen->txtNumber;
  number.Value(2.5);
  EXPECT_THAT(screen->Seen(), ElementsAre("Change txtNumber"));
  EXPECT_EQ(number.Text(), "2.5");
  number.Value(2.5);
  EXPECT_THAT(screen->Seen(), IsEmpty());
  number.Text("");
  EXPECT_EQ(number.Value(), 0);
  EXPECT_THAT(screen->Seen(), ElementsAre("Change txtNumber"));
  number.UserType("1x2");
  EXPECT_EQ(number.Value(), 12);

  auto& money = screen->txtMoney;
  money.Text("$1,000.25");
  EXPECT_EQ(money.Value(), (platform::Currency{10'002'500}));
  money.Text("");
  EXPECT_EQ(money.Value(), platform::Currency{});
}

TEST_F(Events, DateEdits) {
  auto& date = screen->txtDate;
  date.UserType("2/3/2025");
  EXPECT_EQ(date.Text(), "2/3/2025") << "the slashes are a part of the text";
  ASSERT_TRUE(date.Value());
  EXPECT_EQ(date.Value()->serial, 45691);
  app->System().SetToday(platform::DateSerial(2031, 6, 15));
  date.Text("7/4");
  EXPECT_EQ(date.Value(), platform::DateSerial(2031, 7, 4)) << "of the program's year";
  date.Value("7/5");
  EXPECT_EQ(date.Text(), "7/5/2031");
  date.Text("");
  EXPECT_FALSE(date.Value());
  try {
    date.Value(platform::Null);
    FAIL();
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 94);
  }
}

TEST_F(Events, CheckBoxes) {
  EXPECT_EQ(screen->chkOn.Value(), 0) << "a fresh one is off";
  screen->chkOn.UserClick();
  screen->chkOn.UserClick();
  EXPECT_THAT(screen->Seen(), ElementsAre("Click chkOn", "Click chkOn"));
  screen->chkOn.Value(0);
  EXPECT_THAT(screen->Seen(), IsEmpty());
  screen->chkOn.Value(1);
  EXPECT_THAT(screen->Seen(), ElementsAre("Click chkOn"));
}

TEST_F(Events, Options) {
  EXPECT_TRUE(screen->optWay[1].Value()) << "the design's choice";
  screen->optWay[0].UserClick();
  EXPECT_THAT(screen->Seen(), ElementsAre("Click optWay(0)")) << "its sibling turns off in silence";
  EXPECT_FALSE(screen->optWay[1].Value());
  screen->optWay[0].UserClick();
  screen->optWay[0].Value(true);
  EXPECT_THAT(screen->Seen(), IsEmpty()) << "on already";
  screen->optWay[2].Value(true);
  EXPECT_THAT(screen->Seen(), ElementsAre("Click optWay(2)"));
  screen->optWay[2].Value(false);
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(Events, CommandsAndTheirFocus) {
  screen->txtText.SetFocus();
  screen->Seen();
  screen->Toolbar1.Button("tb_Go").UserClick();
  screen->miGo.UserClick();
  EXPECT_THAT(screen->Seen(), ElementsAre("Click tb_Go", "Click miGo")) << "keys and items take no focus";
  screen->cmdGo.UserClick();
  EXPECT_THAT(screen->Seen(), ElementsAre("LostFocus txtText", "GotFocus cmdGo", "Click cmdGo"));
}

TEST_F(Events, CombosHaveTwoParts) {
  auto& combo = screen->cboColor;
  combo.UserPick(combo.Rows()[1]);
  EXPECT_EQ(combo.Text(), "Green");
  EXPECT_THAT(screen->Seen(), ElementsAre("Change cboColor")) << "both parts at once";
  combo.UserPick(combo.Rows()[1]);
  combo.BoundValue("G");
  combo.Text("Green");
  EXPECT_THAT(screen->Seen(), IsEmpty());
  combo.BoundValue("R");
  EXPECT_EQ(combo.Text(), "Green") << "a part of its own";
  combo.Text("Red");
  EXPECT_THAT(screen->Seen(), ElementsAre("Change cboColor", "Change cboColor"));
  combo.UserType("gREEN");
  EXPECT_EQ(combo.BoundValue(), platform::Value("G"));
  combo.UserType("Blue");
  EXPECT_EQ(combo.BoundValue(), platform::Value(""));
  screen->Seen();
  combo.Fill({});
  combo.SourceRefreshed();
  EXPECT_EQ(combo.Text(), "Blue") << "a list that is loaded anew leaves both";
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(Events, Tabs) {
  auto& tabs = screen->tabs;
  EXPECT_TRUE(tabs.UserClick(1));
  EXPECT_THAT(screen->Seen(), ElementsAre("BeforeTabClick 1", "Click tabs from 0"));
  tabs.Tab(1);
  EXPECT_THAT(screen->Seen(), IsEmpty());
  tabs.TabEnabled(2, false);
  EXPECT_FALSE(tabs.UserClick(2));
  EXPECT_THAT(screen->Seen(), IsEmpty()) << "a closed tab asks nothing";
  tabs.Tab(2);
  EXPECT_EQ(tabs.Tab(), 2) << "code may land on a closed one";
  EXPECT_THAT(screen->Seen(), ElementsAre("Click tabs from 1"));
  tabs.Page(1);
  tabs.TabCaption(0, "x");
  tabs.Tag("x");
  tabs.Enabled(false);
  tabs.Visible(false);
  EXPECT_THAT(screen->Seen(), IsEmpty());

  tabs.BeforeTabClick = [](int, bool& cancel) { cancel = true; };
  EXPECT_FALSE(tabs.UserClick(0));
  EXPECT_EQ(tabs.Tab(), 2);
  EXPECT_THAT(screen->Seen(), IsEmpty());
}

TEST_F(Events, ScrollBarsListsAndSpins) {
  auto& bar = screen->scrValue;
  bar.UserSlide(40);
  bar.Value(40);
  EXPECT_THAT(screen->Seen(), ElementsAre("Change scrValue"));
  bar.Max(60);
  EXPECT_THAT(screen->Seen(), IsEmpty());
  bar.Max(30);
  EXPECT_EQ(bar.Value(), 30);
  EXPECT_THAT(screen->Seen(), ElementsAre("Change scrValue"));
  screen->lstLines.UserSelect(1);
  screen->spnValue.UserSpin(true);
  screen->spnValue.UserSpin(false);
  EXPECT_THAT(screen->Seen(), ElementsAre("Click lstLines", "SpinUp", "SpinDown"));
}

TEST_F(Events, AnErrorThatLeavesAToolbarsHandlerLeavesTheToolbarOpen) {
  screen->Toolbar1.ButtonClick = [this](const std::string&) {
    screen->Toolbar1.Enabled(false);
    app->MousePointer(platform::pointer::Hourglass);
    throw platform::Error(3021, "No current record.");
  };
  screen->Toolbar1.Button("tb_Go").UserClick();
  EXPECT_TRUE(screen->Toolbar1.Enabled());
  EXPECT_EQ(app->MousePointer(), platform::pointer::Default);
  EXPECT_THAT(Boxes(), ElementsAre("No current record."));
}

}  // namespace
