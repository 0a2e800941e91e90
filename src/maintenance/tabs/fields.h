#pragma once

#include <string>

#include "maintenance/tabs/record_tab.h"
#include "platform/controls/combo.h"
#include "platform/controls/text_box.h"
#include "platform/data/data.h"
#include "platform/values/convert.h"
#include "session/failures.h"

/// Small reads and writes that the record cards share.
namespace orcussch {

/// A field as text, "" for Null.
inline std::string TextOf(const platform::RecordsetRef& Rs, const char* Field) {
  return platform::CStr(platform::Concat("", Rs->Field(Field)));
}

/// A field as text without a guard: Null raises 94.
inline std::string TextUnguarded(const platform::RecordsetRef& Rs, const char* Field) { return platform::CStr(Rs->Field(Field)); }

inline std::int32_t LongOf(const platform::RecordsetRef& Rs, const char* Field) { return platform::CLng(Rs->Field(Field)); }

/// A condition on a field: Null is neither True nor equal to anything, and no failure.
inline bool IsTrue(const platform::Value& field) { return !field.IsNull() && platform::CBool(field); }
inline bool IsNumber(const platform::Value& field, std::int32_t number) { return !field.IsNull() && platform::CLng(field) == number; }

/// A department's number in its three places, filled with blanks.
inline std::string FixedDept(const std::string& number) { return platform::Left(number + "   ", 3); }

/// Writes an edit of a list's row. One that can't be written is reported and dropped: left open, the list would write it by
/// itself when it moves on, long after the user was told that it failed.
inline void UpdateOrDrop(ResumeNext& on, const platform::RecordsetRef& Rs) {
  if (!on([&] { Rs->Update(); })) Ignore()([&] { Rs->CancelUpdate(); });
}

/// Both parts of a combo.
inline void SetCombo(platform::ComboBox& combo, const platform::Value& bound, const std::string& text) {
  combo.BoundValue(bound);
  combo.Text(text);
}
inline void EmptyCombo(platform::ComboBox& combo) { SetCombo(combo, "", ""); }

/// The bound value as text, "" when there is none.
inline std::string BoundText(const platform::ComboBox& combo) { return platform::CStr(platform::Concat("", combo.BoundValue())); }

/// A field that a save takes from a control: the text without its mask, the bound value, the amount.
inline CardField From(const char* field, const platform::TextBox& edit) {
  return {field, [&edit] { return platform::Value(edit.Text()); }};
}
inline CardField From(const char* field, const platform::ComboBox& combo) {
  return {field, [&combo] { return combo.BoundValue(); }};
}
inline CardField From(const char* field, const platform::NumberEdit& edit) {
  return {field, [&edit] { return platform::Value(edit.Value()); }};
}
inline CardField From(const char* field, const platform::CurrencyEdit& edit) {
  return {field, [&edit] { return platform::Value(edit.Value()); }};
}

/// A field of a table and the edit that shows it.
struct TextField {
  const char* field;
  platform::TextBox* edit;
};

}  // namespace orcussch
