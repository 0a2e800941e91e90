#include "setup/frmUserStartup.h"

#include <cstddef>

#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

using platform::CBool;
using platform::ComboRow;
using platform::CStr;
using platform::Value;

namespace screens {
platform::ScreenRef<orcussch::frmUserStartup> frmUserStartup{App};
}  // namespace screens

namespace {

constexpr platform::Shortcut kShortcuts[] = {{"miClose", "Escape", ""}};

constexpr std::size_t kCodeLength = 3;

struct QueryField {
  const char* name;
  const char* code;
};

/// The fields of the query screen. 209 bears the name of 207: users know it under that name, and tell the two apart by their place.
constexpr QueryField kQueryFields[] = {
    {"Last Name", "000"},
    {"First Name", "001"},
    {"Title", "002"},
    {"Address", "003"},
    {"City", "004"},
    {"State", "005"},
    {"Zip", "006"},
    {"Phone", "007"},
    {"Status", "100"},
    {"Invoice No", "101"},
    {"Credit Card No", "102"},
    {"Key Words", "103"},
    {"Customer Types", "104"},
    {"Min Current Balance", "200"},
    {"Max Current Balance", "201"},
    {"Min Current Finance Charge", "202"},
    {"Max Current Finance Charge", "203"},
    {"Min Paid This Month", "204"},
    {"Max Paid This Month", "205"},
    {"Min Paid This Year", "206"},
    {"Max Paid This Year", "207"},
    {"Min Paid Last Year", "208"},
    {"Max Paid This Year", "209"},
    {"Min Paid To Date", "210"},
    {"Max Paid To Date", "211"},
    {"Min Entry Date", "300"},
    {"Max Entry Date", "301"},
    {"Min Last Transaction Date", "302"},
    {"Max Last Transaction Date", "303"},
    {"Min Last Order Date", "304"},
    {"Max Last Order Date", "305"},
    {"Min Last Statement Date", "306"},
    {"Max Last Statement Date", "307"},
    {"Min Last Payment Date", "308"},
    {"Max Last Payment Date", "309"},
};

/// Raises 94 for a row without a tab or a field.
std::string StoredCode() {
  std::string code = CStr(rsUserStartup->Field("QueryField"));
  if (code.size() == 1) code = "0" + code;
  return CStr(rsUserStartup->Field("QueryTab")) + code;
}

}  // namespace

frmUserStartup::frmUserStartup(platform::Application& application)
    : Screen(application, "frmUserStartup", "Customer Maintenance - User Options"),
      lblUser(*this, "lblUser"),
      Frame1(*this, "Frame1", "Startup Options:"),
      Frame2(*this, "Frame2", "Startup Form:"),
      optForm(*this, "optForm"),
      cboQuery(*this, "cboQuery"),
      Frame3(*this, "Frame3", "New Customer Options:"),
      chkAddPhone(*this, "chkAddPhone", "Always add a customer phone number after saving a new customer."),
      cmdSave(*this, "cmdSave", "Save User Options"),
      miClose(*this, "miClose", "Close") {
  Shortcuts(kShortcuts);
  optForm[0].Caption("Customer Maintenance");
  optForm[1].Caption("Customer Queries");
  optForm[0].Design(true);
  Frame2.Container(Frame1);
  optForm.Each([this](platform::OptionButton& option, int) { option.Container(Frame2); });
  cboQuery.Container(Frame1);
  chkAddPhone.Container(Frame3);
  chkAddPhone.Value(1);  // as without a row

  std::vector<ComboRow> rows;
  for (const QueryField& field : kQueryFields) rows.push_back({Value(field.code), field.name, {field.name}});
  cboQuery.Fill(std::move(rows));
  ShowQueryField("000");

  cmdSave.Click = [this] { cmdSave_Click(); };
  miClose.Click = [this] { App().Unload(*this); };
}

void frmUserStartup::Form_Load() {
  Trap("frmUserStartup.Form_Load", [this] {
    lblUser.Caption(CStr(Value(gUserID)));
    if (!SetUserStartup()) return;
    optForm[IsTrue(rsUserStartup->Field("StartGrid")) ? 0 : 1].Value(true);
    const std::string code = StoredCode();
    if (code.size() == kCodeLength) ShowQueryField(code);
    const Value addPhone = rsUserStartup->Field("AddPhone");
    if (addPhone.IsNull()) {
      gAddPhone = true;
      return;
    }
    chkAddPhone.Value(CBool(addPhone) ? 1 : 0);
    gAddPhone = CBool(addPhone);
  });
}

/// The screen of the next time begins as it was designed.
void frmUserStartup::Form_Unload() { screens::frmUserStartup.release(); }

/// A code that is not listed shows nothing.
void frmUserStartup::ShowQueryField(const std::string& code) {
  for (const ComboRow& row : cboQuery.Rows()) {
    if (row.key != Value(code)) continue;
    cboQuery.BoundValue(row.key);
    cboQuery.Text(row.shown);
    return;
  }
  cboQuery.BoundValue("");
  cboQuery.Text("");
}

std::string frmUserStartup::ChosenCode() const { return CStr(platform::Concat("", cboQuery.BoundValue())); }

void frmUserStartup::cmdSave_Click() {
  Trap("frmUserStartup.cmdSave_Click", [this] {
    cmdSave.Enabled(false);
    const std::string code = ChosenCode();
    const bool chosen = code.size() == kCodeLength;
    const std::int16_t tab = chosen ? platform::CInt(Value(code.substr(0, 1))) : std::int16_t{0};
    const std::int16_t field = chosen ? platform::CInt(Value(code.substr(1))) : std::int16_t{0};

    if (SetUserStartup()) {
      rsUserStartup->Edit();
    } else {
      rsUserStartup->AddNew();
      rsUserStartup->SetField("UserNum", gUserID);
    }
    rsUserStartup->SetField("StartGrid", optForm[0].Value());
    rsUserStartup->SetField("QueryTab", tab);
    rsUserStartup->SetField("QueryField", field);
    gAddPhone = chkAddPhone.Value() != 0;
    rsUserStartup->SetField("AddPhone", gAddPhone);
    rsUserStartup->Update();

    cmdSave.Enabled(true);
    App().MousePointer(platform::pointer::Default);
    App().Unload(*this);
  });
}

}  // namespace orcussch
