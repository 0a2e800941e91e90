#include "maintenance/card_entries.h"

#include <algorithm>

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

namespace orcussch {

namespace {

std::string InstanceOf(const frmCustMain& screen) { return std::to_string(screen.mInstance); }

/// The ticked taxes, from the work table itself: the list may show a part of them only.
std::optional<std::vector<platform::Value>> TickedTaxes(const frmCustMain& screen) {
  std::vector<platform::Value> taxes;
  const bool known = screen.mTaxesLoaded && Ignore()([&] {
                       const Opened Assigned(dbTemp->OpenRecordset("Select TaxID From CU_AssignTaxes Where (Assign=True) And (Instance = " +
                                                                   InstanceOf(screen) + ") Order By TaxID;"));
                       for (; !Assigned->Eof(); Assigned->MoveNext()) taxes.push_back(Assigned->Field("TaxID"));
                     });
  if (!known) return {};
  return taxes;
}

}  // namespace

std::optional<CardEntries::Entry> CardEntries::Read(const platform::Control& control) {
  if (const auto* box = dynamic_cast<const platform::TextBox*>(&control)) {
    if (box->Locked()) return {};
    return Entry{control.FullName(), box->Text(), {}, 0};
  }
  if (const auto* combo = dynamic_cast<const platform::ComboBox*>(&control))
    return Entry{control.FullName(), combo->Text(), combo->BoundValue(), 0};
  if (const auto* check = dynamic_cast<const platform::CheckBox*>(&control)) return Entry{control.FullName(), "", {}, check->Value()};
  if (const auto* option = dynamic_cast<const platform::OptionButton*>(&control))
    return Entry{control.FullName(), "", {}, option->Value() ? 1 : 0};
  return {};
}

void CardEntries::Write(platform::Control& control, const Entry& entry) {
  if (auto* box = dynamic_cast<platform::TextBox*>(&control)) {
    box->Text(entry.text);
  } else if (auto* combo = dynamic_cast<platform::ComboBox*>(&control)) {
    combo->BoundValue(entry.bound);
    combo->Text(entry.text);
  } else if (auto* check = dynamic_cast<platform::CheckBox*>(&control)) {
    check->Value(entry.choice);
  } else if (auto* option = dynamic_cast<platform::OptionButton*>(&control)) {
    if (entry.choice != 0) option->Value(true);
  }
}

CardEntries CardEntries::Of(const frmCustMain& screen) {
  CardEntries card;
  card.tab_ = screen.Tab();
  for (const platform::Control* control : screen.Controls()) {
    if (!screen.IsOnCard(*control, card.tab_)) continue;
    // Which taxes the list shows is no entry: which are ticked is.
    if (control->Container() == &screen.fraTaxBasis) continue;
    if (auto entry = Read(*control)) card.entries_.push_back(std::move(*entry));
  }
  if (card.tab_ != tab::Customers) return card;
  card.entries_.push_back({screen.cmdPlusMinus.Name(), screen.cmdPlusMinus.Caption(), {}, 0});
  for (std::size_t i = 0; i < 2; ++i) card.entries_.push_back({screen.lblMapCode[i].FullName(), screen.lblMapCode[i].Caption(), {}, 0});
  card.taxes_ = TickedTaxes(screen);
  return card;
}

void CardEntries::PutBack(frmCustMain& screen) const {
  const std::vector<platform::Control*> controls = screen.Controls();
  // In the order of the boxes: a choice that empties the box behind it comes before that box.
  for (const Entry& entry : entries_) {
    const auto found =
        std::find_if(controls.begin(), controls.end(), [&](const platform::Control* one) { return one->FullName() == entry.control; });
    if (found == controls.end()) continue;
    if (auto* label = dynamic_cast<platform::Label*>(*found)) {
      label->Caption(entry.text);
    } else if (auto* button = dynamic_cast<platform::CommandButton*>(*found)) {
      button->Caption(entry.text);
    } else {
      Write(**found, entry);
    }
  }
  if (taxes_ && screen.mTaxesLoaded) PutBackTaxes(screen, *taxes_);
}

void CardEntries::PutBackTaxes(frmCustMain& screen, const std::vector<platform::Value>& taxes) {
  const std::string mine = " Where (Instance = " + InstanceOf(screen) + ")";
  dbTemp->Execute("Update CU_AssignTaxes Set Assign = False" + mine + ";");
  for (const platform::Value& tax : taxes)
    dbTemp->Execute("Update CU_AssignTaxes Set Assign = True" + mine + " And (TaxID = " + platform::CStr(tax) + ");");
  screen.SQLTaxBasis();
}

}  // namespace orcussch
