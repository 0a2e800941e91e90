#include "support/controls.h"
#include "support/main_screen_test.h"

// What the desk adds where the user acts, and what it leaves alone.
namespace {

using orcussch::frmCustMain;
namespace tab = orcussch::tab;

class CardDeskTest : public MainScreenTest {
 protected:
  CardDeskTest() {
    AddRows(CustomerFile(), "Customers", {"LastName", "FirstName", "City", "Terms"},
            {{"Hale", "Rose", "Duluth", std::int16_t{2}}, {"Reed", "Tom", "Cloquet", std::int16_t{2}}});
  }
  std::string LastBox() const { return frontEnd->boxes.empty() ? "" : frontEnd->boxes.back().text; }
};

TEST_F(CardDeskTest, ACardIsUnsavedWhileItDiffersFromWhatFilledIt) {
  frontEnd->answer = platform::box::Yes;
  Serve([](frmCustMain& screen) {
    EXPECT_FALSE(screen.HasUnsavedEntries());
    screen.miEditRec.UserClick();
    EXPECT_FALSE(screen.HasUnsavedEntries());
    EditOf(screen, "txtCity").Text("Proctor");
    EXPECT_TRUE(screen.HasUnsavedEntries());
    EditOf(screen, "txtCity").Text("Duluth");
    EXPECT_FALSE(screen.HasUnsavedEntries());
    ButtonOf(screen, "cmdPlusMinus").UserClick();
    EXPECT_TRUE(screen.HasUnsavedEntries());
    screen.miCancelRec.UserClick();
    EXPECT_FALSE(screen.HasUnsavedEntries());

    screen.Toolbar1.Button("tb_AddRec").UserClick();
    EXPECT_FALSE(screen.HasUnsavedEntries());
    OptionOf(screen, "optStatus", 2).UserClick();
    EXPECT_TRUE(screen.HasUnsavedEntries());
    screen.miCancelRec.UserClick();
  });
}

/// Only the user is refused.
TEST_F(CardDeskTest, CodeIsNeverRefused) {
  Serve([this](frmCustMain& screen) {
    screen.RecordSave();
    EXPECT_EQ(LastBox(), "You must enter the customer's last name!");
    screen.miEditRec.UserClick();
    const int opened = screen.data[0].RefreshCount();
    screen.RefreshRecords();
    EXPECT_EQ(screen.data[0].RefreshCount(), opened + 1);
    screen.miRefresh.Click.Fire();
    EXPECT_EQ(screen.data[0].RefreshCount(), opened + 2);
    screen.miRefresh.UserClick();
    EXPECT_EQ(screen.data[0].RefreshCount(), opened + 2);
  });
}

TEST_F(CardDeskTest, TheModeHasItsWordsOnEachTab) {
  frontEnd->answer = platform::box::Yes;
  Serve([](frmCustMain& screen) {
    EXPECT_EQ(screen.CardMode(), "");
    const std::pair<int, const char*> words[] = {{tab::Customers, "New customer"},          {tab::Phones, "New phone"},
                                                 {tab::Addresses, "New address"},           {tab::CreditCards, "New credit card"},
                                                 {tab::CustomerTypes, "New customer type"}, {tab::KeyWords, "New key word"}};
    for (const auto& [number, text] : words) {
      screen.SSIndexTab1.UserClick(number);
      screen.miAddRec.UserClick();
      EXPECT_EQ(screen.CardMode(), text);
      EXPECT_EQ(screen.AddsOwner(), number == tab::Customers);
      screen.miCancelRec.UserClick();
      EXPECT_EQ(screen.CardMode(), "");
    }
    screen.SSIndexTab1.UserClick(tab::Customers);
    screen.miEditRec.UserClick();
    EXPECT_EQ(screen.CardMode(), "Editing");
    EXPECT_FALSE(screen.AddsOwner());
  });
}

/// A refused add leaves the toolbar serving nobody; its keys keep their states.
TEST_F(CardDeskTest, TheToolbarTellsThatItServesNobody) {
  Serve([this](frmCustMain& screen) {
    EXPECT_TRUE(screen.Toolbar1.IsReady());
    screen.SSIndexTab1.UserClick(tab::LaborRates);
    screen.Toolbar1.Button("tb_AddRec").UserClick();
    EXPECT_TRUE(LastBox().starts_with("The current customer is not flagged")) << LastBox();
    EXPECT_FALSE(screen.Toolbar1.IsReady());
    EXPECT_TRUE(screen.Toolbar1.Enabled());
    EXPECT_TRUE(screen.Toolbar1.Button("tb_AddRec").Enabled());
  });
}

}  // namespace
