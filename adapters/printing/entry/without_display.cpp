#include "printing/entry/without_display.h"

#include <QApplication>

namespace printing {

namespace {

template <class Application>
std::unique_ptr<QGuiApplication> Make() {
  if (QCoreApplication::instance() != nullptr) return nullptr;
  static int count = 3;
  static char name[] = "report", option[] = "-platform", platform[] = "offscreen";
  static char* words[] = {name, option, platform, nullptr};
  return std::make_unique<Application>(count, words);
}

}  // namespace

std::unique_ptr<QGuiApplication> ToolkitWithoutDisplay() { return Make<QGuiApplication>(); }

std::unique_ptr<QGuiApplication> WindowsWithoutDisplay() { return Make<QApplication>(); }

}  // namespace printing
