#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>
#include <QTextTable>
#include <QTimer>
#include <QToolBar>

#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "desktop/support/main_screen.h"
#include "platform/controls/form/card_screen.h"
#include "platform/host/screen.h"
#include "support/controls.h"

// What the window adds around a screen's cards.
namespace desktop_test {
namespace {

/// A screen with something to lose.
class frmCard final : public platform::Screen, public platform::CardScreen {
 public:
  explicit frmCard(platform::Application& app) : Screen(app, "frmCard", "Card") {}
  bool HasUnsavedEntries() const override { return unsaved; }
  std::string CardMode() const override { return ""; }
  bool AddsOwner() const override { return false; }
  bool unsaved = true;
};

class CardWindow : public MainScreen {
 protected:
  /// Sends the window a close as the window system does, and answers the question with that button.
  void CloseByFrame(platform::Form& form, QMessageBox::StandardButton button) {
    QTimer::singleShot(0, [&, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return;
      asked << box->text();
      defaultButton = box->standardButton(box->defaultButton());
      // A second wish to close while the question stands asks no second one.
      QCloseEvent again;
      if (auto* card = front->WindowOf(form)) QApplication::sendEvent(card, &again);
      box->button(button)->click();
    });
    QCloseEvent close;
    QApplication::sendEvent(front->WindowOf(form), &close);
    QApplication::processEvents();
  }
  void OpenCard(frmCard& card) {
    app->Load(card);
    front->Shown(card);
    QApplication::processEvents();
  }

