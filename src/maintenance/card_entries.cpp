#include "maintenance/card_entries.h"

#include <algorithm>

#include "maintenance/frmCustMain.h"
#include "platform/controls/combo.h"

namespace orcussch {

namespace {

std::string CaptionOf(const platform::Control& control) {
  if (const auto* label = dynamic_cast<const platform::Label*>(&control)) return label->Caption();
  if (const auto* button = dynamic_cast<const platform::CommandButton*>(&control)) return button->Caption();
  return "";
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
  RecordTab& record = screen.Record(screen.Tab());
  card.tab_ = screen.Tab();
  for (const platform::Control* control : screen.Controls()) {
    if (!record.IsOnCard(*control) || !record.KeepsEntry(*control)) continue;
    if (auto entry = Read(*control)) card.entries_.push_back(std::move(*entry));
  }
  for (const platform::Control* control : record.CaptionEntries())
    card.entries_.push_back({control->FullName(), CaptionOf(*control), {}, 0});
  card.ticked_ = record.TickedOnCard();
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
  if (ticked_) screen.Record(tab_).TickOnCard(*ticked_);
}

}  // namespace orcussch
