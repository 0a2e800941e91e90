#pragma once

#include <optional>
#include <string>

#include "platform/host/screen_ref.h"
#include "setup/code_table_screen.h"

namespace orcussch {

/// The map codes and the places that they stand for (table Locations). The main screen also opens it to choose a code for the
/// customer in hand; it then hides and stays as it is until it is closed.
class frmMapCode final : public CodeTableScreen {
 public:
  explicit frmMapCode(platform::Application& application);
  void Form_Unload() override;
  void TestRecordcount() override;

  platform::TextBox txtMapCode;
  platform::TextBox txtLocation;

 private:
  void OpenTables() override;
  void Loading() override;
  void RunOwnKey(const std::string& Key) override;
  std::string SearchTitle() const override { return "Map Code Search"; }
  platform::Control& FirstField() override { return txtMapCode; }
  bool Add() override;
  bool Edit() override;
  bool Complete() override;
  std::optional<std::string> Write(bool adding) override;
  SetupDeletion Deletion() override;
  bool IsEntered(platform::TextBox& entry, const char* message) const;
  void Choose();

  platform::RecordsetRef rsLocationTable;
};

namespace screens {
extern platform::ScreenRef<orcussch::frmMapCode> frmMapCode;
}  // namespace screens

}  // namespace orcussch
