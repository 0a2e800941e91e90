#include "setup/tax/tax_tab.h"

#include <utility>

#include "records/fields.h"
#include "records/record_operations.h"
#include "setup/tax/frmTaxSetup.h"

namespace orcussch {

TaxTab::TaxTab(frmTaxSetup& screen, int tab, TaxTabDesign design)
    : SetupRecord(screen, design.list),
      lblIDDesc(screen, "lblIDDesc", tab, "I.D."),
      lblID(screen, "lblID", tab, ""),
      s(screen),
      mTab(tab),
      mDesign(std::move(design)) {
  screen.SSIndexTab1.TabCaption(tab, mDesign.caption);
  for (platform::Control* control : std::initializer_list<platform::Control*>{&list.fraSearch, &list.fraOrder, &list.grid})
    control->PutOnTab(screen.SSIndexTab1, tab, 0);
  PutOnCard({&lblIDDesc, &lblID});
}

void TaxTab::PutOnCard(std::initializer_list<platform::Control*> controls) {
  for (platform::Control* control : controls) control->PutOnTab(s.SSIndexTab1, mTab, 1);
}

std::string TaxTab::SearchTitle() const { return s.SSIndexTab1.TabCaption(mTab) + " Search"; }

int TaxTab::DeleteStyle() const { return kYesNoQuestion; }

void TaxTab::HideKey() {
  lblIDDesc.Visible(false);
  lblID.Visible(false);
}

void TaxTab::ShowKey() {
  lblIDDesc.Visible(true);
  lblID.Visible(true);
}

bool TaxTab::Requires(platform::TextBox& entry, const char* message) {
  if (!entry.Text().empty()) return true;
  s.Tell(message, "Save Record");
  entry.SetFocus();
  return false;
}

std::string TaxTab::KeyIs(const char* comparison, std::int32_t key) const { return "[" + Key() + "]" + comparison + std::to_string(key); }

std::optional<std::string> TaxTab::Write(bool adding) {
  const platform::RecordsetRef table = Table();
  if (adding) {
    table->AddNew();
  } else if (!EditRow(table, mDesign.index, Rows()->Field(Key()))) {
    s.Tell(mDesign.gone, "Save Record");
    return {};
  }
  Fill(table);
  table->Update();
  // Only here is the counter of a new row known.
  table->SetBookmark(table->LastModified());
  return KeyIs("=", LongOf(table, mDesign.list.field));
}

/// A filter can leave the saved row out of an empty list: there is no last row then either, which is reported.
void TaxTab::StandOn(const std::string& position) { FindOrGoLast(Rows(), position); }

void TaxTab::TryField(const std::string& field, const platform::Value& value) const {
  const platform::RecordsetRef table = Table();
  struct Cancels {
    const platform::RecordsetRef& row;
    ~Cancels() {
      Ignore()([this] { row->CancelUpdate(); });
    }
  };
  if (!EditRow(table, mDesign.index, Rows()->Field(Key()))) return;
  const Cancels cancels{table};
  table->SetField(field, value);
}

/// The rates' index on the key bears its name.
const char* TaxTab::InUse(std::int32_t key) const {
  return HasRow(s.tables.TaxGrid_Tb, mDesign.list.field, {key}) ? "it has been assigned to one or more tax rate records" : nullptr;
}

SetupDeletion TaxTab::Deletion() {
  const std::int32_t key = LongOf(Rows(), mDesign.list.field);
  const std::string noun = mDesign.noun;
  const std::string name = TextUnguarded(Rows(), mDesign.description);
  const std::string position = KeyIs(">=", key);
  if (const char* reason = InUse(key)) return {true, "You can not delete " + noun + " " + name + " because " + reason + ".", position};
  return {false, "Are you sure you want to delete the following " + noun + ": " + name + "?", position};
}

}  // namespace orcussch
