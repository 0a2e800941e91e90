#include "platform/common_dialog.h"

#include "platform/application.h"

namespace platform {

void CommonDialog::ShowPrinter() {
  const auto choice = Owner().App().FrontEnd().PrinterDialog(Owner());
  if (!choice) return;
  FromPage = choice->fromPage;
  ToPage = choice->toPage;
  Copies = choice->copies;
}

}  // namespace platform
