#include "desktop/window/help.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

#include "desktop/look/icons.h"
#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {

/// A dialog of the window's own with one Close button; it goes when it is closed.
QDialog* NewDialog(QMainWindow& window, const QString& name, const QString& title) {
  auto* dialog = NewWidget<QDialog>(&window);
  dialog->setObjectName(name);
  dialog->setWindowTitle(title);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  NewWidget<QVBoxLayout>(static_cast<QWidget*>(dialog));
  return dialog;
}

void OpenWithClose(QDialog& dialog) {
  auto* buttons = NewWidget<QDialogButtonBox>(static_cast<QWidget*>(&dialog));
  buttons->setStandardButtons(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  dialog.layout()->addWidget(buttons);
  dialog.open();
}

/// One line around each cell, and air in it.
void DressTables(QTextDocument& page, const QPalette& palette) {
  constexpr qreal kPageMargin = 14;
  constexpr qreal kCellPadding = 4;
  page.setDocumentMargin(kPageMargin);
  for (QTextFrame* frame : page.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (!table) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(palette.color(QPalette::Mid));
    format.setCellPadding(kCellPadding);
    format.setCellSpacing(0);
    format.setTopMargin(kCellPadding);
    table->setFormat(format);
  }
}

void ShowKeys(QMainWindow& window) {
  QFile page(":/desktop/keys.md");
  if (!page.open(QIODevice::ReadOnly)) return;
  QDialog* dialog = NewDialog(window, "helpKeys", QObject::tr("Keys"));
  auto* text = NewWidget<QTextBrowser>(static_cast<QWidget*>(dialog));
  text->setMarkdown(QString::fromUtf8(page.readAll()));
  DressTables(*text->document(), text->palette());
  dialog->layout()->addWidget(text);
  const QSize letter = dialog->fontMetrics().size(0, "0");
  constexpr int kColumns = 84;
  constexpr int kLines = 36;
  dialog->resize(QSize(kColumns * letter.width(), kLines * letter.height()).boundedTo(window.size()));
  OpenWithClose(*dialog);
}

void ShowAbout(QMainWindow& window) {
  QDialog* dialog = NewDialog(window, "helpAbout", QObject::tr("About"));
  auto* text = NewWidget<QLabel>(static_cast<QWidget*>(dialog));
  text->setTextFormat(Qt::PlainText);
  text->setText(QObject::tr("ORCusSch %1\nCustomer search and customer maintenance").arg(QStringLiteral(ORCUSSCH_VERSION)));
  text->setMargin(text->fontMetrics().height());
  dialog->layout()->addWidget(text);
  OpenWithClose(*dialog);
}

}  // namespace

void AddHelpMenu(QMainWindow& window) {
  // Each of its letters leads to a box of a card already.
  QMenu* menu = window.menuBar()->addMenu(QObject::tr("Help"));
  menu->setObjectName("helpMenu");
  QAction* keys = menu->addAction(QObject::tr("&Keys"), &window, [&window] { ShowKeys(window); });
  keys->setObjectName("helpKeysAction");
  keys->setShortcut(Qt::Key_F1);
  QAction* about = menu->addAction(QObject::tr("&About"), &window, [&window] { ShowAbout(window); });
  about->setObjectName("helpAboutAction");
}

}  // namespace desktop
