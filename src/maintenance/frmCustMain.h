#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "maintenance/card_desk.h"
#include "maintenance/record_tab.h"
#include "maintenance/tabs.h"
#include "platform/controls/buttons.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/card_screen.h"
#include "platform/controls/form/filtered_screen.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/report_control.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"
#include "records/record_operations.h"

namespace orcussch {

/// The main screen: the customer list and the six lists of the current customer, each on a tab with a list page (0) and a
/// record page (1), under a common toolbar and menu.
///
/// What belongs to one kind of record (its list, its card, its branches of the record operations) stands in its file in tabs/. The
/// screen's own procedures stand in design.cpp (what is fixed), frame.cpp (life and modes), tabs_control.cpp,
/// commands.cpp (toolbar and menu), lists.cpp (filling the lists), ordering.cpp, search.cpp, selection.cpp, grid_editing.cpp, records.cpp.
class frmCustMain final : public platform::Screen, public platform::CardScreen, public platform::FilteredScreen, public RecordOperations {
 public:
  template <class T, std::size_t N>
  using Array = platform::ControlArray<T, N>;

  explicit frmCustMain(platform::Application& application);
  ~frmCustMain() override;

  // Life.
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;

  // Modes.
  void EditingRecord(bool Editing) override;
  void EditSetup() override;
  void TestRecordcount() override;
  void RefreshRecords();

  // Lists.
  void SQLData(int Tab);
  void grid_HeadClick(int Index, int ColIndex);
  void ShowCustomerName();
  /// The customers' list has moved by itself while another tab was up, which can only have come up in a yield: that tab's list
  /// belongs to the customer of before.
  void FollowCustomer();

  // Search and selection.
  void SearchRecord(int Tab);
  void SelectCustomer();
  void SelectAllRecords(platform::Grid& Grid, platform::RecordsetRef Rs);
  void UnselectAllRecords(platform::Grid& Grid);
  void TestGridSelection(platform::Grid& Grid);

  // Lists with a check column.
  /// The list of taxes on the customer's card (tabs/customers_tab.cpp).
  void LoadTaxBasis(bool Customer);
  void SelectedAssignment(bool Assign);
  /// The map code on the customer's card, as the map code screen hands it back.
  void ShowMapCode(const std::string& MapCode, const std::string& Location);
  /// Whether the map code screen is opened to choose a code for the card.
  bool ChoosesMapCode() const { return Find("cmdMapCode")->Tag() == "Select"; }

  RecordTab& Record(int Tab) const { return *mRecords.at(static_cast<std::size_t>(Tab)); }
  platform::Screen& OnScreen() override { return *this; }
  bool HasUnsavedEntries() const override { return mDesk.Unsaved(); }
  std::string CardMode() const override { return mDesk.Mode(); }
  bool AddsOwner() const override;
  std::string FilterText() const override;

  /// "Customer Record" ... "Key Word Record": the tab's caption, trimmed, less its last character, and " Record". The cut is
  /// blind; titles and questions of the record operations are built on it.
  std::string RecordLabel() const;
  /// The tab control's current tab.
  int Tab() const { return SSIndexTab1.Tab(); }

  std::int32_t mInstance = 0;  ///< marks this screen's rows in the work tables
  bool mToolbarReady = false;  ///< the toolbar does nothing while this is false
  bool mFormActive = false;    ///< false until the first Form_Activate; row changes are not looked at before

  // --- Controls, in tab order -----------------------------------------------------------------------------------------
  platform::Toolbar Toolbar1;

  platform::MenuItem miPrint, miPreview, miPrintSetup, miExit;
  platform::MenuItem miFind, miSelect;
  platform::MenuItem miAddRec, miEditRec, miDeleteRec, miSaveRec, miCancelRec, miRefresh;
  platform::MenuItem miSetupTaxes, miSetupCreditCards, miSetupPhones, miSetupMapCodes, miMapCustomer, miMapAll, mnuUserStartup;
  platform::MenuItem miQueries, miStatistics, miReports, miRelationships, miSelectAll, miUnselectAll, miUnassignSelected, miAssignSelected;
  platform::Menu mnuFile, mnuEdit, mnuDate, mnuSetup, mnuTools;

