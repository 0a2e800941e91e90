#include "setup/frmPhoneSetup.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "setup/main_lists.h"
#include "setup/next_code.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmPhoneSetup> frmPhoneSetup{App};
}  // namespace screens

namespace {

using platform::Left;

constexpr int kDescriptionLength = 20;
constexpr std::string_view kBuiltIn[] = {"C", "F", "H", "P", "W"};

CodeTableDesign Design() {
  return {.screen = "frmPhoneSetup",
          .caption = "Phone Type Setup",
          .list = {.data = "DataPhoneTypes",
                   .grid = "grdPhoneTypes",
                   .options = "optOrder",
                   .field = "TypeDescription",
                   .prompt = "Phone Type",
                   .caption = "Phone Types",
                   .columns = {column::Closed(column::Plain("Type ID", "Type")),
                               column::Limited(column::Plain("Phone Type", "TypeDescription"), kDescriptionLength)}},
          .select = "Select * FROM PhoneTypes",
          .card = "fraPhone",
          .cardCaption = "Phone:",
          .literals = {.Add = "frmPhoneSetup.RecordAdd",
                       .Edit = "frmPhoneSetup.RecordEdit",
                       .Save = "frmPhoneSetup.RecordSave",
                       .Cancel = "frmPhoneSetup.RecordCancel",
                       .Delete = "frmPhoneSetup.RecordDelete"},
          .loadLiteral = "frmPhoneSetup.Form_Load",
          .openLiteral = "frmPhoneSetup.SQLPhones",
          .texts = {.name = "Phone Type?",
                    .deleteTitle = "Delete Phone Type",
                    .deleting = "Delete record, please wait!",
                    .saving = "Saving phone type, please wait!"}};
}

/// One character of it is stored: behind "9" comes "10", which is "1" again and refused as a duplicate. Nine types can be added.
std::string NextPhoneType() {
  return NextCode("frmPhoneSetup.NextPhoneType", "SELECT Max(PhoneTypes.Type) AS MaxOfType From PhoneTypes WHERE (Val([Type])>0);",
                  "MaxOfType");
}

}  // namespace

frmPhoneSetup::frmPhoneSetup(platform::Application& application)
    : CodeTableScreen(application, Design()), txtPhone(*this, "txtPhone", kDescriptionLength) {
  PutOnCard({&txtPhone});
  TestsCells(*this, "Phone Type Setup - Invalid Grid Entry");
  list.grid.AfterUpdate = [this] { RecordsChanged = true; };
}

void frmPhoneSetup::OpenTables() {
  rsPhoneTypes = dbCustomer->OpenRecordset("PhoneTypes", platform::RecordsetType::Table);
  rsPhoneUse = dbCustomer->OpenRecordset("Phones", platform::RecordsetType::Table);
}

bool frmPhoneSetup::Add() {
  txtPhone.Text("");
  return true;
}

bool frmPhoneSetup::Edit() {
  txtPhone.Text(TextUnguarded(Rows(), "TypeDescription"));
  return true;
}

bool frmPhoneSetup::Complete() {
  if (!txtPhone.Text().empty()) return true;
  Tell("You must enter a Phone Type Description!", "Save Record");
  return false;
}

std::optional<std::string> frmPhoneSetup::Write(bool adding) {
  const std::string key = Left(adding ? NextPhoneType() : TextUnguarded(Rows(), "Type"), 1);
  if (adding) {
    if (key.empty()) return {};  // no code could be had, which was reported
    rsPhoneTypes->AddNew();
    rsPhoneTypes->SetField("Type", key);
  } else if (!EditRow(rsPhoneTypes, "PrimaryKey", key)) {
    Tell("The edited phone type can no longer be found.  It may have been deleted by another user!", "Save Record");
    return {};
  }
  rsPhoneTypes->SetField("TypeDescription", txtPhone.Text());
  rsPhoneTypes->Update();
  return "[Type]=" + Quoted(key);
}

SetupDeletion frmPhoneSetup::Deletion() {
  const std::string name = TextUnguarded(Rows(), "TypeDescription");
  const std::string position = "[TypeDescription]>=" + Quoted(name);
  if (IsOneOf(TextOf(Rows(), "Type"), kBuiltIn)) return {true, "Phone Type " + name + " can not be deleted!", position};
  if (HasRow(rsPhoneUse, "Type", {Rows()->Field("Type")}))
    return {true, "One or more customers have a phone type '" + name + "'.  A phone type can not be deleted if it is used by a customer!",
            position};
  return {false, "Are you sure you want to delete Phone Type '" + name + "' ?", position};
}

std::string frmPhoneSetup::RefusesCell(int, const platform::Value& value) {
  return platform::CStr(platform::Concat("", value)).empty() ? "You must enter a phone type!" : "";
}

void frmPhoneSetup::Form_Unload() {
  if (frmCustMain* main = screens::frmCustMain.peek(); main && RecordsChanged) {
    ReloadCombo(main->DataPhoneTypes);
    ReloadOnListPage(main->data[tab::Phones], "RecordID");
  }
  CloseTable(rsPhoneTypes);
  CloseTable(rsPhoneUse);
  screens::frmPhoneSetup.release();
}

}  // namespace orcussch
