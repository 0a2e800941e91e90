#include "hostile/desk.h"

#include "platform/values/convert.h"
#include "robot/hands/model_hands.h"
#include "robot/language/failure.h"
#include "robot/stage/lookup.h"

namespace hostile {
namespace {

using robot::Refused;

constexpr int kManyRows = 200;

/// One step of filling a card: what can't be reached is left as it is.
template <class Step>
void IfPossible(Step&& step) {
  try {
    step();
  } catch (const robot::ActionFailed&) {
    // A check box that only new records have, a department that can't be changed.
  }
}

}  // namespace

std::string Indexed(const std::string& name, int index) { return name + "(" + std::to_string(index) + ")"; }

Desk::Desk(platform::Application& app) : app_(app), hands_(robot::MakeModelHands()) {}

orcussch::frmCustMain* Desk::Screen() const {
  for (int i = 0; i < app_.FormCount(); ++i)
    if (auto* screen = dynamic_cast<orcussch::frmCustMain*>(&app_.FormAt(i))) return screen;
  return nullptr;
}

orcussch::frmCustMain& Desk::UpScreen() const {
  orcussch::frmCustMain* screen = Screen();
  if (screen == nullptr || app_.ActiveForm() != screen || !app_.TakesInput(*screen)) throw Refused("the main screen is not up");
  return *screen;
}

platform::Control& Desk::Usable(const std::string& name) const {
  platform::Control* control = robot::Find(app_, name).control;
  if (control == nullptr) throw Refused("no control " + name);
  robot::DemandUsable(app_, *control);
  return *control;
}

template <class T>
T& Desk::UsableAs(const std::string& name) const {
  auto* control = dynamic_cast<T*>(&Usable(name));
  if (control == nullptr) throw robot::ActionFailed(name + " is of another kind");
  return *control;
}

bool Desk::CanUse(const std::string& name) const {
  try {
    Usable(name);
    return true;
  } catch (const robot::ActionFailed&) {
    return false;
  }
}

void Desk::Click(const std::string& name) const { hands_->Click(Usable(name)); }

void Desk::Type(const std::string& name, std::string_view text) const { hands_->Type(Usable(name), text, false); }

void Desk::Pick(const std::string& name, const std::string& key) const {
  auto& combo = UsableAs<platform::ComboBox>(name);
  for (const platform::ComboRow& row : combo.Rows()) {
    if (platform::CStr(row.key) != key) continue;
    hands_->Pick(combo, row);
    return;
  }
  throw Refused("no row " + key + " of " + name);
}

void Desk::Check(const std::string& name) const {
  auto& box = UsableAs<platform::CheckBox>(name);
  if (box.Value() == 0) hands_->Click(box);
}

void Desk::Key(const std::string& name, std::string_view key) const { hands_->Key(Usable(name), key); }

void Desk::Tab(int tab) const { Tab("SSIndexTab1", tab); }

void Desk::Tab(const std::string& name, int tab) const {
  auto& tabs = UsableAs<platform::TabControl>(name);
  if (tabs.Tab() == tab || !tabs.TabEnabled(tab)) throw Refused("no way to tab " + std::to_string(tab));
  hands_->Tab(tabs, tab);
}

void Desk::Row(const std::string& name, const std::string& field, const std::string& text) const {
  auto& grid = UsableAs<platform::Grid>(name);
  platform::RowWindow* window = grid.Data()->Window();
  if (window == nullptr) throw Refused(name + " without rows");
  const auto at = static_cast<std::size_t>(RowsOf(grid.Data()->Recordset()).FieldIndex(field));
  for (const platform::ListRow& row : window->RowsAt(0, kManyRows)) {
    if (at >= row.cells.size() || platform::CStr(platform::Concat("", row.cells[at])) != text) continue;
    hands_->Row(grid, row.bookmark);
    return;
  }
  throw Refused(name + " has no row " + text);
}

void Desk::Head(const std::string& name, int column) const { hands_->HeadClick(UsableAs<platform::Grid>(name), column); }

void Desk::MarkAll(const std::string& name) const {
  auto& grid = UsableAs<platform::Grid>(name);
  platform::RowWindow* window = grid.Data()->Window();
  if (window == nullptr) throw Refused(name + " without rows");
  std::vector<platform::Bookmark> rows;
  for (const platform::ListRow& row : window->RowsAt(0, kManyRows)) rows.push_back(row.bookmark);
  hands_->Mark(grid, rows);
}

void Desk::Cell(const std::string& name, int column, std::string_view text) const {
  auto& grid = UsableAs<platform::Grid>(name);
  if (!grid.Column(column).open) throw Refused(name + " column closed");
  hands_->Cell(grid, column, text);
}

void Desk::CloseByFrame() const { hands_->CloseForm(UpScreen()); }

platform::Form& Desk::Top() const {
  platform::Form* top = app_.ActiveForm();
  if (top == nullptr || !app_.TakesInput(*top)) throw Refused("no screen is up");
  return *top;
}

std::string Desk::ListUp() const {
  for (platform::Control* control : Top().Controls())
    if (dynamic_cast<platform::Grid*>(control) != nullptr && control->OpenToUser()) return control->FullName();
  throw Refused("no list is up");
}

bool Desk::IsOn(const std::string& option) const { return UsableAs<platform::OptionButton>(option).Value(); }

void Desk::LastRow(const std::string& name) const {
  auto& grid = UsableAs<platform::Grid>(name);
  platform::RowWindow* window = grid.Data()->Window();
  const auto rows = window == nullptr ? std::vector<platform::ListRow>{} : window->RowsAt(0, kManyRows);
  if (rows.empty()) throw Refused(name + " without rows");
  hands_->Row(grid, rows.back().bookmark);
}

void Desk::CloseTopByFrame() const { hands_->CloseForm(Top()); }

void Desk::CloseMainByFrame() const {
  if (Screen() == nullptr) throw Refused("no main screen");
  Screen()->UserClose();
}

void Desk::UnloadMain() const {
  if (Screen() == nullptr) throw Refused("no main screen");
  app_.Unload(*Screen());
}

void Desk::Run(void (*procedure)(orcussch::frmCustMain&)) const {
  orcussch::frmCustMain& screen = UpScreen();
  screen.Act([&] { procedure(screen); });
}

void Desk::FillCard() const {
  const auto type = [this](const char* name, const char* text) { IfPossible([&] { Type(name, text); }); };
  const auto pick = [this](const char* name, const char* key) { IfPossible([&] { Pick(name, key); }); };
  const auto check = [this](const char* name) { IfPossible([&] { Check(name); }); };
  switch (UpScreen().Tab()) {
    case orcussch::tab::Customers:
      if (UpScreen().mRecordMode == "A") type("txtLastName", "Zander");
      type("txtCity", "Newtown");
      pick("cboTerms", "2");
      break;
    case orcussch::tab::Phones:
      type("txtPhoneArea", "612");
      type("txtPhone", "5559999");
      pick("cboPhoneTypes", "W");
      check("chkDefaultPhone");
      break;
    case orcussch::tab::Addresses:
      type("txtAltAddr1", "9 New St");
      type("txtAltCity", "Newtown");
      type("txtAltState", "MN");
      type("txtAltZip", "55999");
      check("chkDefaultAddr(0)");
      break;
    case orcussch::tab::CreditCards:
      pick("cboCreditCards", "V");
      type("txtCCNumber", "4999");
      type("txtCCMonth", "11");
      type("txtCCYear", "2031");
      check("chkDefaultCC");
      break;
    case orcussch::tab::LaborRates:
      pick("cboDepts", "900");
      type("txtRateAdjustment", "7");
      break;
    case orcussch::tab::CustomerTypes:
      type("txtCustomerType", "Brand new");
      check("chkAssignCustType");
      break;
    default:
      type("txtKeyWord", "Brandnew");
      check("chkAssignKeyWord");
      break;
  }
}

void Desk::SpoilCard() const {
  switch (UpScreen().Tab()) {
    case orcussch::tab::Customers:
      return Type("txtLastName", "");
    case orcussch::tab::Phones:
      return hands_->ClearCombo(UsableAs<platform::ComboBox>("cboPhoneTypes"));
    case orcussch::tab::Addresses:
      Check("chkDefaultAddr(1)");
      return Type("txtAltAddr1", "");
    case orcussch::tab::CreditCards:
      return Type("txtCCNumber", "");
    case orcussch::tab::LaborRates:
      return hands_->ClearCombo(UsableAs<platform::ComboBox>("cboDepts"));
    case orcussch::tab::CustomerTypes:
      return Type("txtCustomerType", "");
    default:
      return Type("txtKeyWord", "");
  }
}

}  // namespace hostile