  platform::Label lblCustomer, lblAcctNum;
  platform::TabControl SSIndexTab1;

  // List pages.
  Array<platform::DataControl, tab::Count> data;
  platform::DataControl DataPhoneTypes, DataSalesRate, DataTerms, DataTaxBasis, DataCreditCards, DataDepts;
  Array<platform::Frame, tab::Count> fraSearch;
  Array<platform::Label, tab::Count> lblSearch;
  Array<platform::TextBox, tab::Count> txtSearch;
  Array<platform::Frame, tab::Count> fraOrder;

 private:
  /// The kinds of record, with what their tabs show beside the lists: the choices of the order, the cards.
  std::array<std::unique_ptr<RecordTab>, tab::Count> mRecords;

 public:
  Array<platform::Grid, tab::Count> grid;

  platform::StatusBar StatusBar1;
  platform::ReportControl Report1;
  platform::CommonDialog CommonDialog1;
  /// Stands in no menu of the screen's own; the windows show it at the end of menu Edit.
  platform::MenuItem miTypedBack;

 private:
  // design.cpp: what the screen's design fixes.
  void DesignLists();
  void EmphasizeDefaults(int Tab);
  void DesignComboLists();
  void AttachCommands();
  void AttachHandlers();

  // frame.cpp
  void OpenComboLists();
  void StandOnHostAccount();
  void EnableSetupKeys(bool Editing);
  void EnableSelectionKeys();
  void EnableTabs();

  // tabs_control.cpp
  void SSIndexTab1_BeforeTabClick(bool& Cancel);
  void SSIndexTab1_Click();
  void LoadTab(int Tab);

  // commands.cpp
  void Toolbar1_ButtonClick(const std::string& Key);
  void RunCommand(const std::string& Key);
  /// What a user's click of the menu runs; `Key` names the toolbar key of the same command.
  void UserRuns(const std::string& Key, const std::function<void()>& body);
  void SaveAndGoOn();
  void FindOnTab();
  void SelectAllOnTab();
  void UnselectAllOnTab();

  // lists.cpp
  void data_Reposition();
  void CloseTabsOfNonBillable();
  void grid_LostFocus(int Index);

  // ordering.cpp
  void optOrder_Click(int Tab);
  void grid_Sort(int Index, int ColIndex, bool Descending);
  bool OrderByColumn(int Index, int ColIndex);

  // records.cpp: what the record operations ask of the screen.
  RecordTab& CurrentRecord() const override { return Record(Tab()); }
  RecordLiterals Literals() const override;
  RecordTexts Texts() const override;
  void Ready(bool ready) override { mToolbarReady = ready; }
  void TellWait(const std::string& text) override { StatusBar1.Panel(1, text); }
  bool CardIsUp() const override { return SSIndexTab1.Page() == 1; }
  void ShowList() override { SSIndexTab1.Page(0); }
  void LeavingCard() override { tb("tb_SaveRec").Enabled(false); }
  void ListIsUp() override { SSIndexTab1.Redraw(); }

  // grid_editing.cpp
  void grid_BeforeColUpdate(int Index, int ColIndex, const platform::Value& OldValue, bool& Cancel);
  void grid_AfterColEdit(int Index);

  // search.cpp
  void txtSearch_Change(int Index);
  void txtSearch_KeyPress(int Index, int& KeyAscii);
  std::string SearchValue(int Tab) const;

  platform::ToolbarButton& tb(const char* Key) const { return Toolbar1.Button(Key); }

  CardDesk mDesk{*this};
};

/// The tab's caption without its outer blanks.
std::string TrimmedCaption(const frmCustMain& Screen, int Tab);

namespace screens {
/// The one instance of the main screen.
extern platform::ScreenRef<orcussch::frmCustMain> frmCustMain;
}  // namespace screens

}  // namespace orcussch
