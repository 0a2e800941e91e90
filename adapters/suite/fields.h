#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/table_definition.h"

/// Short words for table definitions. Numbers start at 0 and Booleans at False; the words with "Null" start at Null, as
/// texts, memos and dates do.
namespace suite::fields {

using platform::FieldDefinition;
using platform::FieldType;
using platform::IndexDefinition;
using platform::Value;

inline FieldDefinition Counter(std::string name) { return {std::move(name), FieldType::Counter, 0, platform::Null}; }
inline FieldDefinition Text(std::string name, int width) { return {std::move(name), FieldType::Text, width, platform::Null}; }
inline FieldDefinition Memo(std::string name) { return {std::move(name), FieldType::Memo, 0, platform::Null}; }
inline FieldDefinition Date(std::string name) { return {std::move(name), FieldType::Date, 0, platform::Null}; }
inline FieldDefinition Byte(std::string name) { return {std::move(name), FieldType::Byte, 0, Value(std::uint8_t{0})}; }
inline FieldDefinition Short(std::string name) { return {std::move(name), FieldType::Short, 0, Value(std::int16_t{0})}; }
inline FieldDefinition ShortOrNull(std::string name) { return {std::move(name), FieldType::Short, 0, platform::Null}; }
inline FieldDefinition Long(std::string name) { return {std::move(name), FieldType::Long, 0, Value(std::int32_t{0})}; }
inline FieldDefinition LongOrNull(std::string name) { return {std::move(name), FieldType::Long, 0, platform::Null}; }
inline FieldDefinition Double(std::string name) { return {std::move(name), FieldType::Double, 0, Value(0.0)}; }
inline FieldDefinition Money(std::string name) { return {std::move(name), FieldType::Currency, 0, Value(platform::Currency{0})}; }
inline FieldDefinition MoneyOrNull(std::string name) { return {std::move(name), FieldType::Currency, 0, platform::Null}; }
inline FieldDefinition Flag(std::string name) { return {std::move(name), FieldType::Boolean, 0, Value(false)}; }
inline FieldDefinition FlagOrNull(std::string name) { return {std::move(name), FieldType::Boolean, 0, platform::Null}; }

inline IndexDefinition Primary(std::string name, std::vector<std::string> keys) { return {std::move(name), std::move(keys), true, true}; }
inline IndexDefinition Unique(std::string name, std::vector<std::string> keys) { return {std::move(name), std::move(keys), true, false}; }
inline IndexDefinition Index(std::string name, std::vector<std::string> keys) { return {std::move(name), std::move(keys), false, false}; }

}  // namespace suite::fields

namespace suite {
/// Tables of "customer.zdb"; the customer table alone, without the indexes that only speed needs.
std::vector<platform::TableDefinition> CustomerFileTables();
platform::TableDefinition CustomersTable();
}  // namespace suite
