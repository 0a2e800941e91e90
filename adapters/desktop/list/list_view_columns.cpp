#include <QScrollBar>
#include <algorithm>

#include "desktop/list/list_header.h"
#include "desktop/list/list_view.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"
#include "platform/controls/form/form.h"

// Columns: what the design gives, what the user made of them, and sideways scrolling.
namespace desktop {

namespace {
constexpr int kCellPadding = 14;
constexpr int kHeadExtra = 30;  ///< padding and the arrow
constexpr int kMostTextCharacters = 26;
constexpr int kLeastTextCharacters = 4;
constexpr int kFigureCharacters = 9;
constexpr int kMoneyCharacters = 12;
constexpr int kDateCharacters = 11;
constexpr int kMostFitWidth = 600;
}  // namespace

std::string ListView::FieldOf(int column) const { return grid_ ? grid_->Column(column).dataField : ""; }

QString ListView::CaptionOf(int column) const { return grid_ ? ToShown(grid_->Column(column).caption) : QString(); }

bool ListView::IsFigure(int column) const {
  const auto at = static_cast<std::size_t>(column);
  return at < figure_.size() && figure_[at];
}

QString ListView::SettingsName() const { return ToShown(grid_->Owner().Name()) + "." + objectName(); }

/// From the field's width, within reason, and never below what a short heading needs.
int ListView::DefaultWidth(int column) const {
  const platform::GridColumn& design = grid_->Column(column);
  const QFontMetrics metrics = fontMetrics();
  const int character = metrics.averageCharWidth();
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  const int heading = QFontMetrics(bold).horizontalAdvance(CaptionOf(column)) + kHeadExtra;
  if (design.checkBox) return heading;
  if (design.width > 0) return design.width * character + kCellPadding;
  int characters = kFigureCharacters;
  const auto at = static_cast<std::size_t>(column);
  if (hasList_ && at < fieldOf_.size() && fieldOf_[at] >= 0) {
    const platform::FieldInfo& field = grid_->Data()->Recordset()->Fields()[static_cast<std::size_t>(fieldOf_[at])];
    using platform::FieldType;
    if (field.type == FieldType::Text) characters = std::clamp(field.size, kLeastTextCharacters, kMostTextCharacters);
    if (field.type == FieldType::Memo) characters = kMostTextCharacters;
    if (field.type == FieldType::Currency) characters = kMoneyCharacters;
    if (field.type == FieldType::Date) characters = kDateCharacters;
  }
  for (const auto& [code, text] : design.valueItems) characters = std::max(characters, static_cast<int>(text.size()));
  // Short fields hold codes and figures, which are wide; long ones are seldom full.
  constexpr int kShortField = 12;
  const int wide = std::max(character, metrics.horizontalAdvance('0'));
  if (characters <= kShortField) return std::max(heading, characters * wide + kCellPadding);
  return std::max(heading, characters * character + kCellPadding);
}

std::vector<ColumnSpec> ListView::Specs() const {
  std::vector<ColumnSpec> specs;
  specs.reserve(static_cast<std::size_t>(grid_->ColumnCount()));
  for (int column = 0; column < grid_->ColumnCount(); ++column)
    specs.push_back({grid_->Column(column).dataField, DefaultWidth(column), grid_->Column(column).visible});
  return specs;
}

void ListView::DefineColumns() {
  const int fixed = grid_->SplitCount() > 1 ? property("fixedColumns").toInt() : 0;
  columns_.Reset(Specs(), fixed);
  const Settings& kept = services_->Kept();
  std::vector<std::string> order;
  for (const QString& field : kept.ColumnOrder(SettingsName())) order.push_back(ToUtf8(field));
  if (!order.empty()) columns_.OrderBy(order);
  std::vector<std::string> hidden;
  for (const QString& field : kept.HiddenColumns(SettingsName())) hidden.push_back(ToUtf8(field));
  columns_.Hide(hidden);
  for (int column = 0; column < grid_->ColumnCount(); ++column)
    if (const auto width = kept.ColumnWidth(SettingsName(), ToShown(FieldOf(column)))) columns_.Width(column, *width);
  UpdateRange();
  header_->update();
}

void ListView::ResetColumns() {
  if (!grid_) return;
  services_->Kept().ForgetColumns(SettingsName());
  DefineColumns();
  viewport()->update();
}

void ListView::KeepOrder() {
  QStringList fields;
  for (const std::string& field : columns_.FieldsInOrder()) fields << ToShown(field);
  services_->Kept().KeepColumnOrder(SettingsName(), fields);
}

void ListView::ArrangeColumns(const std::vector<std::string>& order, const std::vector<std::string>& hidden) {
  if (!grid_) return;
  columns_.OrderBy(order);
  columns_.Hide(hidden);
  KeepOrder();
  QStringList fields;
  for (const std::string& field : columns_.HiddenFields()) fields << ToShown(field);
  services_->Kept().KeepHiddenColumns(SettingsName(), fields);
  if (!columns_.PlaceOf(CursorColumn())) grid_->CursorColumn(columns_.ColumnAt(0));
  UpdateRange();
  TellLeftColumn();
  header_->update();
  viewport()->update();
}

void ListView::ColumnResized(int column, int width) {
  if (!grid_) return;
  columns_.Width(column, width);
  services_->Kept().KeepColumnWidth(SettingsName(), ToShown(FieldOf(column)), columns_.Width(column));
  UpdateRange();
  header_->update();
  viewport()->update();
}

void ListView::ColumnMoved(int column, int place) {
  if (!grid_ || !columns_.Move(column, place)) return;
  KeepOrder();
  header_->update();
  viewport()->update();
}

/// As wide as what is in view needs; the list as a whole is never measured.
void ListView::FitColumn(int column) {
  if (!grid_) return;
  int width = fontMetrics().horizontalAdvance(CaptionOf(column)) + kHeadExtra;
  const auto at = static_cast<std::size_t>(column);
  for (std::int64_t ordinal = FirstShown(); ordinal <= FirstShown() + WholeRowsShown(); ++ordinal) {
    const ShownRow* row = rows_.At(ordinal);
    if (row && at < row->known.size() && row->known[at])
      width = std::max(width, fontMetrics().horizontalAdvance(row->texts[at]) + kCellPadding);
  }
  ColumnResized(column, std::min(width, kMostFitWidth));
}

void ListView::ScrollToColumn(int column) {
  const auto place = columns_.PlaceOf(column);
  if (!place || columns_.IsFixed(*place)) return;
  const int left = columns_.LeftInGroup(*place);
  const int room = viewport()->width() - MarkerWidth() - columns_.FixedWidth();
  const int offset = HorizontalOffset();
  if (left < offset) {
    horizontalScrollBar()->setValue(left);
  } else if (left + columns_.Width(column) > offset + room) {
    horizontalScrollBar()->setValue(std::min(left, left + columns_.Width(column) - room));
  }
}

/// The model's first scrolled column comes to the left; one that is there already stays as the user has it.
void ListView::TakeLeftColumn() {
  if (!grid_ || columns_.PlaceCount() == 0) return;
  const int split = grid_->SplitCount() - 1;
  const auto wanted = grid_->LeftCol(split);
  const auto place = wanted < grid_->ColumnCount() ? columns_.PlaceOf(wanted) : std::nullopt;
  const bool start = !place || columns_.IsFixed(*place);
  if (!start && columns_.ScrolledPlaceAt(HorizontalOffset()) == *place) return;
  adjusting_ = true;
  horizontalScrollBar()->setValue(start ? 0 : columns_.LeftInGroup(*place));
  adjusting_ = false;
}

void ListView::TellLeftColumn() {
  if (!grid_) return;
  const int place = columns_.ScrolledPlaceAt(HorizontalOffset());
  if (place < 0) return;
  const int column = columns_.ColumnAt(place);
  const int split = grid_->SplitCount() - 1;
  if (grid_->LeftCol(split) == column) return;
  Safely(Host(), [&] { grid_->UserScroll(split, column); });
}

}  // namespace desktop
