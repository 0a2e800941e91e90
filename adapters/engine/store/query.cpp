#include "engine/store/query.h"

#include "engine/values/iso_date.h"

namespace engine {

using platform::Value;
using platform::ValueKind;

Query::Query(Channel& channel, SqlText& sql) {
  if (!sql.prepared || !sql.prepared->Free()) sql.prepared = channel.Prepare(sql.text);
  statement_ = sql.prepared;
  statement_->Begin();
}

Query::Query(Channel& channel, std::string_view sql) : statement_(channel.Prepare(sql)) { statement_->Begin(); }

void Query::Bind(int parameter, const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return BindNull(parameter);
    case ValueKind::Boolean:
      return Bind(parameter, std::int64_t{value.As<bool>() ? -1 : 0});
    case ValueKind::Byte:
      return Bind(parameter, std::int64_t{value.As<std::uint8_t>()});
    case ValueKind::Short:
      return Bind(parameter, std::int64_t{value.As<std::int16_t>()});
    case ValueKind::Long:
      return Bind(parameter, std::int64_t{value.As<std::int32_t>()});
    case ValueKind::Currency:
      return Bind(parameter, value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return Bind(parameter, value.As<double>());
    case ValueKind::Date:
      return Bind(parameter, std::string_view(IsoText(value.As<platform::Date>())));
    case ValueKind::Text:
      return Bind(parameter, std::string_view(value.As<std::string>()));
  }
}

void Query::Run() {
  while (Step()) {
  }
}

Value Query::Read(int column, platform::FieldType type) const {
  std::vector<Value> one;
  Append(one, column, std::span(&type, 1));
  return std::move(one.front());
}

std::optional<std::int64_t> AskNumber(Channel& channel, std::string_view sql) {
  Query query(channel, sql);
  if (!query.Step() || query.IsNull(0)) return {};
  return query.Int(0);
}

}  // namespace engine
