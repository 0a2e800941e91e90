#pragma once

#include "platform/controls/form/control.h"

namespace platform {

/// A screen's printer dialog. A cancelled dialog leaves the properties as they were.
class CommonDialog final : public Control {
 public:
  using Control::Control;
  bool CancelError = false;
  int FromPage = 0;
  int ToPage = 0;
  int Copies = 1;
  void ShowPrinter();
};

}  // namespace platform
