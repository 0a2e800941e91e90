#include "desktop/window/form_designs.h"

#include "ui_frmCustMain.h"
#include "ui_frmCustQueries.h"

namespace desktop {

std::vector<FormDesign> LibraryDesigns() {
  return {
      DesignFrom<Ui::frmCustMain>("frmCustMain"),
      DesignFrom<Ui::frmCustQueries>("frmCustQueries"),
  };
}

}  // namespace desktop
