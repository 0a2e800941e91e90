#pragma once

#include <QMainWindow>
#include <memory>

#include "desktop/binding/binding.h"

namespace desktop {

class Services;

/// The binding for a control, by its type, with the widget of the window that bears its name. Nothing for controls that are never seen
/// (data controls, dialogs, reports) and for a control whose widget the layout lacks (one diagnostic line).
std::unique_ptr<Binding> MakeBinding(QMainWindow& window, Services& services, platform::Control& control);

/// Whether controls of this type have a widget (or an action) of their own.
bool HasWidget(const platform::Control& control);

}  // namespace desktop
