#include "setup/frmCreditCardSetup.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "setup/main_lists.h"
#include "setup/next_code.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmCreditCardSetup> frmCreditCardSetup{App};
}  // namespace screens

namespace {

using platform::Left;

constexpr int kNameLength = 30;
constexpr std::string_view kBuiltIn[] = {"A", "C", "D", "M", "V"};

CodeTableDesign Design() {
  return {.screen = "frmCreditCardSetup",
          .caption = "Credit Card Setup",
          .list = {.data = "DataCreditCard",
                   .grid = "grdCreditCard",
                   .options = "optOrder",
                   .field = "CreditCardName",
                   .prompt = "Credit Card Name",
                   .caption = "Accepted Credit Cards",
                   .columns = {column::Closed(column::Plain("Credit Card Type", "CreditCardType")),
                               column::Limited(column::Plain("Credit Card Name", "CreditCardName"), kNameLength),
                               column::Formatted("Bank Charge %", "BankCharge", "0.00")}},
          .select = "Select * FROM CreditCardTypes",
          .card = "fraCreditCard",
          .cardCaption = "Credit Card:",
          .literals = {.Add = "frmCreditCardSetup.RecordAdd",
                       .Edit = "frmCreditCardSetup.RecordEdit",
                       .Save = "frmCreditCardSetup.RecordSave",
                       .Cancel = "frmCreditCardSetup.RecordCancel",
                       .Delete = "frmCreditCardSetup.RecordDelete"},
          .loadLiteral = "frmCreditCardSetup.Form_Load",
          .openLiteral = "frmCreditCardSetup.SQLCreditCards",
          .texts = {.name = "Credit Card?",
                    .deleteTitle = "Delete Credit Card Type",
                    .deleting = "Delete record, please wait!",
                    .saving = "Saving credit card record, please wait!"}};
}

/// Nine types can be added, as on the phone types' screen.
std::string NextCreditCardType() {
  return NextCode("frmCreditCardSetup.NextCreditCardType",
                  "SELECT Max(CreditCardTypes.CreditCardType) AS MaxOfCreditCardType From CreditCardTypes WHERE (Val([CreditCardType])>0);",
                  "MaxOfCreditCardType");
}

}  // namespace

frmCreditCardSetup::frmCreditCardSetup(platform::Application& application)
    : CodeTableScreen(application, Design()),
      txtCreditCardName(*this, "txtCreditCardName", kNameLength),
      txtBankCharge(*this, "txtBankCharge", 2) {
  PutOnCard({&txtCreditCardName, &txtBankCharge});
  OrdersByHeading(*this);
  TestsCells(*this, "Credit Card Setup - Invalid Grid Entry");
  list.grid.AfterUpdate = [this] { RecordsChanged = true; };
}

void frmCreditCardSetup::OpenTables() {
  rsCreditCardTypes = dbCustomer->OpenRecordset("CreditCardTypes", platform::RecordsetType::Table);
  rsCardUse = dbCustomer->OpenRecordset("CustCreditCards", platform::RecordsetType::Table);
}

bool frmCreditCardSetup::Add() {
  txtCreditCardName.Text("");
  txtBankCharge.Value(0.0);
  return true;
}

bool frmCreditCardSetup::Edit() {
  txtCreditCardName.Text(TextUnguarded(Rows(), "CreditCardName"));
  txtBankCharge.Value(platform::CDbl(Rows()->Field("BankCharge")));
  return true;
}

bool frmCreditCardSetup::Complete() {
  if (txtBankCharge.Text().empty()) txtBankCharge.Value(0.0);
  if (!txtCreditCardName.Text().empty()) return true;
  Tell("You must enter a credit card name!", "Save Record");
  return false;
}

std::optional<std::string> frmCreditCardSetup::Write(bool adding) {
  const std::string key = Left(adding ? NextCreditCardType() : TextUnguarded(Rows(), "CreditCardType"), 1);
  if (adding) {
    if (key.empty()) return {};  // no code could be had, which was reported
    rsCreditCardTypes->AddNew();
    rsCreditCardTypes->SetField("CreditCardType", key);
  } else if (!EditRow(rsCreditCardTypes, "PrimaryKey", key)) {
    Tell("The edited credit card type can no longer be found.  It may have been deleted by another user!", "Save Record");
    return {};
  }
  rsCreditCardTypes->SetField("CreditCardName", txtCreditCardName.Text());
  rsCreditCardTypes->SetField("BankCharge", txtBankCharge.Value());
  rsCreditCardTypes->Update();
  return "[CreditCardType]=" + Quoted(key);
}

/// The row behind a deleted one is found by its name, in whichever order the list is.
SetupDeletion frmCreditCardSetup::Deletion() {
  const std::string name = TextUnguarded(Rows(), "CreditCardName");
  const std::string position = "[CreditCardName]>=" + Quoted(name);
  if (IsOneOf(TextOf(Rows(), "CreditCardType"), kBuiltIn)) return {true, "Credit Card " + name + " can not be deleted!", position};
  if (HasRow(rsCardUse, "CCType", {Rows()->Field("CreditCardType")}))
    return {true, "One or more customers use Credit Card " + name + ".  A credit card type can not be deleted if it is used by a customer!",
            position};
  return {false, "Are you sure you want to delete Credit Card Type '" + name + "' ?", position};
}

std::string frmCreditCardSetup::RefusesCell(int column, const platform::Value& value) {
  const std::string& field = list.grid.Column(column).dataField;
  if (field == "CreditCardName" && platform::CStr(platform::Concat("", value)).empty()) return "You must enter a credit card name!";
  if (field == "BankCharge" && !platform::IsNumeric(value)) return "You must enter a credit card bank charge %!";
  return "";
}

void frmCreditCardSetup::Form_Unload() {
  if (frmCustMain* main = screens::frmCustMain.peek()) {
    // At every closing, and once more when something was changed.
    ReloadCombo(main->DataCreditCards);
    if (RecordsChanged) {
      ReloadCombo(main->DataCreditCards);
      ReloadOnListPage(main->data[tab::CreditCards], "CreditCardID");
    }
  }
  CloseTable(rsCreditCardTypes);
  CloseTable(rsCardUse);
  screens::frmCreditCardSetup.release();
}

}  // namespace orcussch
