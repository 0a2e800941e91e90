#include "desktop/hands/desktop_hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <stdexcept>

#include "desktop/binding/bar_bindings.h"
#include "desktop/controls/combo_edit.h"
#include "desktop/controls/spin_pair.h"
#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "desktop/window/message_box.h"
#include "platform/values/text.h"

namespace desktop {

using namespace platform;

namespace {

/// Longer texts are pasted: a person would not type them either.
constexpr std::size_t kMostTypedCharacters = 400;

/// What the hands can't do is a fault of the layout, told by name.
[[noreturn]] void NotThere(const Control& control) { throw std::logic_error("the window shows no widget for " + control.FullName()); }

/// A window system gives the keyboard back to the window when a menu closes. Where there is none it stays with nobody, and no
/// control would be told that it takes the focus.
void Activate(FormWindow& window) {
  if (!window.isVisible() || window.isActiveWindow() || QApplication::activePopupWidget()) return;
  window.activateWindow();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

FormWindow& DesktopHands::WindowOf(const Control& control) const {
  FormWindow* window = frontEnd_.WindowOf(control.Owner());
  if (!window) NotThere(control);
  return *window;
}

QWidget& DesktopHands::WidgetOf(const Control& control) const {
  FormWindow& window = WindowOf(control);
  const Binding* binding = window.BindingOf(control);
  if (!binding || !binding->Widget()) NotThere(control);
  Activate(window);
  return *binding->Widget();
}

void DesktopHands::Settle() {
  constexpr int kMostRounds = 50;
  for (int round = 0; round < kMostRounds; ++round) {
    frontEnd_.Shared().RunCommands();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    if (!frontEnd_.Shared().CommandsWait()) break;
  }
}

/// Toolbar keys and menu items have actions; the menu is opened and the item clicked in it.
bool DesktopHands::ClickInBar(Control& control) {
  FormWindow& window = WindowOf(control);
  if (dynamic_cast<const ToolbarButton*>(&control)) {
    auto* action = static_cast<ToolbarButtonBinding*>(window.BindingOf(control))->Action();
    for (const QToolBar* bar : window.findChildren<QToolBar*>())
      if (QWidget* button = bar->widgetForAction(action)) return input::Click(*button), true;
    NotThere(control);
  }
  const auto* item = dynamic_cast<const MenuItem*>(&control);
  if (!item) return false;
  QAction* action = static_cast<MenuItemBinding*>(window.BindingOf(control))->Action();
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    if (!menu->actions().contains(action)) continue;
    menu->popup(window.mapToGlobal(window.menuBar()->geometry().bottomLeft()));
    input::Click(*menu, menu->actionGeometry(action).center());
    return true;
  }
  NotThere(control);
}

void DesktopHands::Click(Control& control) {
  if (!ClickInBar(control)) {
    QWidget& widget = WidgetOf(control);
    const auto* choice = qobject_cast<QAbstractButton*>(&widget);
    const bool marked = choice && choice->isCheckable() && !qobject_cast<QPushButton*>(&widget);
    // A check box or option takes clicks on its mark and text, not on the empty room beside them.
    input::Click(widget, marked ? QPoint(8, widget.height() / 2) : widget.rect().center());
  }
  Settle();
}

void DesktopHands::DoubleClick(Control& control) {
  if (ClickInBar(control)) return Settle();
  if (auto* grid = dynamic_cast<Grid*>(&control)) return DoubleClickCell(*grid);
  QWidget& widget = WidgetOf(control);
  if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    input::DoubleClick(*list->viewport(), list->visualItemRect(list->currentItem()).center());
  } else {
    input::DoubleClick(widget, widget.rect().center());
  }
  Settle();
}

void DesktopHands::Focus(Control& control) {
  QWidget& widget = WidgetOf(control);
  widget.setFocus(Qt::MouseFocusReason);
  Settle();
}

namespace {

/// A cell that was refused stays open and keeps the keyboard.
bool CellKeepsFocusFrom(const Control& control) {
  const auto& controls = control.Owner().Controls();
  return std::any_of(controls.begin(), controls.end(), [&](const Control* other) {
    const auto* grid = dynamic_cast<const Grid*>(other);
    return grid && grid != &control && grid->OpenCell();
  });
}

}  // namespace

void DesktopHands::Type(Control& control, std::string_view text, bool append) {
  FormWindow& window = WindowOf(control);
  Focus(control);
  if (CellKeepsFocusFrom(control)) return;
  if (append) {
    input::Key(window, Qt::Key_End, Qt::ControlModifier);
    input::Key(window, Qt::Key_End, Qt::NoModifier);
  } else {
    input::Key(window, Qt::Key_A, Qt::ControlModifier);
    if (text.empty()) input::Key(window, Qt::Key_Delete, Qt::NoModifier, "\x7f");
  }
  if (CharacterCount(text) > kMostTypedCharacters) {
    QApplication::clipboard()->setText(ToShown(text));
    input::Key(window, Qt::Key_V, Qt::ControlModifier);
  } else {
    input::Type(window, ToShown(text));
    DropCompletion(control);
  }
  Settle();
}

/// What is typed is the whole text: a user who wants no more of it takes what was completed away.
void DesktopHands::DropCompletion(Control& control) {
  auto* combo = dynamic_cast<ComboEdit*>(&WidgetOf(control));
  if (combo && combo->lineEdit()->hasSelectedText()) input::Key(WindowOf(control), Qt::Key_Delete, Qt::NoModifier, "\x7f");
}

void DesktopHands::Key(Control& control, std::string_view key) {
  FormWindow& window = WindowOf(control);
  const Binding* binding = window.BindingOf(control);
  // An open cell keeps the keys of its list; the editor of one that was closed just now goes first.
  auto* list = binding ? dynamic_cast<ListView*>(binding->Widget()) : nullptr;
  if (list) list->Sync();
  if (!list || !list->Editor()) Focus(control);
  if (CellKeepsFocusFrom(control)) return;
  const input::NamedKey named = input::KeyByName(key);
  if (named.key == Qt::Key_unknown && named.text.isEmpty()) throw std::logic_error("no key " + std::string(key));
  input::Key(window, named.key, named.modifiers, named.text);
  Settle();
}

void DesktopHands::Pick(ComboBox& combo, const ComboRow& row) {
  auto& edit = dynamic_cast<ComboEdit&>(WidgetOf(combo));
  Focus(combo);
  input::Key(WindowOf(combo), Qt::Key_Down, Qt::AltModifier);
  QCoreApplication::processEvents();
  const auto& rows = edit.Rows();
  int at = -1;
  for (std::size_t i = 0; i < rows.size() && at < 0; ++i)
    if (rows[i].key == row.key && rows[i].shown == row.shown) at = static_cast<int>(i);
  if (at < 0) throw std::logic_error(combo.FullName() + " lists no such row");
  const QModelIndex index = edit.model()->index(at, 0);
  edit.view()->scrollTo(index);
  QWidget& viewport = *edit.view()->viewport();
  const QPoint place = edit.view()->visualRect(index).center();
  input::Move(viewport, place);
  // The list takes no click that comes within the time of a double click on the button that opened it.
  edit.view()->setCurrentIndex(index);
  input::Key(*edit.view(), Qt::Key_Return, Qt::NoModifier, "\r");
  Settle();
}

void DesktopHands::ClearCombo(ComboBox& combo) { Type(combo, "", false); }

void DesktopHands::Tab(TabControl& tabs, int tab) {
  auto& bar = dynamic_cast<QTabBar&>(WidgetOf(tabs));
  input::Click(bar, bar.tabRect(tab).center());
  Settle();
}

ListView& DesktopHands::ListOf(const Grid& grid) const {
  auto& list = dynamic_cast<ListView&>(WidgetOf(grid));
  list.Sync();
  return list;
}

std::int64_t DesktopHands::ScrollTo(ListView& list, const Grid& grid, const Bookmark& row) const {
  // A user looks for the row itself: its number is a guess while the engine counts, and idle work may put it right meanwhile.
  constexpr int kAttempts = 4;
  for (int i = 0; i < kAttempts; ++i) {
    const auto ordinal = list.ScrollToRow(row);
    if (!ordinal) break;
    QCoreApplication::processEvents();
    if (list.Rows().HeldOrdinal(row) == ordinal) return *ordinal;
  }
  throw std::logic_error(grid.FullName() + " shows no such row");
}

void DesktopHands::Row(Grid& grid, const Bookmark& row) {
  ListView& list = ListOf(grid);
  const std::int64_t ordinal = ScrollTo(list, grid, row);
  if (grid.MarksByClick()) {
    // A click would mark the row: the keyboard only goes there.
    Key(grid, "Home");
    for (std::int64_t at = 0; at < ordinal; ++at) Key(grid, "Down");
    return Settle();
  }
  // Near the edge of the first column in view, where no check mark is.
  const auto place = list.Columns().PlaceAt(0, list.HorizontalOffset());
  const QRect cell = place ? list.CellRect(ordinal, list.Columns().ColumnAt(*place)) : QRect();
  if (cell.isEmpty()) throw std::logic_error(grid.FullName() + " does not show the row");
  const int left = std::max(cell.left(), list.MarkerWidth());
  input::Click(*list.viewport(), QPoint(left + 3, cell.center().y()));
  Settle();
}

void DesktopHands::ClickMarker(Grid& grid, const Bookmark& row, Qt::KeyboardModifiers modifiers) {
  ListView& list = ListOf(grid);
  const QRect marker = list.MarkerRect(ScrollTo(list, grid, row));
  if (marker.width() < 4) throw std::logic_error(grid.FullName() + " marks no rows");
  input::Click(*list.viewport(), marker.center(), modifiers);
  Settle();
}

void DesktopHands::Mark(Grid& grid, const std::vector<Bookmark>& rows) {
  if (rows.empty()) {
    while (grid.SelBookmarks.Count() > 0) ClickMarker(grid, grid.SelBookmarks.Item(0), Qt::ControlModifier);
    return;
  }
  ClickMarker(grid, rows.front(), Qt::NoModifier);
  for (std::size_t i = 1; i < rows.size(); ++i) ClickMarker(grid, rows[i], Qt::ControlModifier);
}

void DesktopHands::Scroll(Grid& grid, int, int column) {
  ListView& list = ListOf(grid);
  const auto place = list.Columns().PlaceOf(column);
  if (!place) throw std::logic_error(grid.FullName() + " does not show the column");
  const int left = list.Columns().IsFixed(*place) ? 0 : list.Columns().LeftInGroup(*place);
  list.horizontalScrollBar()->setValue(left);
  Settle();
}

void DesktopHands::Choose(ListBox& box, int index) {
  auto& list = dynamic_cast<QListWidget&>(WidgetOf(box));
  list.scrollToItem(list.item(index));
  input::Click(*list.viewport(), list.visualItemRect(list.item(index)).center());
  Settle();
}

void DesktopHands::Slide(platform::ScrollBar& bar, int value) {
  auto& widget = dynamic_cast<QScrollBar&>(WidgetOf(bar));
  Focus(bar);
  widget.setSliderDown(true);
  widget.setSliderPosition(value);
  widget.setSliderDown(false);
  Settle();
}

void DesktopHands::Spin(SpinButton& spin, bool up) {
  input::Click(*dynamic_cast<SpinPair&>(WidgetOf(spin)).Arrow(up));
  Settle();
}

void DesktopHands::Hover(Control& control) {
  QWidget& widget = WidgetOf(control);
  // Frames are met on their edge, where no other control lies.
  const bool holds = !widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).isEmpty();
  input::Move(widget, holds ? QPoint(2, 2) : widget.rect().center());
  Settle();
}

