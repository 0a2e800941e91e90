#include "desktop/window/form_designs.h"

#include "ui_frmCustMain.h"

namespace desktop {

std::vector<FormDesign> LibraryDesigns() { return {DesignFrom<Ui::frmCustMain>("frmCustMain")}; }

}  // namespace desktop
