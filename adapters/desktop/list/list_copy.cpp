#include "desktop/list/list_copy.h"

#include <algorithm>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {

constexpr int kDigitsToCopy = 4;

QString OneLine(QString text) {
  for (const char16_t blank : {u'\r', u'\n', u'\t'}) text.replace(QChar(blank), QChar(u' '));
  return text;
}

QString LastDigits(const QString& number) {
  QString digits;
  std::copy_if(number.begin(), number.end(), std::back_inserter(digits), [](QChar character) { return character.isDigit(); });
  return digits.right(kDigitsToCopy);
}

template <class Text>
QString Line(const std::vector<int>& columns, Text text) {
  QStringList cells;
  for (const int column : columns) cells << text(column);
  return cells.join(QChar(u'\t')) + QChar(u'\n');
}

}  // namespace

QString CopiedCell(const platform::Grid& grid, int column, const platform::ListRow& row) {
  const int field = grid.FieldIndexOf(column);
  if (field < 0 || static_cast<std::size_t>(field) >= row.cells.size()) return {};
  const QString text = OneLine(ToShown(grid.SeenText(column, row.cells[static_cast<std::size_t>(field)])));
  return grid.Column(column).lastFour ? LastDigits(text) : text;
}

QString CopiedHeadings(const platform::Grid& grid, const std::vector<int>& columns) {
  return Line(columns, [&](int column) { return OneLine(ToShown(grid.Column(column).caption)); });
}

QString CopiedRow(const platform::Grid& grid, const std::vector<int>& columns, const platform::ListRow& row) {
  return Line(columns, [&](int column) { return CopiedCell(grid, column, row); });
}

}  // namespace desktop
