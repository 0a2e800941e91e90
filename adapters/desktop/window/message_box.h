#pragma once

#include <QMessageBox>
#include <functional>
#include <string>

namespace desktop {

/// Shows a message box by the style numbers of namespace platform::box and returns the number of the button that closed it.
/// `shown` is called once from the box's own loop. A box whose window goes away answers as if it was refused.
int RunMessageBox(const std::string& text, int style, const std::string& title, QWidget* parent,
                  const std::function<void(QMessageBox&)>& shown = {});
/// The button of the box that gives this answer; nullptr if it has none.
QAbstractButton* ButtonFor(const QMessageBox& box, int answer);

}  // namespace desktop
