#include "platform/values/convert.h"
#include "support/session_test.h"
#include "unit/records/map_code_screen.h"

// The record operations on a screen of one list and one card.
namespace {

using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class RecordOperationsTest : public SessionTest {
 protected:
  RecordOperationsTest() {
    MakeCompany();
    host = std::make_unique<orcussch::CustSearch>(*app);
    host->UserID(1);
    host->CompanyID(1);
    for (const char* code : {"A", "C"}) {
      orcussch::rsLocations->AddNew();
      orcussch::rsLocations->SetField("MapCode", code);
      orcussch::rsLocations->Update();
    }
    screen = std::make_unique<frmCodes>(*app);
    app->Load(*screen);
  }
  ~RecordOperationsTest() override {
    app->Unload(*screen);
    screen.reset();
    host.reset();
  }

  std::vector<std::string> Codes() const {
    std::vector<std::string> codes;
    const auto rows = orcussch::dbCustomer->OpenRecordset("SELECT MapCode FROM Locations ORDER BY MapCode;");
    for (; !rows->Eof(); rows->MoveNext()) codes.push_back(platform::CStr(rows->Field(0)));
    return codes;
  }
  std::string Current() const { return platform::CStr(screen->DataCodes.Recordset()->Field("MapCode")); }
  void Elsewhere(const std::string& statement) const {
    engine::MakeEngine()->OpenControlDatabase(orcussch::gCustomerPath)->Execute(statement);
  }

  std::unique_ptr<orcussch::CustSearch> host;
  std::unique_ptr<frmCodes> screen;
};

TEST_F(RecordOperationsTest, AnAddIsSavedAndTheListStandsOnIt) {
  screen->kind.txtMapCode.Text("left over");
  screen->RecordAdd();
  EXPECT_EQ(screen->mRecordMode, "A");
  EXPECT_EQ(screen->mCardNumber, 1);
  EXPECT_EQ(screen->kind.txtMapCode.Text(), "");
  EXPECT_THAT(screen->did, ElementsAre("busy", "card keys", "card", "ready"));

  screen->did.clear();
  screen->kind.txtMapCode.Text("B");
  screen->RecordSave();
  EXPECT_THAT(Codes(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(Current(), "B");
  EXPECT_EQ(screen->mCardNumber, 2);
  EXPECT_THAT(screen->did, ElementsAre("busy", "tells <Saving, please wait!>", "leaving card", "list", "list keys", "back in list",
                                       "tells <>", "ready"));
  EXPECT_THAT(Reports(), IsEmpty());
}

TEST_F(RecordOperationsTest, ARefusedSaveKeepsTheCardAndItsEntries) {
  screen->RecordEdit();
  screen->kind.txtMapCode.Text("");
  screen->kind.txtLocation.Text("typed");
  screen->RecordSave();
  ASSERT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(frontEnd->boxes[0].text, "A code is needed!");
  EXPECT_EQ(frontEnd->boxes[0].title, "Save Record");
  EXPECT_EQ(screen->Pages.Page(), 1);
  EXPECT_EQ(screen->Focus(), &screen->kind.txtMapCode);
  EXPECT_EQ(screen->kind.txtLocation.Text(), "typed");
  EXPECT_THAT(Codes(), ElementsAre("A", "C"));
}

TEST_F(RecordOperationsTest, AnEditWritesTheRowOfTheCardWhereverTheListStands) {
  screen->RecordEdit();
  EXPECT_EQ(screen->kind.txtMapCode.Text(), "A");
  screen->kind.txtMapCode.Text("D");
  screen->DataCodes.Recordset()->MoveLast();
  screen->RecordSave();
  EXPECT_THAT(Codes(), ElementsAre("C", "D"));
  EXPECT_EQ(Current(), "D");
}

TEST_F(RecordOperationsTest, AnEditedRowThatIsGoneIsToldByItsNumber) {
  screen->RecordEdit();
  Elsewhere("DELETE * FROM Locations WHERE MapCode='A'");
  screen->RecordSave();
  ASSERT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(frontEnd->boxes[0].text, "Code 1 is gone!");
  EXPECT_EQ(screen->Pages.Page(), 1);
  EXPECT_THAT(Codes(), ElementsAre("C"));
}

TEST_F(RecordOperationsTest, ACardWhoseListMovedInAYieldIsNotOpened) {
  int yield = 0;
  frontEnd->onYield = [&] {
    if (++yield == 2) screen->DataCodes.Recordset()->MoveLast();  // when the keys are set
  };
  screen->RecordEdit();
  frontEnd->onYield = nullptr;
  EXPECT_EQ(screen->Pages.Page(), 0);
  EXPECT_THAT(screen->did, ElementsAre("busy", "card keys", "list", "list keys", "ready"));
}

TEST_F(RecordOperationsTest, ACardOpenedWhileASaveEndsStaysOverItsRow) {
  screen->DataCodes.Recordset()->MoveLast();
  screen->RecordEdit();
  screen->kind.txtMapCode.Text("D");
  int yield = 0;
  frontEnd->onYield = [&] {
    if (++yield == 2) screen->RecordEdit();  // the row is written, the list is still to be opened anew
  };
  screen->RecordSave();
  frontEnd->onYield = nullptr;
  EXPECT_EQ(screen->Pages.Page(), 1);
  EXPECT_EQ(screen->kind.txtMapCode.Text(), "D");
  EXPECT_EQ(Current(), "D");
  EXPECT_THAT(Reports(), IsEmpty());
}

TEST_F(RecordOperationsTest, ACardWhoseRowTheNewListLacksIsLeft) {
  screen->DataCodes.Recordset()->MoveLast();
  screen->RecordEdit();
  screen->kind.txtMapCode.Text("D");
  int yield = 0;
  frontEnd->onYield = [&] {
    if (++yield != 2) return;
    screen->RecordEdit();
    Elsewhere("DELETE * FROM Locations WHERE MapCode='D'");
    screen->did.clear();
  };
  screen->RecordSave();
  frontEnd->onYield = nullptr;
  EXPECT_EQ(screen->Pages.Page(), 0);
  EXPECT_EQ(Current(), "A");
  EXPECT_THAT(screen->did, ElementsAre("list", "list keys", "tells <>", "ready"));
}

TEST_F(RecordOperationsTest, TheRowThatIsBeingDeletedIsNotEdited) {
  frontEnd->answer = platform::box::Yes;
  int yield = 0;
  frontEnd->onYield = [&] {
    if (++yield == 2) screen->RecordEdit();
  };
  screen->RecordDelete();
  frontEnd->onYield = nullptr;
  EXPECT_EQ(screen->Pages.Page(), 0);
  EXPECT_EQ(Current(), "C");
  EXPECT_THAT(Reports(), ElementsAre("codes.Edit"));
}

TEST_F(RecordOperationsTest, ACardThatIsOpenedWhileAnotherIsPreparedStaysUp) {
  screen->kind.preparing = [this] { screen->RecordEdit(); };
  screen->RecordAdd();
  EXPECT_EQ(screen->mCardNumber, 1);
  EXPECT_THAT(screen->did, ElementsAre("busy", "busy", "card keys", "card", "ready", "ready"));
  screen->RecordCancel();
  screen->did.clear();
  const int closed = screen->mCardNumber;
  screen->kind.preparing = [this] { screen->RecordAdd(); };
  screen->RecordEdit();
  EXPECT_EQ(screen->mCardNumber, closed + 1);
  EXPECT_THAT(screen->did, ElementsAre("busy", "busy", "card keys", "card", "ready", "ready"));
}

TEST_F(RecordOperationsTest, ACancelAsks) {
  screen->RecordEdit();
  frontEnd->answer = platform::box::No;
  screen->RecordCancel();
  EXPECT_EQ(screen->Pages.Page(), 1);
  frontEnd->answer = platform::box::Yes;
  screen->did.clear();
  screen->RecordCancel();
  EXPECT_EQ(screen->Pages.Page(), 0);
  EXPECT_THAT(screen->did, ElementsAre("list keys", "list", "counted"));
  EXPECT_EQ(frontEnd->boxes.back().text, "Cancel the code?");
  EXPECT_EQ(frontEnd->boxes.back().style, orcussch::kYesNoQuestion);
}

TEST_F(RecordOperationsTest, ADeletionAsksAndGoesToTheNextRow) {
  frontEnd->answer = platform::box::No;
  screen->RecordDelete();
  EXPECT_THAT(Codes(), ElementsAre("A", "C"));
  frontEnd->answer = platform::box::Yes;
  screen->did.clear();
  screen->RecordDelete();
  EXPECT_THAT(Codes(), ElementsAre("C"));
  EXPECT_EQ(Current(), "C");
  EXPECT_THAT(screen->did, ElementsAre("busy", "tells <Deleting, please wait!>", "counted", "tells <>", "ready"));
}

TEST_F(RecordOperationsTest, ADeletionTakesTheRowThatWasAskedAbout) {
  frontEnd->answer = platform::box::Yes;
  frontEnd->onBox = [this] { screen->DataCodes.Recordset()->MoveLast(); };
  screen->RecordDelete();
  EXPECT_THAT(Codes(), ElementsAre("C"));
}

TEST_F(RecordOperationsTest, WithoutRowsNothingIsEditedOrDeleted) {
  Elsewhere("DELETE * FROM Locations");
  screen->DataCodes.Refresh();
  screen->RecordEdit();
  screen->RecordDelete();
  EXPECT_THAT(screen->did, IsEmpty());
  EXPECT_THAT(frontEnd->boxes, IsEmpty());
}

TEST_F(RecordOperationsTest, AFailureIsReportedUnderTheScreensOwnLiteral) {
  screen->RecordAdd();
  screen->kind.txtMapCode.Text("B");
  orcussch::rsLocations->Close();
  screen->RecordSave();
  EXPECT_THAT(Reports(), ElementsAre("codes.Save"));
}

}  // namespace
