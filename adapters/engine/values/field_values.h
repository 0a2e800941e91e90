#pragma once

#include "engine/values/clock.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

/// The value as the field keeps it after an assignment. Null stays; "" is a text like others; numbers are rounded half to
/// even; texts become numbers and dates as the conversions of the screens' language read them, month and day alone being of
/// the year that the clock shows. Raises 3163 for a text longer than the field, 3421 for a value that can't become
/// the field's type.
platform::Value ConvertForField(const Clock& clock, const platform::FieldDefinition& field, const platform::Value& value);

}  // namespace engine
