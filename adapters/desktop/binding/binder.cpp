#include "desktop/binding/binder.h"

#include <QMenuBar>
#include <QToolBar>

#include "desktop/binding/bar_bindings.h"
#include "desktop/binding/edit_bindings.h"
#include "desktop/binding/list_binding.h"
#include "desktop/binding/map_binding.h"
#include "desktop/binding/simple_bindings.h"
#include "desktop/binding/tab_binding.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/data_control.h"
#include "platform/controls/report_control.h"
#include "platform/controls/toolbar.h"

namespace desktop {

namespace {

using platform::Control;

/// Tries one pair of model and widget type. False when the control is of another type, or the layout has no such widget.
template <class Model, class Shown, class Made, class... More>
bool Try(QMainWindow& window, Control& control, std::unique_ptr<Binding>& binding, More&... more) {
  auto* model = dynamic_cast<Model*>(&control);
  if (!model) return false;
  if (Shown* widget = dynamic_cast<Shown*>(window.findChild<QWidget*>(WidgetName(control)))) {
    binding = std::make_unique<Made>(*model, widget, more...);
    return true;
  }
  return false;
}

}  // namespace

bool HasWidget(const Control& control) {
  return !dynamic_cast<const platform::DataControl*>(&control) && !dynamic_cast<const platform::CommonDialog*>(&control) &&
         !dynamic_cast<const platform::ReportControl*>(&control);
}

std::unique_ptr<Binding> MakeBinding(QMainWindow& window, Services& services, Control& control) {
  if (!HasWidget(control)) return nullptr;
  if (auto* item = dynamic_cast<platform::MenuItem*>(&control)) return std::make_unique<MenuItemBinding>(window, *item);
  if (auto* key = dynamic_cast<platform::ToolbarButton*>(&control)) return std::make_unique<ToolbarButtonBinding>(window, *key);
  if (auto* menu = dynamic_cast<platform::Menu*>(&control)) return std::make_unique<MenuBinding>(window, *menu);
  std::unique_ptr<Binding> binding;
  const bool bound = Try<platform::Toolbar, QToolBar, ToolbarBinding>(window, control, binding) ||
                     Try<platform::Grid, ListView, ListBinding>(window, control, binding, services) ||
                     Try<platform::TabControl, TabBar, TabBinding>(window, control, binding) ||
                     Try<platform::TextBox, TextEdit, TextEditBinding>(window, control, binding) ||
                     Try<platform::TextBox, MemoEdit, MemoEditBinding>(window, control, binding) ||
                     Try<platform::ComboBox, ComboEdit, ComboBinding>(window, control, binding) ||
                     Try<platform::CheckBox, QCheckBox, CheckBoxBinding>(window, control, binding) ||
                     Try<platform::OptionButton, QRadioButton, OptionBinding>(window, control, binding) ||
                     Try<platform::CommandButton, QPushButton, CommandBinding>(window, control, binding) ||
                     Try<platform::Label, QLabel, LabelBinding>(window, control, binding) ||
                     Try<platform::Frame, QGroupBox, GroupBinding>(window, control, binding) ||
                     Try<platform::Frame, QFrame, FrameBinding>(window, control, binding) ||
                     Try<platform::MapControl, MapView, MapBinding>(window, control, binding, services) ||
                     Try<platform::StatusBar, QStatusBar, StatusBarBinding>(window, control, binding) ||
                     Try<platform::ProgressBar, QProgressBar, ProgressBinding>(window, control, binding) ||
                     Try<platform::ListBox, QListWidget, ListBoxBinding>(window, control, binding) ||
                     Try<platform::ScrollBar, QScrollBar, ScrollBarBinding>(window, control, binding) ||
                     Try<platform::SpinButton, SpinPair, SpinBinding>(window, control, binding);
  if (!bound) control.Owner().Host().Log(platform::LogLevel::Warning, "window: no widget for " + control.FullName());
  return binding;
}

}  // namespace desktop