  QStringList asked;
  QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

TEST_F(CardWindow, ClosingAChangedCardByItsFrameAsksOnce) {
  frmCard card(*app);
  OpenCard(card);
  CloseByFrame(card, QMessageBox::No);
  EXPECT_EQ(asked, QStringList("Close without saving the changes?"));
  EXPECT_EQ(defaultButton, QMessageBox::No);
  EXPECT_TRUE(card.Loaded());
  CloseByFrame(card, QMessageBox::Yes);
  EXPECT_EQ(asked.size(), 2);
  EXPECT_FALSE(card.Loaded());
}

TEST_F(CardWindow, ClosingAnUnchangedCardAsksNothing) {
  frmCard card(*app);
  card.unsaved = false;
  OpenCard(card);
  CloseByFrame(card, QMessageBox::No);
  EXPECT_TRUE(asked.isEmpty());
  EXPECT_FALSE(card.Loaded());
}

TEST_F(CardWindow, ClosingByCodeAsksNothing) {
  frmCard card(*app);
  OpenCard(card);
  QTimer::singleShot(0, [&] {
    if (auto* box = QApplication::activeModalWidget()) {
      ADD_FAILURE() << "a question";
      box->close();
    }
  });
  card.UserClose();
  QApplication::processEvents();
  EXPECT_FALSE(card.Loaded());
}

TEST_F(CardWindow, TheBadgeSaysWhatTheCardIsFor) {
  ShowAt({1180, 760});
  const auto* badge = window->findChild<QLabel*>("modeBadge");
  ASSERT_NE(badge, nullptr);
  EXPECT_FALSE(badge->isVisible());
  screen->mRecordMode = "A";
  screen->SSIndexTab1.Page(1);
  window->Changed(&screen->SSIndexTab1, platform::Aspect::Tab);
  EXPECT_TRUE(badge->isVisible());
  EXPECT_EQ(badge->text(), "New customer");
  // The name above the tabs is another customer's now.
  EXPECT_FALSE(window->findChild<QLabel*>("lblCustomer")->isVisible());
  EXPECT_FALSE(window->findChild<QLabel*>("lblAcctNum")->isVisible());
  screen->mRecordMode = "E";
  window->Changed(&screen->Toolbar1, platform::Aspect::Enabled);
  EXPECT_EQ(badge->text(), "Editing");
  EXPECT_TRUE(window->findChild<QLabel*>("lblCustomer")->isVisible());
  screen->SSIndexTab1.Page(0);
  window->Changed(&screen->SSIndexTab1, platform::Aspect::Tab);
  EXPECT_FALSE(badge->isVisible());
}

TEST_F(CardWindow, EachCardHasItsSaveAndItsCancel) {
  for (int tab = 0; tab < 7; ++tab) {
    for (const auto& [button, key] : {std::pair{"save_card_%1", "tb_SaveRec"}, std::pair{"cancel_card_%1", "tb_CancelRec"}}) {
      const auto* made = window->findChild<QPushButton*>(QString(button).arg(tab));
      ASSERT_NE(made, nullptr) << button << tab;
      const auto* action = window->findChild<QAction*>(key);
      int pressed = 0;
      QObject::connect(action, &QAction::triggered, made, [&] { ++pressed; });
      screen->Toolbar1.Button(key).Enabled(true);
      window->BindingOf(screen->Toolbar1.Button(key))->ShowAll();
      EXPECT_TRUE(made->isEnabled());
      const_cast<QPushButton*>(made)->click();
      EXPECT_EQ(pressed, 1);
      QObject::disconnect(action, &QAction::triggered, made, nullptr);
      screen->Toolbar1.Button(key).Enabled(false);
      window->BindingOf(screen->Toolbar1.Button(key))->ShowAll();
      EXPECT_FALSE(made->isEnabled());
      EXPECT_EQ(made->focusPolicy(), Qt::NoFocus);
    }
  }
}

TEST_F(CardWindow, AToolbarThatServesNobodyIsGreyed) {
  ShowAt({1180, 760});
  screen->mToolbarReady = true;
  const auto* bar = window->findChild<QToolBar*>("Toolbar1");
  window->Changed(&screen->Toolbar1, platform::Aspect::Enabled);
  EXPECT_TRUE(bar->isEnabled());
  screen->mToolbarReady = false;
  window->Changed(&screen->Toolbar1, platform::Aspect::Enabled);
  QElapsedTimer waited;
  for (waited.start(); bar->isEnabled() && waited.elapsed() < 5000;) QApplication::processEvents(QEventLoop::AllEvents, 20);
  EXPECT_FALSE(bar->isEnabled());
  EXPECT_TRUE(window->findChild<QAction*>("tb_AddRec")->isEnabled());
  screen->mToolbarReady = true;
  window->Changed(&screen->Toolbar1, platform::Aspect::Enabled);
  EXPECT_TRUE(bar->isEnabled());
}

TEST_F(CardWindow, MenusEndWithTheWindowsOwnCommands) {
  QStringList menus;
  for (const QAction* action : window->menuBar()->actions()) menus << action->menu()->title();
  EXPECT_EQ(menus, (QStringList{"&File", "&Edit", "&Data", "&Setup", "&Tools", "Help"}));
  const auto items = [&](const char* name) {
    QStringList texts;
    for (const QAction* action : window->menuBar()->findChild<QMenu*>(name)->actions())
      texts << (action->isSeparator() ? QString("-") : action->text().section('\t', 0, 0));
    return texts;
  };
  EXPECT_EQ(items("mnuEdit"), (QStringList{"Find", "Select Current Customer", "-", "Back to What Was Typed"}));
  EXPECT_EQ(items("helpMenu"), (QStringList{"&Keys", "&About"}));
  EXPECT_EQ(screen->mnuEdit.Items().size(), 2u);
}

TEST_F(CardWindow, TheKeysPageOpens) {
  ShowAt({1180, 760});
  window->findChild<QAction*>("helpKeysAction")->trigger();
  auto* page = window->findChild<QDialog*>("helpKeys");
  ASSERT_NE(page, nullptr);
  EXPECT_TRUE(page->findChild<QTextBrowser*>()->toPlainText().contains("Ctrl+Shift+Tab"));
  page->close();
}

TEST_F(CardWindow, TheKeysPageHasAirInItsTables) {
  window->findChild<QAction*>("helpKeysAction")->trigger();
  const auto* page = window->findChild<QDialog*>("helpKeys")->findChild<QTextBrowser*>();
  int tables = 0;
  for (const QTextFrame* frame : page->document()->rootFrame()->childFrames()) {
    const auto* cells = qobject_cast<const QTextTable*>(frame);
    if (!cells) continue;
    ++tables;
    EXPECT_GE(cells->format().cellPadding(), 3);
    EXPECT_TRUE(cells->format().borderCollapse());
  }
  EXPECT_GT(tables, 0);
}

/// Each key that the program knows stands on the page.
TEST_F(CardWindow, TheKeysPageIsComplete) {
  window->findChild<QAction*>("helpKeysAction")->trigger();
  const QString text = window->findChild<QDialog*>("helpKeys")->findChild<QTextBrowser*>()->toPlainText();
  for (const platform::Shortcut& shortcut : screen->Shortcuts()) {
    QString key = QString::fromUtf8(shortcut.key.data(), static_cast<qsizetype>(shortcut.key.size()));
    key.replace("Plus", "+").replace("Minus", "-");
    EXPECT_TRUE(text.contains(key)) << key.toStdString();
  }
}

/// The dialog chooses what reports will use; it prints nothing and does not say that it does.
TEST_F(CardWindow, ThePrinterDialogSetsUp) {
  QString title;
  QStringList buttons;
  QTimer::singleShot(50, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    title = dialog->windowTitle();
    for (const QPushButton* button : dialog->findChildren<QPushButton*>())
      if (button->isVisible()) buttons << button->text().remove('&');
    dialog->reject();
  });
  EXPECT_FALSE(front->PrinterDialog(*screen).has_value());
  EXPECT_EQ(title, "Printer Setup");
  EXPECT_TRUE(buttons.contains("OK")) << buttons.join(", ").toStdString();
  EXPECT_FALSE(buttons.contains("Print")) << buttons.join(", ").toStdString();
}

/// The place of the current row, exact or not at all.
TEST_F(CardWindow, TheStatusBarSaysWhereTheListStands) {
  table.rows = 5000;
  table.counted = false;
  table.slicesToCount = 3;
  table.estimate = 4000;
  ShowAt({1180, 760});
  screen->data[0].RecordSource("SELECT * FROM T;");
  screen->data[0].Refresh();
  const auto* place = window->findChild<QLabel*>("rowPlace");
  window->Changed(&screen->grid[0], platform::Aspect::List);
  EXPECT_EQ(place->text(), "");
  while (window->IdleSlice()) EXPECT_EQ(place->text(), "");
  EXPECT_EQ(place->text(), "row 1 of 5,000");
  screen->data[0].Recordset()->Move(11);
  window->Changed(&screen->grid[0], platform::Aspect::CurrentRow);
  while (window->IdleSlice()) {
  }
  EXPECT_EQ(place->text(), "row 12 of 5,000");
  // A card shows one record, not a place in a list.
  screen->mRecordMode = "E";
  screen->SSIndexTab1.Page(1);
  window->Changed(&screen->SSIndexTab1, platform::Aspect::Tab);
  while (window->IdleSlice()) {
  }
  EXPECT_EQ(place->text(), "");
}

TEST_F(CardWindow, HasAnIcon) { EXPECT_FALSE(window->windowIcon().isNull()); }

/// Coming back to a box by its letter, or by a refused entry, selects the whole of it.
TEST_F(CardWindow, ARefusedEntryIsSelectedAsAWhole) {
  ShowAt({1180, 760});
  screen->SSIndexTab1.Page(1);
  window->Changed(&screen->SSIndexTab1, platform::Aspect::Tab);
  EditOf(*screen, "txtCity").Text("Duluth");
  window->BindingOf(EditOf(*screen, "txtCity"))->ShowAll();
  screen->MoveFocus(&EditOf(*screen, "txtCity"));
  window->Changed(&EditOf(*screen, "txtCity"), platform::Aspect::Focus);
  auto* box = window->findChild<QLineEdit*>("txtCity");
  ASSERT_TRUE(box->hasFocus());
  box->deselect();
  window->Changed(&EditOf(*screen, "txtCity"), platform::Aspect::Focus);
  EXPECT_EQ(box->selectedText(), "Duluth");

  box->deselect();
  desktop::input::Key(*window, Qt::Key_Y, Qt::AltModifier);
  QApplication::processEvents();
  EXPECT_EQ(box->selectedText(), "Duluth");
}

/// As small as ever on small screens, most of a large one, and not spread over the width of two.
TEST(WindowPosition, AWindowThatNobodyPlacedTakesItsShareOfTheScreen) {
  const QSize needed(1010, 700);
  const auto opens = [&](int width, int height) { return desktop::FormWindow::FirstSize(needed, {width, height}); };
  EXPECT_EQ(opens(1000, 690), QSize(1000, 690)) << "a screen that is too small";
  EXPECT_EQ(opens(1024, 768), needed);
  EXPECT_EQ(opens(1280, 800), QSize(1024, 700));
  EXPECT_EQ(opens(1920, 1080), QSize(1536, 864));
  EXPECT_EQ(opens(2560, 1440), QSize(2048, 1152));
  EXPECT_EQ(opens(3840, 2160), QSize(3072, 1728));
  EXPECT_EQ(opens(5120, 1440), QSize(2074, 1152));
  EXPECT_EQ(opens(1200, 1920), QSize(1010, 1536)) << "a screen that stands upright";
}

/// The last screen was larger, or stood elsewhere.
TEST(WindowPosition, AWindowComesBackWholeOnASmallerScreen) {
  const QRect room(0, 24, 1024, 744);
  EXPECT_EQ(desktop::FormWindow::OnScreen({100, 100, 800, 600}, room), QRect(100, 100, 800, 600));
  EXPECT_EQ(desktop::FormWindow::OnScreen({0, 0, 1180, 760}, room), room);
  EXPECT_EQ(desktop::FormWindow::OnScreen({900, 500, 400, 300}, room), QRect(624, 468, 400, 300));
  EXPECT_EQ(desktop::FormWindow::OnScreen({-1500, 40, 700, 500}, room), QRect(0, 40, 700, 500));
}

/// Letters of twice the size.
class LargeLetters : public MainScreen {
 protected:
  LargeLetters() {
    QFont large = before_;
    large.setPixelSize(2 * QFontInfo(before_).pixelSize());
    QApplication::setFont(large);
    window->ensurePolished();
    QApplication::sendPostedEvents();
  }
  ~LargeLetters() override { QApplication::setFont(before_); }

