#include "printing/preview/thumbnails.h"

#include <QPainter>
#include <algorithm>
#include <limits>

#include "printing/preview/look.h"

namespace printing {

namespace {

constexpr int kPaperWidth = 104;
constexpr int kMargin = 12;
constexpr int kPicturesKept = 80;

}  // namespace

class Thumbnails::Rows final : public QAbstractListModel {
 public:
  Rows(const PageSpool& pages, QObject* parent) : QAbstractListModel(parent), pages_(pages) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole) return tr("Page %1").arg(index.row() + 1);
    return {};
  }
  void Grow() {
    const auto now = static_cast<int>(std::min<std::int64_t>(pages_.Count(), std::numeric_limits<int>::max()));
    if (now <= rows_) return;
    beginInsertRows({}, rows_, now - 1);
    rows_ = now;
    endInsertRows();
  }

 private:
  const PageSpool& pages_;
  int rows_ = 0;
};

class Thumbnails::Drawing final : public QStyledItemDelegate {
 public:
  Drawing(const PageSpool& pages, const FontSet& fonts, QObject* parent)
      : QStyledItemDelegate(parent), pages_(pages), painting_(fonts), pictures_(kPicturesKept) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {kPaperWidth + 2 * kMargin, PaperHeight() + kMargin + option.fontMetrics.height() + 6};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QRect paper(option.rect.x() + (option.rect.width() - kPaperWidth) / 2, option.rect.y() + kMargin / 2, kPaperWidth, PaperHeight());
    const bool chosen = (option.state & QStyle::State_Selected) != 0;
    const int frame = chosen ? 3 : 1;
    painter->fillRect(paper.adjusted(-frame, -frame, frame, frame),
                      chosen ? option.palette.color(QPalette::Active, QPalette::Highlight) : look::PaperEdge(option.palette));
    painter->drawPixmap(paper.topLeft(), Picture(index.row(), painter->device()->devicePixelRatio()));
    painter->setPen(option.palette.color(QPalette::Active, QPalette::WindowText));
    painter->drawText(QRect(option.rect.x(), paper.bottom() + 4, option.rect.width(), option.fontMetrics.height()), Qt::AlignCenter,
                      QString::number(index.row() + 1));
  }

 private:
  int PaperHeight() const {
    if (height_ == 0 && pages_.Count() > 0) {
      const Page first = pages_.Read(0);
      height_ = static_cast<int>(kPaperWidth * first.height / first.width);
    }
    return height_ > 0 ? height_ : kPaperWidth;
  }

  QPixmap Picture(int page, double ratio) const {
    if (const QPixmap* kept = pictures_.object(page)) return *kept;
    QPixmap picture(QSize(kPaperWidth, PaperHeight()) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const Page content = pages_.Read(page);
    painting_.Paint(painter, content, kPaperWidth / content.width, 0);
    painter.end();
    pictures_.insert(page, std::make_unique<QPixmap>(picture).release());
    return picture;
  }

  const PageSpool& pages_;
  mutable PagePainter painting_;
  mutable QCache<int, QPixmap> pictures_;
  mutable int height_ = 0;
};

Thumbnails::Thumbnails(const PageSpool& pages, const FontSet& fonts, QWidget* parent) : QListView(parent) {
  setObjectName(QStringLiteral("previewThumbnails"));
  setAccessibleName(tr("Pages in small"));
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(true);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFixedWidth(kPaperWidth + 2 * kMargin + 24);
  rows_ = look::New<Rows>(static_cast<QObject*>(this), pages);
  setModel(rows_);
  setItemDelegate(look::New<Drawing>(static_cast<QObject*>(this), pages, fonts));
}

void Thumbnails::PagesChanged() {
  const bool first = rows_->rowCount() == 0;
  rows_->Grow();
  if (first) ShowCurrent(0);
}

void Thumbnails::ShowCurrent(std::int64_t page) {
  if (page < 0 || page >= rows_->rowCount()) return;
  showing_ = true;
  setCurrentIndex(rows_->index(static_cast<int>(page)));
  showing_ = false;
}

void Thumbnails::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  if (!showing_ && current.isValid()) emit Chosen(current.row());
}

}  // namespace printing
