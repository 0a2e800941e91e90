#include "desktop/window/form_designs.h"

#include "ui_frmCustMain.h"
#include "ui_frmCustQueries.h"
#include "ui_frmTaxSetup.h"
#include "ui_frmTaxSetupQueries.h"
#include "ui_frmUserStartup.h"

namespace desktop {

std::vector<FormDesign> LibraryDesigns() {
  return {
      DesignFrom<Ui::frmCustMain>("frmCustMain"),
      DesignFrom<Ui::frmCustQueries>("frmCustQueries"),
      DesignFrom<Ui::frmTaxSetup>("frmTaxSetup"),
      DesignFrom<Ui::frmTaxSetupQueries>("frmTaxSetupQueries"),
      DesignFrom<Ui::frmUserStartup>("frmUserStartup"),
  };
}

}  // namespace desktop