 private:
  QFont before_ = QApplication::font();
};

TEST_F(LargeLetters, TheWindowFitsTheScreenAndNothingIsOutOfReach) {
  const QSize room = window->screen()->availableGeometry().size();
  const QSize list = window->findChild<QWidget*>("tab_4_page_0")->minimumSizeHint();
  ASSERT_GT(list.width(), room.width()) << "the letters are not large";
  front->Shown(*screen);
  QApplication::processEvents();
  EXPECT_LE(window->width(), room.width());
  EXPECT_LE(window->height(), room.height());
  EXPECT_LE(window->minimumSizeHint().width(), room.width());
  for (int tab = 0; tab < 7; ++tab) {
    ShowPage(tab, 0);
    auto* options = window->findChild<QWidget*>(QString("fraOrder_%1").arg(tab));
    EXPECT_TRUE(options->isVisible());
    EXPECT_GE(options->width(), options->minimumSizeHint().width());
    EXPECT_TRUE(window->findChild<QWidget*>(QString("grid_%1").arg(tab))->isVisible());
  }
  // A list in a page that scrolls keeps its looks.
  for (const auto* rows : window->findChildren<desktop::ListView*>()) {
    const auto* caption = rows->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(caption, nullptr);
    EXPECT_GE(caption->x() + caption->contentsRect().left(), rows->viewport()->x() + 8) << rows->objectName().toStdString();
    EXPECT_EQ(rows->frameWidth(), 1) << rows->objectName().toStdString();
  }
  // What the toolbar has no room for is behind its arrow.
  const auto* more = window->findChild<QWidget*>("qt_toolbar_ext_button");
  ASSERT_NE(more, nullptr);
  EXPECT_TRUE(more->isVisible());
}

}  // namespace
}  // namespace desktop_test
