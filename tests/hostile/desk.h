#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "maintenance/frmCustMain.h"
#include "platform/host/user_hands.h"

namespace hostile {

/// The user at the screen that is up. He reaches only what is to be seen, enabled and on top: everything else raises
/// robot::ActionFailed, also when no screen is up any more.
class Desk {
 public:
  explicit Desk(platform::Application& app);

  /// The main screen, shown and taking input or not; nullptr when it is not loaded.
  orcussch::frmCustMain* Screen() const;
  orcussch::frmCustMain& UpScreen() const;
  bool CanUse(const std::string& name) const;

  void Click(const std::string& name) const;
  void Type(const std::string& name, std::string_view text) const;
  void Pick(const std::string& name, const std::string& key) const;
  void Check(const std::string& name) const;
  void Key(const std::string& name, std::string_view key) const;
  void Tab(int tab) const;
  void Tab(const std::string& tabs, int tab) const;
  /// The row with that text in that field, of a list in the exact or live way.
  void Row(const std::string& grid, const std::string& field, const std::string& text) const;
  void Head(const std::string& grid, int column) const;
  void MarkAll(const std::string& grid) const;
  void Cell(const std::string& grid, int column, std::string_view text) const;
  void CloseByFrame() const;

  // On whichever screen is up.
  platform::Form& Top() const;
  /// The list that is to be seen.
  std::string ListUp() const;
  bool IsOn(const std::string& option) const;
  void LastRow(const std::string& grid) const;
  void CloseTopByFrame() const;
  /// The window system hands a close to the main screen below; it waits until nobody works there.
  void CloseMainByFrame() const;
  /// Somebody in the program takes the main screen away, and with it what stands on it.
  void UnloadMain() const;

  /// Runs a procedure of the screen as an act of the user.
  void Run(void (*procedure)(orcussch::frmCustMain&)) const;

  /// Fills the open card of the current tab so that it can be saved: as far as its controls can be reached.
  void FillCard() const;
  /// Leaves out or takes away what the card's tests demand.
  void SpoilCard() const;

 private:
  platform::Control& Usable(const std::string& name) const;
  template <class T>
  T& UsableAs(const std::string& name) const;

  platform::Application& app_;
  std::unique_ptr<platform::UserHands> hands_;
};

/// "txtSearch(3)".
std::string Indexed(const std::string& name, int index);

/// The rows of a list as handed out, by reference or by handle.
inline platform::Recordset& RowsOf(platform::Recordset& rows) { return rows; }
inline platform::Recordset& RowsOf(const platform::RecordsetRef& rows) { return *rows; }

}  // namespace hostile
