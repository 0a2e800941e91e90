#pragma once

#include <string>

#include "platform/controls/combo.h"
#include "platform/data/data.h"
#include "platform/values/convert.h"

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

/// Both parts of a combo.
inline void SetCombo(platform::ComboBox& combo, const platform::Value& bound, const std::string& text) {
  combo.BoundValue(bound);
  combo.Text(text);
}
inline void EmptyCombo(platform::ComboBox& combo) { SetCombo(combo, "", ""); }

/// The bound value as text, "" when there is none.
inline std::string BoundText(const platform::ComboBox& combo) { return platform::CStr(platform::Concat("", combo.BoundValue())); }

}  // namespace orcussch
