#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "desktop/window/form_window.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/toolbar.h"
#include "platform/host/shortcuts.h"

namespace desktop {

namespace {

struct NamedKey {
  int key;
  const char* name;
};

constexpr NamedKey kNamedKeys[] = {
    {Qt::Key_Return, "Enter"},  {Qt::Key_Enter, "Enter"}, {Qt::Key_Escape, "Escape"},       {Qt::Key_Tab, "Tab"},
    {Qt::Key_Backtab, "Tab"},   {Qt::Key_Space, "Space"}, {Qt::Key_Backspace, "Backspace"}, {Qt::Key_Delete, "Delete"},
    {Qt::Key_Home, "Home"},     {Qt::Key_End, "End"},     {Qt::Key_PageUp, "PageUp"},       {Qt::Key_PageDown, "PageDown"},
    {Qt::Key_Up, "Up"},         {Qt::Key_Down, "Down"},   {Qt::Key_Left, "Left"},           {Qt::Key_Right, "Right"},
    {Qt::Key_Plus, "Plus"},     {Qt::Key_Equal, "Plus"},  {Qt::Key_Minus, "Minus"},         {Qt::Key_Underscore, "Minus"},
    {Qt::Key_Insert, "Insert"},
};

std::string PlainName(int key) {
  for (const NamedKey& named : kNamedKeys)
    if (named.key == key) return named.name;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return "F" + std::to_string(key - Qt::Key_F1 + 1);
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return std::string(1, static_cast<char>(key));
  return "";
}

/// The page that the user sees of the first tab control, or the window itself.
template <class T>
T* VisibleWith(const QWidget& window, const char* property) {
  for (T* widget : window.findChildren<T*>())
    if (widget->isVisible() && widget->property(property).isValid()) return widget;
  return nullptr;
}

}  // namespace

std::string KeyName(const QKeyEvent& event) {
  const std::string plain = PlainName(event.key());
  if (plain.empty()) return "";
  std::string name;
  if (event.modifiers().testFlag(Qt::ControlModifier)) name += "Ctrl+";
  if (event.modifiers().testFlag(Qt::AltModifier)) name += "Alt+";
  // On many keyboards "+" needs Shift itself.
  const bool shiftCounts = plain != "Plus" && plain != "Minus";
  if (shiftCounts && (event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab)) name += "Shift+";
  return name + plain;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  if (!form_ || services_.PaintingOnly()) return;
  bool taken = false;
  Safely(host_, [&] { taken = TabKey(*event) || SearchKey(*event) || ShortcutKey(*event); });
  if (taken) event->accept();
}

/// Ctrl+Tab and Ctrl+PageDown go to the next open tab, with Shift or PageUp to the one before.
bool FormWindow::TabKey(const QKeyEvent& event) {
  const std::string name = KeyName(event);
  const bool next = name == platform::kNextTabKey || name == "Ctrl+PageDown";
  if (!next && name != platform::kPreviousTabKey && name != "Ctrl+PageUp") return false;
  for (platform::Control* control : form_->Controls()) {
    auto* tabs = dynamic_cast<platform::TabControl*>(control);
    if (!tabs || !platform::IsOpenToUser(tabs)) continue;
    const int count = tabs->TabCount();
    for (int step = 1; step < count; ++step) {
      const int tab = (tabs->Tab() + (next ? step : count - step)) % count;
      if (!tabs->TabEnabled(tab)) continue;
      tabs->UserClick(tab);
      return true;
    }
    return true;
  }
  return false;
}

/// Ctrl+F, and "/" outside of edits, go to the search box; Down goes from it to its list.
bool FormWindow::SearchKey(const QKeyEvent& event) {
  const auto focus = [this](QWidget* widget) {
    const auto* binding = BindingAround(widget);
    if (binding && binding->Model().EffectivelyEnabled()) form_->UserFocus(binding->Model());
    if (form_) SyncFocus();
  };
  if (event.key() == Qt::Key_Down && event.modifiers() == Qt::NoModifier && focusWidget()) {
    const QString list = focusWidget()->property("searchesIn").toString();
    auto* below = list.isEmpty() ? nullptr : findChild<QWidget*>(list);
    if (below) focus(below);
    return below != nullptr;
  }
  const bool slash = event.text() == "/" && !qobject_cast<QLineEdit*>(focusWidget()) && !qobject_cast<QPlainTextEdit*>(focusWidget());
  if (!slash && KeyName(event) != "Ctrl+F") return false;
  auto* box = VisibleWith<QLineEdit>(*this, "searchesIn");
  if (box) focus(box);
  if (box && form_) box->selectAll();
  return box != nullptr;
}

bool FormWindow::ShortcutKey(const QKeyEvent& event) {
  platform::Control* target = platform::ShortcutTarget(*form_, KeyName(event));
  if (auto* item = dynamic_cast<platform::MenuItem*>(target)) {
    item->UserClick();
  } else if (auto* key = dynamic_cast<platform::ToolbarButton*>(target)) {
    key->UserClick();
  } else {
    return false;
  }
  return true;
}

}  // namespace desktop
