#include <QKeyEvent>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QValidator>
#include <algorithm>
#include <array>

#include "printing/preview/look.h"
#include "printing/preview/preview_window.h"

namespace printing {

namespace {

constexpr std::array<int, 9> kZooms = {25, 50, 75, 100, 125, 150, 200, 300, 400};

}  // namespace

QAction* PreviewWindow::Add(QMenu& menu, const QString& name, const QString& text, const QList<QKeySequence>& keys,
                            std::function<void()> act) {
  QAction* action = menu.addAction(text, this, [act = std::move(act)] { act(); });
  action->setObjectName("preview" + name);
  action->setShortcuts(keys);
  QString icon = name;
  icon[0] = icon[0].toLower();
  action->setIcon(look::Icon(icon));
  QString tip = text;
  tip.remove('&').remove(QStringLiteral("…"));
  if (!keys.isEmpty()) tip += QStringLiteral(" (%1)").arg(keys.front().toString(QKeySequence::NativeText));
  action->setToolTip(tip);
  return action;
}

QAction& PreviewWindow::Action(const char* name) const { return *findChild<QAction*>(QLatin1String(name)); }

void PreviewWindow::MakeActions() {
  QMenu& file = *menuBar()->addMenu(tr("&File"));
  Add(file, QStringLiteral("Print"), tr("&Print…"), {QKeySequence::Print}, [this] { PrintPages(); });
  QMenu& exports = *file.addMenu(look::Icon(QStringLiteral("export")), tr("&Export"));
  exports.setObjectName(QStringLiteral("previewExport"));
  Add(exports, QStringLiteral("Pdf"), tr("&PDF…"), {Qt::CTRL | Qt::Key_S}, [this] { ExportTo(QStringLiteral("pdf")); });
  Add(exports, QStringLiteral("Csv"), tr("&CSV, one row a detail…"), {}, [this] { ExportTo(QStringLiteral("csv")); });
  Add(exports, QStringLiteral("Xlsx"), tr("&Workbook (XLSX)…"), {}, [this] { ExportTo(QStringLiteral("xlsx")); });
  file.addSeparator();
  Add(file, QStringLiteral("Close"), tr("&Close"), {Qt::CTRL | Qt::Key_W}, [this] { close(); });

  QMenu& edit = *menuBar()->addMenu(tr("&Edit"));
  Add(edit, QStringLiteral("Copy"), tr("&Copy"), {QKeySequence::Copy}, [this] { CopySelection(); });
  Add(edit, QStringLiteral("SelectPage"), tr("Select &page"), {QKeySequence::SelectAll}, [this] { view_->SelectPage(); });
  edit.addSeparator();
  Add(edit, QStringLiteral("Find"), tr("&Find"), {QKeySequence::Find}, [this] {
    findEdit_->setFocus(Qt::ShortcutFocusReason);
    findEdit_->selectAll();
  });
  Add(edit, QStringLiteral("FindNext"), tr("Find &next"), {Qt::Key_F3}, [this] { Find(true); });
  Add(edit, QStringLiteral("FindPrevious"), tr("Find pre&vious"), {Qt::SHIFT | Qt::Key_F3}, [this] { Find(false); });

  QMenu& shown = *menuBar()->addMenu(tr("&View"));
  Add(shown, QStringLiteral("ZoomIn"), tr("Zoom &in"), {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [this] { StepZoom(true); });
  Add(shown, QStringLiteral("ZoomOut"), tr("Zoom &out"), {Qt::CTRL | Qt::Key_Minus}, [this] { StepZoom(false); });
  Add(shown, QStringLiteral("Zoom100"), tr("&Real size"), {Qt::CTRL | Qt::Key_1}, [this] { view_->SetZoom(1); });
  Add(shown, QStringLiteral("FitPage"), tr("Fit &page"), {Qt::CTRL | Qt::Key_0}, [this] {
    view_->SetFit(PageView::Fit::Page);
  })->setCheckable(true);
  Add(shown, QStringLiteral("FitWidth"), tr("Fit &width"), {Qt::CTRL | Qt::Key_2}, [this] {
    view_->SetFit(PageView::Fit::Width);
  })->setCheckable(true);
  shown.addSeparator();
  QAction* small = Add(shown, QStringLiteral("Thumbnails"), tr("Pages in &small"), {Qt::Key_F4},
                       [this] { thumbnails_->setVisible(!thumbnails_->isVisibleTo(this)); });
  small->setCheckable(true);
  small->setChecked(true);

  QMenu& go = *menuBar()->addMenu(tr("&Go"));
  Add(go, QStringLiteral("First"), tr("&First page"), {Qt::CTRL | Qt::Key_Home}, [this] { view_->GoTo(0); });
  Add(go, QStringLiteral("Previous"), tr("&Previous page"), {}, [this] { view_->GoTo(view_->CurrentPage() - 1); });
  Add(go, QStringLiteral("Next"), tr("&Next page"), {}, [this] { view_->GoTo(view_->CurrentPage() + 1); });
  Add(go, QStringLiteral("Last"), tr("&Last page"), {Qt::CTRL | Qt::Key_End}, [this] { view_->GoTo(run_->Pages().Count() - 1); });
  go.addSeparator();
  Add(go, QStringLiteral("GoTo"), tr("&Go to page"), {Qt::CTRL | Qt::Key_G}, [this] {
    pageEdit_->setFocus(Qt::ShortcutFocusReason);
    pageEdit_->selectAll();
  });
}

void PreviewWindow::MakeToolBar() {
  QToolBar& bar = *addToolBar(tr("Preview"));
  bar.setObjectName(QStringLiteral("previewBar"));
  bar.setMovable(false);
  bar.setContextMenuPolicy(Qt::PreventContextMenu);
  const auto letter = fontMetrics().horizontalAdvance('0');
  const auto add = [&](std::initializer_list<const char*> names) {
    for (const char* name : names) bar.addAction(&Action(name));
  };
  add({"previewPrint"});
  auto* exports = look::New<QToolButton>(static_cast<QWidget*>(&bar));
  exports->setObjectName(QStringLiteral("previewExportButton"));
  exports->setIcon(look::Icon(QStringLiteral("export")));
  exports->setToolTip(tr("Export"));
  exports->setMenu(findChild<QMenu*>(QStringLiteral("previewExport")));
  exports->setPopupMode(QToolButton::InstantPopup);
  bar.addWidget(exports);
  bar.addSeparator();
  add({"previewThumbnails"});
  bar.addSeparator();
  add({"previewFirst", "previewPrevious"});
  pageEdit_ = look::New<QLineEdit>(static_cast<QWidget*>(&bar));
  pageEdit_->setObjectName(QStringLiteral("previewPage"));
  pageEdit_->setAccessibleName(tr("Page"));
  pageEdit_->setAlignment(Qt::AlignRight);
  pageEdit_->setFixedWidth(letter * 8);
  pageEdit_->setMaxLength(9);
  connect(pageEdit_, &QLineEdit::returnPressed, this, &PreviewWindow::GoToTyped);
  bar.addWidget(pageEdit_);
  pageCount_ = look::New<QLabel>(static_cast<QWidget*>(&bar));
  pageCount_->setMinimumWidth(letter * 9);
  pageCount_->setMargin(4);
  bar.addWidget(pageCount_);
  add({"previewNext", "previewLast"});
  bar.addSeparator();
  add({"previewZoomOut"});
  zoom_ = look::New<QComboBox>(static_cast<QWidget*>(&bar));
  zoom_->setObjectName(QStringLiteral("previewZoom"));
  zoom_->setAccessibleName(tr("Zoom"));
  zoom_->setEditable(true);
  zoom_->setInsertPolicy(QComboBox::NoInsert);
  zoom_->setFixedWidth(letter * 11);
  for (const int percent : kZooms) zoom_->addItem(QStringLiteral("%1%").arg(percent));
  connect(zoom_, &QComboBox::textActivated, this, &PreviewWindow::ZoomTo);
  connect(zoom_->lineEdit(), &QLineEdit::returnPressed, this, [this] { ZoomTo(zoom_->currentText()); });
  bar.addWidget(zoom_);
  add({"previewZoomIn", "previewFitPage", "previewFitWidth"});
  bar.addSeparator();
  add({"previewCopy"});
  bar.addSeparator();
  findEdit_ = look::New<QLineEdit>(static_cast<QWidget*>(&bar));
  findEdit_->setObjectName(QStringLiteral("previewFindText"));
  findEdit_->setAccessibleName(tr("Find"));
  findEdit_->setPlaceholderText(tr("Find"));
  findEdit_->setClearButtonEnabled(true);
  // Where the window is narrow it gives way, so that no command behind it falls off the bar.
  findEdit_->setMinimumWidth(letter * 12);
  findEdit_->setMaximumWidth(letter * 24);
  connect(findEdit_, &QLineEdit::returnPressed, this,
          [this] { Find((QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) == Qt::NoModifier); });
  connect(findEdit_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (text.isEmpty()) Find(true);
  });
  bar.addWidget(findEdit_);
  add({"previewFindPrevious", "previewFindNext"});
}

void PreviewWindow::MakeStatusBar() {
  place_ = look::New<QLabel>(static_cast<QWidget*>(this));
  place_->setObjectName(QStringLiteral("previewPlace"));
  progress_ = look::New<QLabel>(static_cast<QWidget*>(this));
  progress_->setObjectName(QStringLiteral("previewProgress"));
  place_->setMargin(3);
  progress_->setMargin(3);
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(place_);
  statusBar()->setSizeGripEnabled(false);
}

void PreviewWindow::GoToTyped() {
  bool number = false;
  const qlonglong page = pageEdit_->text().trimmed().toLongLong(&number);
  pageEdit_->setModified(false);
  view_->setFocus();
  if (number) view_->GoTo(page - 1);
  ShowPlace();
}

void PreviewWindow::ZoomTo(const QString& text) {
  bool number = false;
  const double percent = QString(text).remove('%').trimmed().toDouble(&number);
  view_->setFocus();
  if (number && percent > 0) view_->SetZoom(percent / 100);
  ShowZoom();
}

void PreviewWindow::StepZoom(bool larger) {
  const int now = static_cast<int>(std::lround(view_->Zoom() * 100));
  if (larger) {
    const auto* next = std::upper_bound(kZooms.begin(), kZooms.end(), now);
    view_->SetZoom(next == kZooms.end() ? view_->Zoom() * 1.25 : *next / 100.0);
  } else {
    const auto* next = std::lower_bound(kZooms.begin(), kZooms.end(), now);
    view_->SetZoom(next == kZooms.begin() ? view_->Zoom() / 1.25 : *(next - 1) / 100.0);
  }
}

}  // namespace printing
