#include "engine/cursor/table_recordset.h"

#include <algorithm>
#include <array>

#include "engine/errors.h"
#include "engine/values/field_values.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;

const platform::FieldDefinition& FieldOf(const RowSource& source, const std::string& name) {
  const auto& fields = source.Plan().tables.front().table->definition.fields;
  return *std::ranges::find_if(fields, [&](const auto& field) { return platform::EqualsNoCase(field.name, name); });
}

// The list in the order of an index; of the row key itself when the index is on the Counter alone.
std::shared_ptr<IndexedList> ListFor(const std::shared_ptr<RowSource>& source, const platform::IndexDefinition* index) {
  IndexedList::Shape shape;
  shape.keepsPlaces = false;
  const PlanTable& table = source->Plan().tables.front();
  const bool onRowKey = index == nullptr || (index->fields.size() == 1 && FieldOf(*source, index->fields[0]).type == FieldType::Counter);
  if (!onRowKey) {
    for (const std::string& field : index->fields)
      shape.order.push_back({table.alias + '.' + source->OwnDialect().Name(field), FieldOf(*source, field).type});
    shape.index = index->name;
  }
  return std::make_shared<IndexedList>(source, std::move(shape));
}

// The fields that Seek's keys must become. A text that is too long for its field is no error there, it is simply not found.
std::vector<platform::FieldDefinition> KeyFields(const RowSource& source, const platform::IndexDefinition& index) {
  std::vector<platform::FieldDefinition> fields;
  for (const std::string& name : index.fields) {
    fields.push_back(FieldOf(source, name));
    if (fields.back().type == FieldType::Text) fields.back().type = FieldType::Memo;
  }
  return fields;
}

}  // namespace

TableRecordset::TableRecordset(RecordsetOwner& owner, std::string name, std::shared_ptr<RowSource> source)
    : Cursor(owner, std::move(name), platform::RecordsetType::Table, ListFor(source, nullptr)),
      source_(std::move(source)),
      rows_(std::static_pointer_cast<IndexedList>(SharedList())) {}

void TableRecordset::SetIndex(std::string_view name) {
  const auto& indexes = source_->Plan().tables.front().table->definition.indexes;
  const auto found = std::ranges::find_if(indexes, [&](const auto& index) { return platform::EqualsNoCase(index.name, name); });
  if (found == indexes.end()) throw errors::UnknownIndex(name);
  if (index_ != found->name) {
    keyFields_ = KeyFields(*source_, *found);
    index_ = found->name;
    rows_ = ListFor(source_, &*found);
  }
  Reorder(rows_);
}

void TableRecordset::Seek(std::string_view comparison, std::span<const Value> keys) {
  if (keyFields_.empty()) throw errors::NoCurrentIndex();
  constexpr std::array<std::string_view, 5> kComparisons{"=", ">=", ">", "<", "<="};
  if (std::ranges::find(kComparisons, comparison) == kComparisons.end() || keys.size() > keyFields_.size()) throw errors::InvalidOperation();
  OrderPlace target{KeysFor(keys), 0};
  DropEdit();
  Place place;
  const bool found = SeekRow(comparison, target, place);
  NoMatch(!found);
  if (found)
    BecomeCurrent(std::move(place));
  else
    StandNowhere();
}

std::vector<Value> TableRecordset::KeysFor(std::span<const Value> given) const {
  std::vector<Value> keys(keyFields_.size(), platform::Null);
  for (std::size_t i = 0; i < given.size(); ++i) keys[i] = ConvertForField(source_->Context().OwnClock(), keyFields_[i], given[i]);
  return keys;
}

// "=", ">=" and ">" look upwards for the first row, "<=" and "<" downwards. The row key's own extremes stand before and behind
// all rows of equal keys.
bool TableRecordset::SeekRow(std::string_view comparison, const OrderPlace& target, Place& place) {
  KeyWalker::Request request;
  OrderPlace from = target;
  request.direction = comparison[0] == '<' ? Direction::Down : Direction::Up;
  if (rows_->Walker().Order().empty()) {
    if (target.values[0].IsNull()) return request.direction == Direction::Up && comparison != "=" && rows_->First(place);
    const std::int64_t key = target.values[0].As<std::int32_t>();
    if (comparison == "=") return rows_->RowByKey(key, place);
    from = {{}, comparison == ">=" ? key - 1 : comparison == "<=" ? key + 1 : key};
  } else {
    from.rowKey = comparison == ">" || comparison == "<=" ? INT64_MAX : INT64_MIN;
    request.equalsOnly = comparison == "=";
  }
  request.from = &from;
  return rows_->NextRow(request, place);
}

std::shared_ptr<Cursor> TableRecordset::MakeClone() {
  // The same rows, but the clone has no index until it is given one.
  auto clone = std::make_shared<TableRecordset>(Owner(), Name(), source_);
  return clone;
}

}  // namespace engine
