#include "setup/frmMapCode.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "setup/main_lists.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmMapCode> frmMapCode{App};
}  // namespace screens

namespace {

constexpr int kCodeLength = 20;
constexpr int kLocationLength = 24;

CodeTableDesign Design() {
  return {.screen = "frmMapCode",
          .caption = "Map Codes",
          .list = {.data = "DataLocations",
                   .grid = "grdLocations",
                   .options = "optOrder",
                   .field = "MapCode",
                   .prompt = "Map Code",
                   .caption = "Map Codes",
                   .columns = {column::Limited(column::Plain("Map Code", "MapCode"), kCodeLength),
                               column::Limited(column::Plain("Location", "Location"), kLocationLength)}},
          .select = "Select * FROM Locations",
          .card = "fraLocations",
          .cardCaption = "",
          // The log is searched by the names that the screen had first, the doubled letter with them.
          .literals = {.Add = "frmLocationsSetup.RecordAdd",
                       .Edit = "frmLocationsSetup.RecordEdit",
                       .Save = "frmLocationsSetup.RecordSave",
                       .Cancel = "frmLocationsSetup.RecordCancel",
                       .Delete = "frmLocationsSetup.RecordDelete"},
          .loadLiteral = "frmLocationsSetup.Form_Load",
          .openLiteral = "frmLocationsSetup.SQLLocationss",
          .texts = {.name = "Map Code?",
                    .deleteTitle = "Delete Map Code",
                    .deleting = "Deleting record, please wait!",
                    .saving = "Saving map code record, please wait!"}};
}

}  // namespace

frmMapCode::frmMapCode(platform::Application& application)
    : CodeTableScreen(application, Design(), {{"tb_Select", "Select Current Record"}}),
      txtMapCode(*this, "txtMapCode", kCodeLength),
      txtLocation(*this, "txtLocation", kLocationLength) {
  PutOnCard({&txtMapCode, &txtLocation});
  OrdersByHeading(*this);
  // Where a code is looked up, Enter and a double click choose it.
  list.grid.RowCommands({{"Select", &tb("tb_Select"), true}, {"Edit", &tb("tb_EditRec"), true}, {"Delete", &tb("tb_DeleteRec")}});
}

void frmMapCode::OpenTables() { rsLocationTable = dbCustomer->OpenRecordset("Locations", platform::RecordsetType::Table); }

/// Once, at the first opening: a screen that hides after a choice keeps the key until it is closed.
void frmMapCode::Loading() {
  const frmCustMain* main = screens::frmCustMain.peek();
  const bool chooses = main && main->ChoosesMapCode();
  tb("tb_Select").Visible(chooses);
  list.grid.ChoosesRows(chooses);
}

void frmMapCode::TestRecordcount() {
  CodeTableScreen::TestRecordcount();
  tb("tb_Select").Enabled(list.HasRows());
}

void frmMapCode::RunOwnKey(const std::string& Key) {
  if (Key == "tb_Select") Choose();
}

/// The row under the list's position goes back, also while another one is being typed.
void frmMapCode::Choose() {
  frmCustMain* main = screens::frmCustMain.peek();
  if (main && list.data.OnRecord()) main->ShowMapCode(TextOf(Rows(), "MapCode"), TextOf(Rows(), "Location"));
  App().Hide(*this);
}

bool frmMapCode::Add() {
  txtMapCode.Text("");
  txtLocation.Text("");
  return true;
}

bool frmMapCode::Edit() {
  txtMapCode.Text(TextUnguarded(Rows(), "MapCode"));
  txtLocation.Text(TextUnguarded(Rows(), "Location"));
  return true;
}

bool frmMapCode::Complete() {
  return IsEntered(txtMapCode, "You must enter a Map Code!") && IsEntered(txtLocation, "You must enter a location!");
}

bool frmMapCode::IsEntered(platform::TextBox& entry, const char* message) const {
  if (!entry.Text().empty()) return true;
  Tell(message, "Save Record");
  entry.SetFocus();
  return false;
}

std::optional<std::string> frmMapCode::Write(bool adding) {
  if (adding) {
    rsLocationTable->AddNew();
  } else if (!EditRow(rsLocationTable, "PrimaryKey", Rows()->Field("RecordID"))) {
    Tell("The edited map code can no longer be found.  It may have been deleted by another user!", "Save Record");
    return {};
  }
  rsLocationTable->SetField("MapCode", txtMapCode.Text());
  rsLocationTable->SetField("Location", txtLocation.Text());
  rsLocationTable->Update();
  rsLocationTable->SetBookmark(rsLocationTable->LastModified());
  return "[RecordID]=" + std::to_string(LongOf(rsLocationTable, "RecordID"));
}

/// The customers' own recordset is asked, and keeps the index.
SetupDeletion frmMapCode::Deletion() {
  const std::string code = TextUnguarded(Rows(), "MapCode");
  const std::string position = "[MapCode]>=" + Quoted(code);
  if (HasRow(rsCustomers, "CustomersMapCode", {code}))
    return {true, "One or more customers use map code " + code + ".  A map code can not be deleted if it is used by a customer!", position};
  return {false, "Are you sure you want to delete Map Code '" + code + "' ?", position};
}

void frmMapCode::Form_Unload() {
  CloseTable(rsLocationTable);
  screens::frmMapCode.release();
}

}  // namespace orcussch
