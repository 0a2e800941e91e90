#include "desktop/window/form_designs.h"

#include "ui_frmCreditCardSetup.h"
#include "ui_frmCustMain.h"
#include "ui_frmMapCode.h"
#include "ui_frmPhoneSetup.h"

namespace desktop {

std::vector<FormDesign> LibraryDesigns() {
  return {
      DesignFrom<Ui::frmCustMain>("frmCustMain"),
      DesignFrom<Ui::frmCreditCardSetup>("frmCreditCardSetup"),
      DesignFrom<Ui::frmMapCode>("frmMapCode"),
      DesignFrom<Ui::frmPhoneSetup>("frmPhoneSetup"),
  };
}

}  // namespace desktop
