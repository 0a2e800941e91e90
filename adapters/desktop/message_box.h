#pragma once

#include <QMessageBox>
#include <memory>
#include <string>

namespace desktop {

/// A message box by the style numbers of namespace platform::box.
std::unique_ptr<QMessageBox> MakeMessageBox(const std::string& text, int style, const std::string& title, QWidget* parent);
/// The number of the button that closed it.
int AnswerOf(const QMessageBox& box, int style);
/// The button of the box that gives this answer; nullptr if it has none.
QAbstractButton* ButtonFor(const QMessageBox& box, int answer);

}  // namespace desktop
