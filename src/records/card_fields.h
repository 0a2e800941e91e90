#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/data/data.h"
#include "records/row_write.h"
#include "session/failures.h"

namespace orcussch {

/// A field of a table on its card. One line of a card's list tells it all: what a new record shows, how an existing one comes into
/// the control, and what a save writes. A field that is shown only has no `save`, one that is written only no `load`.
struct CardField {
  const char* field;
  /// A statement that can fail goes through `on`.
  std::function<void(ResumeNext& on)> clear;
  std::function<void(ResumeNext& on, const platform::RecordsetRef& row)> load;
  /// Nothing: the field keeps what it holds. A figure that no field can take raises 6.
  std::function<std::optional<platform::Value>()> save;
};

/// The fields of a card, in the order of their writing.
class CardFields {
 public:
  CardFields(std::initializer_list<CardField> fields) : fields_(fields) {}

  /// The card of a new record.
  void Clear(ResumeNext& on) const;
  /// Loads a row into the card.
  void Load(ResumeNext& on, const platform::RecordsetRef& row) const;
  /// Writes the card into the row that is being added or edited. A field that fails is reported, the others are still written.
  void Write(RowWrite& row, const platform::RecordsetRef& table) const;

 private:
  std::vector<CardField> fields_;
};

/// The common kinds of field. Loaded, saved and cleared, but for those that say less.
namespace card {

/// The text without its mask; Null shows empty.
CardField Text(const char* field, platform::TextBox& edit);
/// Null is reported, and the edit keeps what it showed.
CardField TextNotNull(const char* field, platform::TextBox& edit);
/// 0 on a new card.
CardField Amount(const char* field, platform::CurrencyEdit& edit);
CardField Number(const char* field, platform::NumberEdit& edit);
/// `fresh` is what a new card shows, `null` what Null does.
CardField Check(const char* field, platform::CheckBox& box, int fresh, int null);
/// The bound value; `load` sets both parts.
CardField Bound(const char* field, platform::ComboBox& combo, std::function<void(ResumeNext&, const platform::RecordsetRef&)> load);
/// Shown only, Null is reported.
CardField Shown(const char* field, platform::Label& label);
/// Written only.
CardField Saved(const char* field, std::function<std::optional<platform::Value>()> value);

}  // namespace card

}  // namespace orcussch
