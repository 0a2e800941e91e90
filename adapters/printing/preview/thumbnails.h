#pragma once

#include <QAbstractListModel>
#include <QCache>
#include <QListView>
#include <QStyledItemDelegate>

#include "printing/output/page_painter.h"
#include "printing/output/page_spool.h"

namespace printing {

/// The pages in small, below each other; one that is chosen is shown in large.
class Thumbnails final : public QListView {
  Q_OBJECT

 public:
  Thumbnails(const PageSpool& pages, const FontSet& fonts, QWidget* parent);

  void PagesChanged();
  void ShowCurrent(std::int64_t page);

 signals:
  void Chosen(std::int64_t page);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  class Rows;
  class Drawing;
  Rows* rows_ = nullptr;
  bool showing_ = false;
};

}  // namespace printing
