#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/list/column_layout.h"
#include "desktop/list/list_rows.h"
#include "desktop/list/sort_hint.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/grid.h"
#include "platform/keys/list_keys.h"
#include "platform/services/list_export.h"

namespace desktop {

class CellEditor;
class ListHeader;
class Services;
class TextEdit;

/// A list of any length: a window of rows under a scroll bar of its own, the first columns fixed, headings that order, move
/// and resize. It holds no state per row beyond the window, never measures the list by its content, and its painting asks
/// the engine only for the window, never raises and never opens a box.
///
/// Property of the layout: "fixedColumns" (number).
class ListView final : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit ListView(QWidget* parent = nullptr);
  ~ListView() override;

  void Attach(platform::Grid& grid, Services& services);
  void Detach();
  platform::Grid* Model() const noexcept { return grid_; }
  void Show(platform::Aspect aspect);
  bool IdleSlice();

  // For the heading, the hands and tests.
  /// The column of the cell that keys act on; -1 without any.
  int CursorColumn() const { return grid_ ? grid_->CursorColumn() : -1; }
  const ColumnLayout& Columns() const noexcept { return columns_; }
  ListRows& Rows() noexcept { return rows_; }
  ListHeader& Header() const noexcept { return *header_; }
  int HorizontalOffset() const;
  int MarkerWidth() const;
  int RowHeight() const noexcept { return rowHeight_; }
  bool MarksRows() const { return grid_ && grid_->MarksRows(); }
  const std::optional<SortHint>& Sorted() const noexcept { return sorted_; }
  std::string FieldOf(int column) const;
  QString CaptionOf(int column) const;
  bool IsFigure(int column) const;
  /// Brings what was changed in the models into view now.
  void Sync();
  void ScrollToOrdinal(std::int64_t ordinal, bool centre);
  /// Brings a row into view and returns its ordinal; nothing when it is not in the list.
  std::optional<std::int64_t> ScrollToRow(const platform::Bookmark& row);
  void ScrollToColumn(int column);
  /// Where a cell is shown in the viewport; empty when it is out of view.
  QRect CellRect(std::int64_t ordinal, int column) const;
  QRect MarkerRect(std::int64_t ordinal) const;
  QRect CheckRect(const QRect& cell) const;
  CellEditor* Editor() const;
  std::int64_t FirstShown() const;
  int WholeRowsShown() const;

  // Acts of the heading.
  void HeadClicked(int column);
  void ColumnResized(int column, int width);
  void ColumnMoved(int column, int place);
  void FitColumn(int column);
  void HeadMenu(const QPoint& global, int column = -1);
  /// Asks for a file and writes the list into it: all rows, the columns that are shown, in the order that is shown.
  void ExportList();
  bool CanExport() const;
  /// The menu of the current row; `column` is that of the cell.
  void RowMenu(const QPoint& global, int column);
  /// The order of the columns and those that are not shown, by field name; kept for the user.
  void ArrangeColumns(const std::vector<std::string>& order, const std::vector<std::string>& hidden);
  /// What the row stands out for, as a sentence for the user; empty for most rows.
  QString EmphasisOf(const ShownRow& row) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool event(QEvent* event) override;

 private:
  friend class ListPainter;

  platform::FormHost& Host() const { return grid_->Owner().Host(); }
  template <class Body>
  void Act(Body&& body);
  /// An act that runs from the event loop, after whatever runs now.
  void Later(std::function<void(platform::Grid&)> act);

  // What changed since the last Sync.
  void Wish();
  void SyncList();
  void SyncContent();
  void SyncCurrent();
  void SyncEmphasis();
  void SyncOpenCell();
  void NoteWrittenRow();
  void TellAccessibility();
  void UpdateRange();
  void PutBarAt(std::int64_t pixels);
  std::int64_t TopPixel() const;

  // Columns.
  void DefineColumns();
  void PlaceHeader();
  void TakeLeftColumn();
  void TellLeftColumn();
  std::vector<ColumnSpec> Specs() const;
  int DefaultWidth(int column) const;
  void KeepOrder();
  void ResetColumns();
  QString SettingsName() const;

  // Keys and clicks.
  bool TakeKey(const QKeyEvent& event);
  void TypeIntoSearchBox(const QKeyEvent& event);
  std::vector<int> ShownColumns() const;
  platform::ListShown Shown() const;
  bool CopyKey(const QKeyEvent& event);
  void EditCell(int column);
  TextEdit* SearchBox() const;
  void ClickForMenu(std::int64_t ordinal, int x);
  void CopyCell(int column);
  /// The marked rows, else the current one, under their headings.
  void CopyRows();
  platform::ExportedList Exported(const platform::Grid& grid) const;
  void ExportTo(const platform::Grid& grid, const QString& path);
  void ChooseColumns();
  void MoveCellCursor(int step);
  std::optional<std::int64_t> OrdinalAt(int y) const;
  /// False when the row did not become the current one.
  bool ClickRow(std::int64_t ordinal, int x, Qt::KeyboardModifiers modifiers);
  void Mark(std::int64_t ordinal, Qt::KeyboardModifiers modifiers, bool plainReplaces);
  std::vector<platform::Bookmark> Marked() const;
  void ToggleCheck(int column);
  bool IsOpen(int column) const;

  platform::Grid* grid_ = nullptr;
  Services* services_ = nullptr;
  ListHeader* header_;
  QLabel* caption_;
  QWidget* aboveBar_ = nullptr;  ///< as high as caption and headings
  ListRows rows_;
  ColumnLayout columns_;
  std::vector<int> fieldOf_;  ///< design column -> place in the row's cells, -1 if the list lacks it
  std::vector<bool> figure_;  ///< design column -> right-aligned
  std::optional<SortHint> sorted_;
  int emphasisField_ = -1;                                      ///< place in the row's cells
  std::vector<std::pair<std::int32_t, std::string>> emphasis_;  ///< rows that stand out, by the number there
  std::optional<platform::Bookmark> current_;
  std::optional<std::int64_t> currentOrdinal_;
  QPointer<QWidget> editor_;
  int editorColumn_ = -1;
  QTimer wish_;
  QElapsedTimer sincePaint_;
  int rowHeight_ = 22;
  bool listChanged_ = false;
  bool currentChanged_ = false;
  std::vector<platform::Bookmark> written_;  ///< since the last Sync
  bool anyWritten_ = false;                  ///< there may be others that were written
  bool cellChanged_ = false;
  bool adjusting_ = false;  ///< scroll bars are being set by us
  bool hasList_ = false;
};

}  // namespace desktop
