#pragma once

#include "platform/controls/buttons.h"
#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/lists.h"
#include "platform/controls/toolbar.h"
#include "platform/data/text_table.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// In which order mailing labels are printed: always by the same four fields, whose order the user changes. It writes the job of the
/// catalogue's report.
class frmMailLabel final : public platform::Screen {
 public:
  explicit frmMailLabel(platform::Application& application);

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  void Form_MouseMove() override;

  // --- Controls, in tab order -----------------------------------------------------------------------------------------
  platform::Label sivbLB1;
  platform::DataControl DataSort;
  platform::Grid TDBGrid1;
  platform::SpinButton CSSpin1;
  platform::ControlArray<platform::CommandButton, 2> cmdSort;  ///< 0 "Ok", 1 "Cancel"
  platform::StatusBar StatusBar1;
  /// Stand in no menu: the keys of the arrows and of the buttons.
  platform::MenuItem miUp, miDown, miOk, miCancel;

 private:
  void MoveField(bool Down);
  void cmdSort_Click(int Index);

  platform::TextTable mSort;  ///< fields in their order, numbered; the numbers never move
};

namespace screens {
extern platform::ScreenRef<orcussch::frmMailLabel> frmMailLabel;
}  // namespace screens

}  // namespace orcussch
