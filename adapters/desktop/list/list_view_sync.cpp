#include <QAccessible>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>
#include <limits>
#include <utility>

#include "desktop/list/cell_editor.h"
#include "desktop/list/list_header.h"
#include "desktop/list/list_view.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

// How changes of the model come into view: they are noted at once and taken in together, at most once a frame.
namespace desktop {

using platform::Aspect;

namespace {
constexpr int kFrameMs = 16;
constexpr int kSpareRows = 2;
}  // namespace

void ListView::Show(Aspect aspect) {
  if (!grid_) return;
  switch (aspect) {
    case Aspect::Text:
      caption_->setText(ToShown(grid_->Caption()));
      caption_->setVisible(!grid_->Caption().empty());
      setAccessibleName(ToShown(grid_->Caption()));
      PlaceHeader();
      break;
    case Aspect::List:
      listChanged_ = currentChanged_ = cellChanged_ = true;
      break;
    case Aspect::CurrentRow:
      currentChanged_ = true;
      break;
    case Aspect::RowContent:
      NoteWrittenRow();
      break;
    case Aspect::Columns:
      if (columns_.PlaceCount() == 0) DefineColumns();
      TakeLeftColumn();
      break;
    case Aspect::OpenCell:
      cellChanged_ = true;
      break;
    default:
      break;
  }
  Wish();
}

void ListView::Wish() {
  if (!grid_ || wish_.isActive()) return;
  const auto passed = static_cast<int>(std::min<qint64>(sincePaint_.elapsed(), kFrameMs));
  wish_.start(kFrameMs - passed);
}

void ListView::Sync() {
  if (!grid_ || !services_ || services_->PaintingOnly()) return;
  Safely(Host(), [this] {
    if (listChanged_) SyncList();
    SyncContent();
    UpdateRange();
    SyncEmphasis();
    if (currentChanged_) SyncCurrent();
    if (cellChanged_) SyncOpenCell();
  });
}

/// The list may stand on another row by the next frame, and on many before that.
void ListView::NoteWrittenRow() {
  if (anyWritten_) return;
  try {
    if (!grid_->Data() || !grid_->Data()->HasRecordset()) return;
    platform::Bookmark row = grid_->CurrentBookmark();
    if (written_.empty() || written_.back() != row) written_.push_back(std::move(row));
    anyWritten_ = written_.size() > ListRows::kMost;
  } catch (const platform::Error&) {
    anyWritten_ = true;  // a row that was deleted has no bookmark any more
  }
}

void ListView::SyncContent() {
  std::vector<platform::Bookmark> rows = std::exchange(written_, {});
  if (std::exchange(anyWritten_, false)) rows = rows_.HeldRows();
  for (const platform::Bookmark& row : rows)
    if (!rows_.Reread(row)) currentChanged_ = true;
}

void ListView::SyncList() {
  listChanged_ = false;
  rows_.Forget();
  written_.clear();
  anyWritten_ = false;
  current_.reset();
  currentOrdinal_.reset();
  hasList_ = grid_->Data() && grid_->Data()->Window();
  const auto count = static_cast<std::size_t>(grid_->ColumnCount());
  fieldOf_.assign(count, -1);
  figure_.assign(count, false);
  if (hasList_) {
    const auto& fields = grid_->Data()->Recordset()->Fields();
    for (std::size_t column = 0; column < count; ++column) {
      const int field = grid_->FieldIndexOf(static_cast<int>(column));
      fieldOf_[column] = field;
      const auto& design = grid_->Column(static_cast<int>(column));
      if (field < 0 || design.checkBox || !design.valueItems.empty()) continue;
      using platform::FieldType;
      const FieldType type = fields[static_cast<std::size_t>(field)].type;
      figure_[column] = type != FieldType::Text && type != FieldType::Memo && type != FieldType::Date && type != FieldType::Boolean;
    }
    emphasisField_ = -1;
    for (std::size_t field = 0; field < fields.size(); ++field)
      if (platform::EqualsNoCase(fields[field].name, grid_->EmphasisField())) emphasisField_ = static_cast<int>(field);
    sorted_ = SortHintOf(grid_->Data()->RecordSource());
    DefineColumns();
  }
  UpdateRange();
  PutBarAt(0);
  TakeLeftColumn();
  services_->WakeIdle();
}

void ListView::SyncCurrent() {
  currentChanged_ = false;
  current_.reset();
  currentOrdinal_.reset();
  try {
    if (hasList_ && grid_->Data()->OnRecord()) current_ = grid_->CurrentBookmark();
  } catch (const platform::Error&) {
    // No row to stand on.
  }
  if (!current_) return;
  if (rows_.Held() == 0) rows_.Need(0, WholeRowsShown() + kSpareRows);
  currentOrdinal_ = ScrollToRow(*current_);
  TellAccessibility();
}

/// Which rows stand out hangs on another list's row, so it is asked for whenever this list is looked at.
void ListView::SyncEmphasis() {
  auto now = grid_->Emphasized();
  if (now == emphasis_) return;
  emphasis_ = std::move(now);
  TellAccessibility();
  viewport()->update();
}

QString ListView::EmphasisOf(const ShownRow& row) const {
  const auto at = static_cast<std::size_t>(emphasisField_);
  if (emphasis_.empty() || emphasisField_ < 0 || at >= row.row.cells.size() || row.row.cells[at].IsNull()) return {};
  const std::int32_t key = platform::CLng(row.row.cells[at]);
  QStringList texts;
  for (const auto& [number, text] : emphasis_)
    if (number == key) texts << ToShown(text);
  return texts.join(", ");
}

std::optional<std::int64_t> ListView::ScrollToRow(const platform::Bookmark& row) {
  const auto ordinal = rows_.Find(row, WholeRowsShown() + kSpareRows);
  UpdateRange();
  if (ordinal) ScrollToOrdinal(*ordinal, true);
  return ordinal;
}

void ListView::TellAccessibility() {
  const ShownRow* row = currentOrdinal_ ? rows_.At(*currentOrdinal_) : nullptr;
  QStringList texts;
  for (int place = 0; row && place < std::min(3, columns_.PlaceCount()); ++place) {
    const int column = columns_.ColumnAt(place);
    const int field = fieldOf_[static_cast<std::size_t>(column)];
    if (field >= 0 && static_cast<std::size_t>(field) < row->row.cells.size())
      texts << CaptionOf(column) + " " + ToShown(grid_->SeenText(column, row->row.cells[static_cast<std::size_t>(field)]));
  }
  if (row && !EmphasisOf(*row).isEmpty()) texts << EmphasisOf(*row);
  if (accessibleDescription() != texts.join(", ")) setAccessibleDescription(texts.join(", "));
}

void ListView::UpdateRange() {
  if (!grid_) return;
  adjusting_ = true;
  const std::int64_t total = rows_.Count() * rowHeight_;
  const std::int64_t most = std::max<std::int64_t>(0, total - viewport()->height());
  verticalScrollBar()->setSingleStep(rowHeight_);
  verticalScrollBar()->setPageStep(std::max(rowHeight_, viewport()->height() - rowHeight_));
  verticalScrollBar()->setRange(0, static_cast<int>(std::min<std::int64_t>(most, std::numeric_limits<int>::max())));
  const int room = viewport()->width() - MarkerWidth() - columns_.FixedWidth();
  const int last = columns_.PlaceCount() > columns_.FixedCount() ? columns_.LeftInGroup(columns_.PlaceCount() - 1) : 0;
  horizontalScrollBar()->setSingleStep(rowHeight_ * 2);
  horizontalScrollBar()->setPageStep(std::max(1, room));
  horizontalScrollBar()->setRange(0, last);
  const bool wide = columns_.ScrolledWidth() > room;
  setHorizontalScrollBarPolicy(wide ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  adjusting_ = false;
}

void ListView::PutBarAt(std::int64_t pixels) {
  adjusting_ = true;
  verticalScrollBar()->setValue(static_cast<int>(std::clamp<std::int64_t>(pixels, 0, verticalScrollBar()->maximum())));
  adjusting_ = false;
}

void ListView::ScrollToOrdinal(std::int64_t ordinal, bool centre) {
  const std::int64_t top = TopPixel();
  const std::int64_t height = viewport()->height();
  const std::int64_t y = ordinal * rowHeight_;
  if (y >= top && y + rowHeight_ <= top + height) return;
  const bool far = y < top - height || y > top + 2 * height;
  const std::int64_t above = centre && far ? (height - rowHeight_) / 2 : height - rowHeight_;
  // The first row in view is a whole one.
  PutBarAt(y < top && !(centre && far) ? y : (y - above + rowHeight_ - 1) / rowHeight_ * rowHeight_);
}

bool ListView::IdleSlice() {
  platform::RowWindow* window = grid_ && grid_->Data() ? grid_->Data()->Window() : nullptr;
  if (!window) return false;
  bool left = false;
  try {
    left = window->IdleSlice();
    if (listChanged_ || !hasList_) return left;
    const bool known = rows_.CountIsExact();
    if (known || (left && !window->CountIsExact())) return left;
    const std::int64_t top = TopPixel();
    const std::int64_t moved = rows_.Settle();
    if (currentOrdinal_) *currentOrdinal_ += moved;
    UpdateRange();
    if (moved != 0) PutBarAt(top + moved * rowHeight_);
    Wish();
  } catch (const platform::Error&) {
    return false;
  }
  return left;
}

void ListView::SyncOpenCell() {
  cellChanged_ = false;
  const auto open = grid_->OpenCell();
  if (!open || grid_->Column(*open).checkBox || !currentOrdinal_) {
    if (editor_) {
      const bool had = editor_->hasFocus();
      static_cast<CellEditor*>(editor_.data())->Close();
      editor_.clear();
      if (had) setFocus(Qt::OtherFocusReason);
    }
    return;
  }
  ScrollToColumn(*open);
  const QRect cell = CellRect(*currentOrdinal_, *open);
  if (!editor_ || editorColumn_ != *open) {
    if (editor_) static_cast<CellEditor*>(editor_.data())->Close();
    auto* made = NewWidget<CellEditor>(viewport());
    editor_ = made;
    editorColumn_ = *open;
    made->setAccessibleName(CaptionOf(*open));
    if (const int limit = grid_->Column(*open).entryLimit; limit > 0) made->setMaxLength(limit);
    made->onText = [this](const QString& text) {
      if (grid_) grid_->UserCellText(ToUtf8(text));
    };
    made->onKey = [this](const QKeyEvent& event) { return grid_ && (!grid_->OpenCell() || TakeKey(event)); };
    QStringList offers;
    for (const auto& [code, text] : grid_->Column(*open).valueItems) offers << ToShown(text);
    if (!offers.isEmpty()) made->Offer(offers);
  }
  auto* edit = static_cast<CellEditor*>(editor_.data());
  edit->setGeometry(cell.isEmpty() ? QRect(-1000, 0, 10, rowHeight_) : cell);
  const QString text = ToShown(grid_->OpenText());
  if (edit->text() != text) edit->setText(text);
  const bool fresh = !edit->isVisible();
  edit->show();
  if (fresh) edit->setFocus(Qt::OtherFocusReason), edit->selectAll();
}

}  // namespace desktop
