#include "desktop/window/form_designs.h"

#include "ui_frmAccounts.h"
#include "ui_frmChildParentCustomers.h"
#include "ui_frmCreditCardSetup.h"
#include "ui_frmCustMain.h"
#include "ui_frmCustQueries.h"
#include "ui_frmCustReports.h"
#include "ui_frmCustStats.h"
#include "ui_frmMailLabel.h"
#include "ui_frmMap.h"
#include "ui_frmMapCode.h"
#include "ui_frmPhoneSetup.h"
#include "ui_frmTaxSetup.h"
#include "ui_frmTaxSetupQueries.h"
#include "ui_frmUserStartup.h"

namespace desktop {

std::vector<FormDesign> LibraryDesigns() {
  return {
      DesignFrom<Ui::frmAccounts>("frmAccounts"),
      DesignFrom<Ui::frmChildParentCustomers>("frmChildParentCustomers"),
      DesignFrom<Ui::frmCreditCardSetup>("frmCreditCardSetup"),
      DesignFrom<Ui::frmCustMain>("frmCustMain"),
      DesignFrom<Ui::frmCustQueries>("frmCustQueries"),
      DesignFrom<Ui::frmCustReports>("frmCustReports"),
      DesignFrom<Ui::frmCustStats>("frmCustStats"),
      DesignFrom<Ui::frmMailLabel>("frmMailLabel"),
      DesignFrom<Ui::frmMap>("frmMap"),
      DesignFrom<Ui::frmMapCode>("frmMapCode"),
      DesignFrom<Ui::frmPhoneSetup>("frmPhoneSetup"),
      DesignFrom<Ui::frmTaxSetup>("frmTaxSetup"),
      DesignFrom<Ui::frmTaxSetupQueries>("frmTaxSetupQueries"),
      DesignFrom<Ui::frmUserStartup>("frmUserStartup"),
  };
}

}  // namespace desktop
