#include "records/record_kind.h"

#include "platform/values/convert.h"
#include "records/record_operations.h"
#include "session/ModCustSch.h"

namespace orcussch {

bool RecordKind::Adding() const { return mScreen.mRecordMode == "A"; }

CardRecord RecordKind::RecordAtHand(bool existing) const {
  CardRecord record;
  Ignore()([&] { record.Owner = OwnerKey(); });
  if (existing) Ignore()([&] { record.Key = Rows()->Field(mKey); });
  return record;
}

CardRecord RecordKind::RecordToEdit() const {
  CardRecord record = RecordAtHand(false);
  record.Key = Rows()->Field(mKey);
  return record;
}

bool RecordKind::StandOnCard() const {
  if (StandsOn(mCard)) return true;
  const platform::Value row = RowOf(mCard);
  if (row.IsNull()) return false;
  const std::string key = platform::CStr(row);
  Ignore()([&] { Rows()->FindFirst(std::string("[") + mKey + "]=" + (row.IsText() ? Quoted(key) : key)); });
  return StandsOn(mCard);
}

bool RecordKind::StandsOn(const CardRecord& record) const {
  const CardRecord now = RecordAtHand(!record.Key.IsNull());
  return now.Owner == record.Owner && now.Key == record.Key;
}

platform::Value RecordKind::Owner() const { return mCard.Owner.IsNull() ? OwnerKey() : mCard.Owner; }

platform::Value RecordKind::CardKey() const { return mCard.Key.IsNull() ? Rows()->Field(mKey) : mCard.Key; }

bool RecordKind::CardHasGone(const SaveState& state) const { return state.Card != mScreen.mCardNumber; }

bool RecordKind::Passes(const SaveState& state, std::initializer_list<SaveTest> tests) const {
  for (const SaveTest& test : tests) {
    if (!test.failed) continue;
    Refuse(state.Title, test.message);
    if (test.focus) test.focus->SetFocus();
    return false;
  }
  return true;
}

bool RecordKind::BeginEdit(RowWrite& row, const platform::RecordsetRef& Table, SaveState& state, const GoneText& gone) const {
  std::string id;
  const Search search = Find(row.Reports(), Table, "PrimaryKey", [&] {
    const platform::Value key = CardKey();
    id = std::to_string(platform::CLng(key));
    return Keys{key};
  });
  if (search == Search::Missing) Refuse(state.Title, gone.before + id + gone.behind);
  if (search != Search::Found) return false;
  state.Position = std::string("[") + mKey + "]=" + id;
  row.Must([&] { Table->Edit(); });
  return true;
}

void RecordKind::Store(RowWrite& row, const platform::RecordsetRef& Table, SaveState& state) const {
  row.Must([&] { Table->Update(); });
  row.Must([&] { Table->SetBookmark(Table->LastModified()); });
  row([&] { state.Position = std::string("[") + mKey + "]=" + std::to_string(platform::CLng(Table->Field(mKey))); });
}

void RecordKind::Refuse(const std::string& title, const std::string& text) const {
  mScreen.OnScreen().App().MsgBox(text, platform::box::Information + platform::box::OkOnly, title);
}

bool RecordKind::Ask(const std::string& title, const std::string& text) const {
  return mScreen.OnScreen().App().MsgBox(text, kYesNoQuestion, title) == platform::box::Yes;
}

bool RecordKind::Remove(ResumeNext& on, DeleteState&) {
  on([&] { Rows()->Delete(); });
  return true;
}

}  // namespace orcussch
