#include "records/columns.h"

namespace orcussch::column {

using platform::GridColumn;
using platform::Value;

GridColumn Plain(const char* caption, const char* field) { return {caption, field, "", {}, false, true, true, 0}; }

GridColumn Closed(GridColumn column) {
  column.open = false;
  return column;
}

GridColumn Limited(GridColumn column, int characters) {
  column.entryLimit = characters;
  return column;
}

GridColumn Formatted(const char* caption, const char* field, const char* format) {
  GridColumn column = Plain(caption, field);
  column.numberFormat = format;
  return column;
}

GridColumn Money(const char* caption, const char* field) { return Formatted(caption, field, "Currency"); }

GridColumn Percent(const char* caption, const char* field) {
  GridColumn column = Plain(caption, field);
  column.percent = true;
  return column;
}

GridColumn CardNumber(const char* caption, const char* field) {
  GridColumn column = Plain(caption, field);
  column.lastFour = true;
  return column;
}

GridColumn Check(const char* caption, const char* field) {
  GridColumn column = Plain(caption, field);
  column.checkBox = true;
  return column;
}

GridColumn Coded(const char* caption, const char* field, std::vector<std::pair<Value, std::string>> items) {
  GridColumn column = Plain(caption, field);
  column.valueItems = std::move(items);
  return column;
}

}  // namespace orcussch::column
