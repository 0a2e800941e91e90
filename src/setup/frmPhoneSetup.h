#pragma once

#include <optional>
#include <string>

#include "platform/host/screen_ref.h"
#include "setup/code_table_screen.h"

namespace orcussch {

/// The kinds of telephone number that a customer's phone can have (table PhoneTypes).
class frmPhoneSetup final : public CodeTableScreen {
 public:
  explicit frmPhoneSetup(platform::Application& application);
  void Form_Unload() override;

  bool RecordsChanged = false;  ///< something was saved, or written in the list: the main screen's lists are opened anew at closing

  platform::TextBox txtPhone;

 private:
  void OpenTables() override;
  platform::Control& FirstField() override { return txtPhone; }
  bool Add() override;
  bool Edit() override;
  bool Complete() override;
  std::optional<std::string> Write(bool adding) override;
  void Saved() override { RecordsChanged = true; }
  SetupDeletion Deletion() override;
  std::string RefusesCell(int column, const platform::Value& value) override;

  platform::RecordsetRef rsPhoneTypes;
  platform::RecordsetRef rsPhoneUse;
};

namespace screens {
extern platform::ScreenRef<orcussch::frmPhoneSetup> frmPhoneSetup;
}  // namespace screens

}  // namespace orcussch