void DesktopHands::HoverForm(Form& form) {
  if (FormWindow* window = frontEnd_.WindowOf(form)) input::Move(*window, QPoint(2, window->height() / 2));
  Settle();
}

void DesktopHands::CloseForm(Form& form) {
  // The unload alone: whether a person who closes the window is asked first is the window's matter.
  form.UserClose();
  Settle();
}

void DesktopHands::PressInBox(const std::string& text, int style, const std::string& title, int button) {
  RunMessageBox(text, style, title, frontEnd_.BoxParent(), [button](QMessageBox& shown) {
    if (QAbstractButton* pressed = ButtonFor(shown, button)) {
      input::Click(*pressed);
    } else {
      shown.reject();
    }
  });
}

void DesktopHands::Screenshot(Form* form, const std::string& path) {
  Settle();
  FormWindow* window = form ? frontEnd_.WindowOf(*form) : nullptr;
  for (ListView* list : window ? window->findChildren<ListView*>() : QList<ListView*>()) list->Sync();
  const QPixmap picture = window ? window->grab() : QPixmap(1, 1);
  if (!picture.save(ToShown(path), "PNG")) throw std::runtime_error("the file " + path + " can't be written");
}

std::unique_ptr<UserHands> MakeHands(FrontEnd& frontEnd) {
  return std::make_unique<DesktopHands>(dynamic_cast<DesktopFrontEnd&>(frontEnd));
}

}  // namespace desktop
