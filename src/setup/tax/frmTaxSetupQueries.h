#pragma once

#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/data_control.h"
#include "platform/controls/label.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// Which rates the tax setup shows: those of a type, of an entity, of both, or all. It hides when it is done, and is as the user
/// left it at the next opening, also of another tax setup.
class frmTaxSetupQueries final : public platform::Screen {
 public:
  explicit frmTaxSetupQueries(platform::Application& application);
  void Form_Load() override;
  void Form_Unload() override;

  platform::Toolbar Toolbar1;
  platform::DataControl DataTypes, DataEntities;
  platform::ControlArray<platform::CheckBox, 3> chkSelect;  ///< all, by type, by entity
  platform::Frame fraTypes;
  platform::ComboBox cboTypes;
  platform::Frame fraEntities;
  platform::ComboBox cboEntities;

 private:
  void chkSelect_Click(int Index);
  void Toolbar1_ButtonClick(const std::string& Key);
  std::string BuildWhere() const;
};

namespace screens {
extern platform::ScreenRef<orcussch::frmTaxSetupQueries> frmTaxSetupQueries;
}  // namespace screens

}  // namespace orcussch
