#pragma once

#include <optional>
#include <string>

#include "platform/host/screen_ref.h"
#include "setup/code_table_screen.h"

namespace orcussch {

/// The credit cards that the business takes, and what the bank charges on each (table CreditCardTypes).
class frmCreditCardSetup final : public CodeTableScreen {
 public:
  explicit frmCreditCardSetup(platform::Application& application);
  void Form_Unload() override;

  bool RecordsChanged = false;  ///< something was saved, or written in the list: the main screen's list is opened anew at closing

  platform::TextBox txtCreditCardName;
  platform::NumberEdit txtBankCharge;  ///< percent

 private:
  void OpenTables() override;
  platform::Control& FirstField() override { return txtCreditCardName; }
  bool Add() override;
  bool Edit() override;
  bool Complete() override;
  std::optional<std::string> Write(bool adding) override;
  void Saved() override { RecordsChanged = true; }
  SetupDeletion Deletion() override;
  std::string RefusesCell(int column, const platform::Value& value) override;

  platform::RecordsetRef rsCreditCardTypes;
  platform::RecordsetRef rsCardUse;
};

namespace screens {
extern platform::ScreenRef<orcussch::frmCreditCardSetup> frmCreditCardSetup;
}  // namespace screens

}  // namespace orcussch
