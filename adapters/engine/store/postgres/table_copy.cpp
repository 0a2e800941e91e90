#include "engine/store/postgres/table_copy.h"

#include <array>
#include <cassert>
#include <charconv>

#include "engine/errors.h"
#include "engine/store/counter_field.h"
#include "engine/store/find_by_name.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/postgres/values/stored_text.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"
#include "engine/values/field_values.h"
#include "engine/values/iso_date.h"

namespace engine::postgres {
namespace {

using platform::Value;
using platform::ValueKind;

void AppendText(std::string& line, std::string_view text) {
  if (!IsStorable(text)) throw errors::DataConversion();
  for (const char c : text) {
    switch (c) {
      case '\\':
        line += "\\\\";
        break;
      case '\t':
        line += "\\t";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      default:
        line += c;
    }
  }
}

template <class Number>
void AppendNumber(std::string& line, Number number) {
  std::array<char, 32> buffer{};
  line.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr);
}

// The stored form in the words of COPY.
void AppendStored(std::string& line, const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      line += "\\N";
      return;
    case ValueKind::Boolean:
      line += value.As<bool>() ? "-1" : "0";
      return;
    case ValueKind::Byte:
      return AppendNumber(line, int{value.As<std::uint8_t>()});
    case ValueKind::Short:
      return AppendNumber(line, value.As<std::int16_t>());
    case ValueKind::Long:
      return AppendNumber(line, value.As<std::int32_t>());
    case ValueKind::Currency:
      return AppendNumber(line, value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return AppendNumber(line, value.As<double>());
    case ValueKind::Date:
      return AppendText(line, IsoText(value.As<platform::Date>()));
    case ValueKind::Text:
      return AppendText(line, value.As<std::string>());
  }
}

std::string Own(const std::string& schema, const std::string& table) { return QuoteName(schema) + '.' + QuoteName(table); }

}  // namespace

TableCopy::TableCopy(ServerConnection& connection, const std::string& schema, const platform::TableDefinition& table,
                     std::span<const std::string> fields)
    : connection_(connection), schema_(schema), table_(table) {
  std::string names;
  for (const std::string& name : fields) {
    const platform::FieldDefinition* const field = FindByName(table_.fields, name);
    if (field == nullptr) throw platform::error::ItemNotFound();
    fields_.push_back(*field);
    names += (names.empty() ? "" : ", ") + QuoteName(field->name);
  }
  rows_ = connection_.Copy("COPY " + Own(schema_, table_.name) + " (" + names + ") FROM STDIN", schema_);
}

void TableCopy::Add(std::span<const Value> row) {
  assert(row.size() == fields_.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) lines_ += '\t';
    AppendStored(lines_, ConvertForField(LocalNow, fields_[i], row[i]));
  }
  lines_ += '\n';
  constexpr std::size_t kAtOnce = 64 * 1024;
  if (lines_.size() < kAtOnce) return;
  rows_->Put(lines_);
  lines_.clear();
}

void TableCopy::Finish() {
  rows_->Put(lines_);
  lines_.clear();
  const std::optional<Failure> failure = rows_->End();
  rows_.reset();
  if (failure) connection_.Raise(*failure, Doing::Writing, schema_);
  const platform::FieldDefinition* const counter = CounterOf(table_);
  if (counter == nullptr || FindByName(fields_, counter->name) == nullptr) return;
  const auto highest = AskNumber(connection_, "SELECT max(" + QuoteName(counter->name) + ") FROM " + Own(schema_, table_.name));
  if (highest) RaiseSequence(connection_, schema_, table_.name, *highest);
}

void RaiseSequence(ServerConnection& connection, const std::string& schema, const std::string& table, std::int64_t last) {
  if (last <= 0) return;
  const std::string sequence = SequenceOf(schema, table);
  // A sequence that has given no number yet stands on its first one.
  Query(connection, std::string_view("SELECT setval(" + QuoteText(sequence) + ", greatest(" + std::to_string(last) +
                                     ", CASE WHEN is_called THEN last_value ELSE 1 END)) FROM " + sequence))
      .Run();
}

}  // namespace engine::postgres
