#include "platform/controls/common_dialog.h"

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"

namespace platform {

void CommonDialog::ShowPrinter() {
  const auto choice = Owner().Host().PrinterDialog(Owner());
  if (!choice) return;
  FromPage = choice->fromPage;
  ToPage = choice->toPage;
  Copies = choice->copies;
}

}  // namespace platform
