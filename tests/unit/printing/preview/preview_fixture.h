#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QElapsedTimer>
#include <QListView>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

#include "printing/data/report_errors.h"
#include "printing/layout/detail_rows.h"
#include "printing/layout/report_layout.h"
#include "printing/preview/preview_window.h"
#include "printing/preview/previews.h"
#include "unit/printing/support/made_up_report.h"

namespace printing_test {

using namespace printing;

/// A report of so many pages, four details on each.
class MadeUpRun final : public PreviewRun {
 public:
  MadeUpRun(const FontSet& fonts, int rows, int failsAt = -1)
      : report_(ReportOf()),
        rows_(Numbered(rows)),
        values_(report_, rows_),
        layout_(report_, values_, rows_, fonts, pages_),
        failsAt_(failsAt) {}

  static ReportDefinition ReportOf() {
    auto report = Report(
        {BandOf(BandKind::PageHeader, 1, {FieldAt(0, 0, 3, 0.2, Joined(Text("Page "), Known(SystemValue::PageNumber)))}),
         BandOf(BandKind::Detail, 2, {FieldAt(0, 0, 3, 0.2, Joined(Text("Customer "), Field("N"))), FieldAt(4, 0, 2, 0.2, Field("N"))}),
         BandOf(BandKind::PageFooter, 1, {FieldAt(0, 0, 3, 0.2, Joined(Text("Of "), Known(SystemValue::PageCount)))})});
    report.bands[1].elements[1].column = "Number";
    return report;
  }

  bool Advance() override {
    if (layout_.Records() == failsAt_) throw ReportFailure(ReportError::ReadingFailed, "the file is gone");
    ++advanced;
    return layout_.Advance();
  }
  const PageSpool& Pages() const override { return pages_; }
  std::int64_t RowsDone() const override { return layout_.Records(); }
  std::int64_t RowsInAll() override {
    ++counted;
    return rows_.Count();
  }
  void Export(DetailSink& sink, const Progress& progress) override {
    MadeUpRows again = Numbered(static_cast<int>(rows_.Count()));
    MadeUpValues values(report_, again);
    DetailRows walk(report_, values, again, sink);
    while (walk.Advance()) Ask(progress, walk.Records());
    while (slow) Ask(progress, walk.Records());
  }

  static inline int advanced = 0;
  static inline int counted = 0;
  static inline bool slow = false;  ///< an export never ends by itself

 private:
  ReportDefinition report_;
  MadeUpRows rows_;
  MadeUpValues values_;
  PageSpool pages_;
  ReportLayout layout_;
  int failsAt_;
};

class Preview : public testing::Test {
 protected:
  Preview() : previews([this] { return busy; }) {
    MadeUpRun::advanced = 0;
    MadeUpRun::counted = 0;
    previews.dialogs.tell = [this](QWidget&, const QString& text) { told << text; };
  }

  PreviewWindow& Open(int rows, int failsAt = -1) {
    PreviewSettings settings;
    settings.title = "Customers: all";
    settings.copies = 3;
    settings.from = 2;
    settings.to = 3;
    settings.printer = "upstairs";
    window = &previews.Open(std::make_unique<MadeUpRun>(*previews.Fonts(), rows, failsAt), settings);
    atOnce = MadeUpRun::advanced;
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    return *window;
  }
  void Finish() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return window->Complete(); }));
    QApplication::processEvents();
  }
  QString Place() const { return window->findChild<QLabel*>("previewPlace")->text(); }
  PageView& View() const { return *window->findChild<PageView*>(); }
  QLineEdit& Edit(const char* name) const { return *window->findChild<QLineEdit*>(name); }
  void Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) const {
    QTest::keyClick(window->windowHandle(), key, with);
    QApplication::processEvents();
  }
  void Type(const QString& text) const {
    for (const QChar letter : text) QTest::keyClick(window->windowHandle(), letter.toLatin1());
  }
  void Wheel(int angle, Qt::KeyboardModifiers with = Qt::NoModifier) const {
    const QPointF place(200, 200);
    QWheelEvent event(place, View().viewport()->mapToGlobal(place), QPoint(), QPoint(0, angle), Qt::NoButton, with, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(View().viewport(), &event);
  }
  void Choose(const char* action) const { window->findChild<QAction*>(action)->trigger(); }
  bool Found() const {
    return QTest::qWaitFor([this] { return !window->statusBar()->currentMessage().startsWith("Searching"); });
  }

  bool busy = false;
  int atOnce = 0;  ///< steps that were taken when the window was made
  QStringList told;
  Previews previews;
  PreviewWindow* window = nullptr;
};

}  // namespace printing_test
