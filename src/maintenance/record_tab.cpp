#include "maintenance/record_tab.h"

#include <algorithm>

#include "maintenance/frmCustMain.h"
#include "records/fields.h"
#include "records/lists.h"

namespace orcussch {

RecordTab::RecordTab(frmCustMain& screen, int tab, const char* key, TabDesign design)
    : RecordKind(screen, screen.data[tab], key),
      optOrder(screen, "optOrder" + std::to_string(tab)),
      s(screen),
      mTab(tab),
      mDesign(std::move(design)) {}

void RecordTab::CardBeginsWith(platform::Control& first) {
  const std::vector<platform::Control*>& all = s.Controls();
  for (auto it = std::find(all.begin(), all.end(), &first); it != all.end(); ++it) {
    if ((*it)->Container()) continue;
    (*it)->PutOnTab(s.SSIndexTab1, mTab, 1);
    mOnCard.push_back(*it);
  }
}

void RecordTab::PutOnListPage(std::initializer_list<platform::Control*> controls) {
  for (platform::Control* control : controls) control->PutOnTab(s.SSIndexTab1, mTab, 0);
}

bool RecordTab::IsOnCard(const platform::Control& control) const {
  if (std::find(mOnCard.begin(), mOnCard.end(), &control) != mOnCard.end()) return true;
  return control.Container() && IsOnCard(*control.Container());
}

std::optional<std::string> RecordTab::OrderBy(const platform::GridColumn& column, int) { return column.dataField; }

void RecordTab::Visit(const std::string& Caption) { s.grid[mTab].Caption(s.lblCustomer.Caption() + " - " + Caption); }

platform::RecordsetRef RecordTab::Customer() const { return s.data[tab::Customers].Recordset(); }

platform::Value RecordTab::OwnerKey() const { return Customer()->Field("AcctNum"); }

bool RecordTab::ListIsCurrent() const {
  if (mTab == tab::Customers) return true;
  bool current = false;
  Ignore()([&] { current = LongOf(Customer(), "AcctNum") == mListOf; });
  return current;
}

void RecordTab::BackInList(const SaveState&, bool records) {
  if (records)
    s.grid[mTab].SetFocus();
  else
    s.txtSearch[mTab].SetFocus();
}

void RecordTab::MakeDefault(const RowWrite& stored, const platform::RecordsetRef& Table, std::initializer_list<const char*> fields) const {
  // Another customer's row must not get the number, and the own one can't be reached from where the list stands.
  if (!stored.Going() || !CustomerIs(Owner())) return;
  RowWrite customer(stored.Reports());
  customer.Must([this] { Customer()->Edit(); });
  for (const char* field : fields) customer([&] { Customer()->SetField(field, Table->Field(Key())); });
  if (customer.Going()) UpdateOrDrop(stored.Reports(), Customer());
}

std::int32_t RecordTab::NumberToDelete(ResumeNext& on, DeleteState& state) const {
  std::int32_t id = 0;
  on([&] { id = LongOf(Rows(), Key()); });
  state.Position = std::string("[") + Key() + "]>=" + std::to_string(id);
  return id;
}

bool RecordTab::IsDefault(ResumeNext& on, const char* field, std::int32_t number) const {
  bool isDefault = false;
  on([&] { isDefault = IsNumber(Customer()->Field(field), number); });
  return isDefault;
}

/// Default fields of the customer that pointed at the deleted row.
void RecordTab::Repair(ResumeNext& on, const DeleteState& state) {
  if (!state.Repairs[0].Wanted && !state.Repairs[1].Wanted) return;
  bool records = false;
  on([&] { records = HasRecords(s.data[tab::Customers]); });
  if (!records || !CustomerIs(state.Record.Owner)) return;
  const platform::RecordsetRef rs = Customer();
  RowWrite row(on);
  row.Must([&] { rs->Edit(); });
  for (const DeleteState::Repair& repair : state.Repairs)
    if (repair.Wanted) row([&] { rs->SetField(repair.Field, std::int32_t{0}); });
  if (row.Going()) UpdateOrDrop(on, rs);
}

void RecordTab::Deleted() {
  if (!HasRecords(s.data[tab::Customers])) s.ShowCustomerName();  // the last one's name went with him
}

}  // namespace orcussch
