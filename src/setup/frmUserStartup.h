#pragma once

#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/label.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// How the user's sessions begin, and what follows a new customer: the user's row of table UserStartup.
///
/// There is no cancel: closing the screen saves nothing. A save that fails leaves its button closed; the screen has to be opened
/// again.
class frmUserStartup final : public platform::Screen {
 public:
  explicit frmUserStartup(platform::Application& application);

  void Form_Load() override;
  void Form_Unload() override;

  // --- Controls, in tab order -----------------------------------------------------------------------------------------
  platform::Label lblUser;
  platform::Frame Frame1;  ///< holds the start form and the field
  platform::Frame Frame2;
  platform::ControlArray<platform::OptionButton, 2> optForm;  ///< 0 the customers' list, 1 the query screen
  platform::ComboBox cboQuery;                                ///< by code: one digit of the query screen's tab, two of its field
  platform::Frame Frame3;
  platform::CheckBox chkAddPhone;
  platform::CommandButton cmdSave;
  /// Stands in no menu; Escape runs it.
  platform::MenuItem miClose;

 private:
  void cmdSave_Click();
  void ShowQueryField(const std::string& code);
  std::string ChosenCode() const;
};

namespace screens {
extern platform::ScreenRef<orcussch::frmUserStartup> frmUserStartup;
}  // namespace screens

}  // namespace orcussch
