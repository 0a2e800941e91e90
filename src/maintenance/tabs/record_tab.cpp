#include "maintenance/tabs/record_tab.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

namespace orcussch {

platform::RecordsetRef RecordTab::Rows() const { return s.data[static_cast<std::size_t>(mTab)].Recordset(); }

platform::RecordsetRef RecordTab::Customer() const { return s.data[tab::Customers].Recordset(); }

void RecordTab::UpdateCustomer(ResumeNext& on) const {
  if (!on([this] { Customer()->Update(); })) Ignore()([this] { Customer()->CancelUpdate(); });
}

bool RecordTab::Adding() const { return s.mRecordMode == "A"; }

CardRecord RecordTab::RecordAtHand(bool existing) const {
  CardRecord record;
  Ignore()([&] { record.Owner = Customer()->Field("AcctNum"); });
  if (existing) Ignore()([&] { record.Key = Rows()->Field(mKey); });
  return record;
}

bool RecordTab::StandsOn(const CardRecord& record) const {
  const CardRecord now = RecordAtHand(!record.Key.IsNull());
  return now.Owner == record.Owner && now.Key == record.Key;
}

bool RecordTab::CustomerIs(const platform::Value& owner) const { return RecordAtHand(false).Owner == owner; }

platform::Value RecordTab::Owner() const { return mCard.Owner.IsNull() ? Customer()->Field("AcctNum") : mCard.Owner; }

platform::Value RecordTab::CardKey() const { return mCard.Key.IsNull() ? Rows()->Field(mKey) : mCard.Key; }

bool RecordTab::CardHasGone(const SaveState& state) const { return state.Card != s.mCardNumber; }

bool RecordTab::Passes(const SaveState& state, std::initializer_list<SaveTest> tests) const {
  for (const SaveTest& test : tests) {
    if (!test.failed) continue;
    Refuse(state.Title, test.message);
    if (test.focus) test.focus->SetFocus();
    return false;
  }
  return true;
}

RecordTab::Search RecordTab::Find(ResumeNext& on, const platform::RecordsetRef& Table, const char* Index,
                                  const std::function<Keys()>& keys) {
  Search result = Search::Failed;
  on([&] {
    Table->SetIndex(Index);
    Table->Seek("=", keys());
    result = Table->NoMatch() ? Search::Missing : Search::Found;
  });
  return result;
}

bool RecordTab::BeginEdit(RowWrite& row, const platform::RecordsetRef& Table, const char* Key, SaveState& state,
                          const GoneText& gone) const {
  std::string Id;
  const Search search = Find(row.Reports(), Table, "PrimaryKey", [&] {
    const platform::Value key = CardKey();
    Id = std::to_string(platform::CLng(key));
    return Keys{key};
  });
  if (search == Search::Missing) Refuse(state.Title, gone.before + Id + gone.behind);
  if (search != Search::Found) return false;
  state.Position = std::string("[") + Key + "]=" + Id;
  row.Must([&] { Table->Edit(); });
  return true;
}

void RecordTab::Write(RowWrite& row, const platform::RecordsetRef& Table, const std::vector<CardField>& fields) {
  for (const CardField& field : fields) row([&] { Table->SetField(field.field, field.value()); });
}

void RecordTab::Store(RowWrite& row, const platform::RecordsetRef& Table, const char* Key, SaveState& state) {
  row.Must([&] { Table->Update(); });
  row.Must([&] { Table->SetBookmark(Table->LastModified()); });
  row([&] { state.Position = std::string("[") + Key + "]=" + std::to_string(platform::CLng(Table->Field(Key))); });
}

void RecordTab::MakeDefault(const RowWrite& stored, const platform::RecordsetRef& Table, const char* Key,
                            std::initializer_list<const char*> fields) const {
  // Another customer's row must not get the number, and the own one can't be reached from where the list stands.
  if (!stored.Going() || !CustomerIs(Owner())) return;
  RowWrite customer(stored.Reports());
  customer.Must([this] { Customer()->Edit(); });
  for (const char* field : fields) customer([&] { Customer()->SetField(field, Table->Field(Key)); });
  if (customer.Going()) UpdateCustomer(stored.Reports());
}

void RecordTab::Refuse(const std::string& title, const std::string& text) const {
  App().MsgBox(text, platform::box::Information + platform::box::OkOnly, title);
}

bool RecordTab::Ask(const std::string& title, const std::string& text) const {
  return App().MsgBox(text, kYesNoQuestion, title) == platform::box::Yes;
}

bool RecordTab::Remove(ResumeNext& on, DeleteState&) {
  on([&] { Rows()->Delete(); });
  return true;
}

}  // namespace orcussch
