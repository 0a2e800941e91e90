#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "maintenance/card_desk.h"
#include "maintenance/tabs/record_tab.h"
#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/card_screen.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/report_control.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"
#include "session/failures.h"

namespace orcussch {

/// The tabs of the maintenance screen, in order.
namespace tab {
inline constexpr int Customers = 0;
inline constexpr int Phones = 1;
inline constexpr int Addresses = 2;
inline constexpr int CreditCards = 3;
inline constexpr int LaborRates = 4;
inline constexpr int CustomerTypes = 5;
inline constexpr int KeyWords = 6;
inline constexpr int Count = 7;
}  // namespace tab

/// The main screen: the customer list and the six lists of the current customer, each on a tab with a list page (0) and a
/// record page (1), under a common toolbar and menu.
///
/// The procedures stand in several files: frame.cpp (life, modes, tabs), commands.cpp (toolbar and menu), card_desk.cpp (what the desk
/// adds where the user starts them), lists.cpp (what each
/// list shows), ordering.cpp, search.cpp, selection.cpp, assignment.cpp, records.cpp (the frame of add, edit, save and
/// cancel), deletion.cpp, grid_editing.cpp, labor_rates.cpp, card_handlers.cpp; what is special to one kind of record stands in
/// tabs/.
class frmCustMain final : public platform::Screen, public platform::CardScreen {
 public:
  template <class T, std::size_t N>
  using Array = platform::ControlArray<T, N>;

  frmCustMain();
  ~frmCustMain() override;

  // Life.
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;

  // Modes.
  void EditingRecord(bool Editing);
  void EditSetup();
  void TestRecordcount();
  void RefreshRecords();

  // Lists.
  void SQLData(int Tab);
  bool SQLTaxBasis();  ///< whether it ran to its end
  void grid_HeadClick(int Index, int ColIndex);
  void grdTaxBasis_HeadClick(int ColIndex);

  // Search and selection.
  void SearchRecord(int Tab);
  void SelectCustomer();
  void SelectAllRecords(platform::Grid& Grid, platform::RecordsetRef Rs);
  void UnselectAllRecords(platform::Grid& Grid);
  void TestGridSelection(platform::Grid& Grid);

  // Assignment lists.
  void LoadTaxBasis(bool Customer);
  void LoadCustTypes();
  void LoadKeyWords();
  void SelectedAssignment(bool Assign);
  std::int16_t NextDataCode();

  // Labor rates.
  bool CustomerDeptLaborRate();
  void DeptChange();

  // Customer card.
  void txtComment_GotFocus();
  void txtComment_LostFocus();

  // Record operations, on the current tab.
  void RecordAdd();
  void RecordEdit();
  void RecordSave();
  void RecordCancel();
  void RecordDelete();

  /// Whether the control, or a frame around it, was put on that tab's card, shown now or not.
  bool IsOnCard(const platform::Control& control, int Tab) const;
  bool HasUnsavedEntries() const override { return mDesk.Unsaved(); }
  std::string CardMode() const override { return mDesk.Mode(); }
  bool AddsOwner() const override;

  /// "Customer Record" ... "Key Word Record": the tab's caption, trimmed, less its last character, and " Record". The cut is
  /// blind; titles and questions of the record operations are built on it.
  std::string RecordLabel() const;
  /// The tab control's current tab.
  int Tab() const { return SSIndexTab1.Tab(); }

  std::int32_t mInstance = 0;                       ///< marks this screen's rows in the work tables
  bool mTaxesLoaded = false;                        ///< the list of taxes shows what the customer of the card has
  std::string mRecordMode;                          ///< "A" adding, "E" editing; keeps its last value
  int mCardNumber = 0;                              ///< rises whenever a card is opened or closed
  bool mToolbarReady = false;                       ///< the toolbar does nothing while this is false
  bool mFormActive = false;                         ///< false until the first Form_Activate; row changes are not looked at before
  std::array<std::int32_t, tab::Count> mTabAcct{};  ///< the account a tab was last loaded for; 0 reloads at each visit

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
  Array<platform::OptionButton, 2> optOrder0, optOrder1, optOrder2, optOrder3, optOrder4, optOrder5, optOrder6;
  Array<platform::OptionButton, 2> optAllDept;
  platform::NumberEdit txtAdjustAllDept;
  platform::CommandButton cmdAddAllDepts;
  Array<platform::OptionButton, 3> optCustTypeDisp, optKeyWordDisp;
  Array<platform::Grid, tab::Count> grid;

  // Customer card.
  platform::TextBox txtLastName, txtFirstName, txtTitle, txtAddr1, txtAddr2, txtCity, txtState, txtZip, txtCountry;
  platform::ComboBox cboTerms;
  platform::CurrencyEdit txtCreditLimit;
  platform::CheckBox chkHoldCredit;
  platform::Frame fraStatus;
  Array<platform::OptionButton, 3> optStatus;
  platform::Frame fraBillingStatus;
  Array<platform::OptionButton, 2> optBillingStatus;
  platform::CheckBox chkAgeMethod, chkOmitFinChg;
  platform::TextBox txtEMail, txtWebSite;
  platform::ComboBox cboSalesRate;
  platform::CommandButton cmdPlusMinus;
  platform::NumberEdit txtSalesRatePer;
  platform::Frame fraLaborRate;
  Array<platform::OptionButton, 3> optLaborRate;
  platform::CurrencyEdit txtLaborRate;
  platform::CommandButton cmdMapCode;
  Array<platform::Label, 2> lblMapCode;
  platform::Frame fraTax;
  platform::TextBox txtTaxID;
  platform::DateEdit txtExemptExpireDate;
  platform::Frame fraTaxBasis;
  Array<platform::OptionButton, 3> optTaxDisp;
  platform::Grid grdTaxBasis;
  platform::Frame fraComment;
  platform::TextBox txtComment;

  // Phone card.
  platform::Label lblPhoneRecordID;
  platform::TextBox txtPhoneArea, txtPhone, txtPhoneExt;
  platform::ComboBox cboPhoneTypes;
  platform::TextBox txtPhoneComment;
  platform::CheckBox chkDefaultPhone;

  // Alternate address card.
  platform::Label lblAltAddressID;
  platform::TextBox txtAltAddr1, txtAltAddr2, txtAltCity, txtAltState, txtAltZip, txtAltCountry;
  Array<platform::ComboBox, 2> cboActiveMonth;
  platform::TextBox txtAltComment;
  Array<platform::CheckBox, 2> chkDefaultAddr;

  // Credit card card.
  platform::ComboBox cboCreditCards;
  platform::TextBox txtCCNumber, txtCCHolder, txtCCMonth, txtCCYear;
  platform::CurrencyEdit txtCCLimit;
  platform::TextBox txtCCComment;
  platform::CheckBox chkDefaultCC;

  // Labor rate card.
  platform::ComboBox cboDepts;
  platform::NumberEdit txtRateAdjustment;
  platform::Frame SSPanel1;
  platform::TextBox txtDeptNo;
  platform::CurrencyEdit txtDeptRate, txtDeptAdjust, txtDeptAdjustRate;

  // Customer type and key word cards.
  platform::TextBox txtCustomerType;
  platform::CheckBox chkAssignCustType;
  platform::TextBox txtKeyWord;
  platform::CheckBox chkAssignKeyWord;

  platform::StatusBar StatusBar1;
  platform::ReportControl Report1;
  platform::CommonDialog CommonDialog1;
  /// Stands in no menu of the screen's own; the windows show it at the end of menu Edit.
  platform::MenuItem miTypedBack;

 private:
  // design.cpp, columns.cpp: what the screen's design fixes.
  void DesignListPages();
  void DesignListRows();
  void DesignCards();
  void DesignCombos();
  void DesignColumns();
  void AttachCommands();
  void AttachHandlers();

  // frame.cpp
  void OpenComboLists();
  void CaptionCombos();
  void TakeHostBillingStatus();
  void StandOnHostAccount();
  void EnableSetupKeys(bool Editing);
  void EnableSelectionKeys();
  void EnableTabs();

  // tabs_control.cpp
  void SSIndexTab1_BeforeTabClick(bool& Cancel);
  void SSIndexTab1_Click();
  void LoadTab(int Tab);
  void FollowCustomer();

  // commands.cpp
  void Toolbar1_ButtonClick(const std::string& Key);
  void RunCommand(const std::string& Key);
  /// What a user's click of the menu runs; `Key` names the toolbar key of the same command.
  void UserRuns(const std::string& Key, const std::function<void()>& body);
  void SaveAndGoOn();
  void FindOnTab();
  void SelectAllOnTab();
  void UnselectAllOnTab();
  void cmdMapCode_Click();

  // lists.cpp
  std::string ListStatement(int Tab, std::int32_t Acct);
  std::string CustomersStatement();
  void data_Reposition();
  void ShowCustomerName();
  void CloseTabsOfNonBillable();
  void grid_LostFocus(int Index);

  // ordering.cpp
  Array<platform::OptionButton, 2>& optOrder(int Tab);
  void optOrder_Click(int Tab);
  void grid_Sort(int Index, int ColIndex, bool Descending);
  bool OrderByColumn(int Index, int ColIndex);

  // records.cpp, deletion.cpp
  RecordTab& CurrentRecord() const;
  void BeginWork();
  void EndWork();
  void OpenCard(RecordTab& record, const CardRecord& card);
  void CloseCard();
  bool CardIs(int Tab, int Number) const;
  void ShowSaved(ResumeNext& on, const SaveState& state, int Tab);
  void StandOn(ResumeNext& on, int Tab, const std::string& Position);
  bool StandOnDeleted(ResumeNext& on, const DeleteState& state);
  void RepairDefaults(ResumeNext& on, const DeleteState& state);

  // grid_editing.cpp
  void grid_BeforeColUpdate(int Index, int ColIndex, const platform::Value& OldValue, bool& Cancel);
  void grid_AfterColUpdate(int Index, int ColIndex);
  void grid_AfterColEdit(int Index);
  void grdTaxBasis_AfterColUpdate();
  void Assign(int Tab);
  void Rename(int Tab);

  // labor_rates.cpp
  void txtRateAdjustment_Change();
  void ShowAdjustedRate();
  void optLaborRate_Click(int Index);
  void optAllDept_Click(int Index);
  void cmdAddAllDepts_Click();
  void AddAllDepartments(ResumeNext& on, std::int32_t Acct);
  bool ApplyAdjustment(ResumeNext& on, const platform::RecordsetRef& Rates);
  void StandOnDepartment(ResumeNext& on, const std::string& Dept);

  // card_handlers.cpp
  void txtPhoneArea_KeyPress(int& KeyAscii);
  void txtZip_LostFocus();
  void cmdPlusMinus_Click();
  void txtCreditLimit_MouseMove();
  void optLaborRate_MouseMove(int Index);
  void fraLaborRate_MouseMove();

  // search.cpp
  void txtSearch_Change(int Index);
  void txtSearch_KeyPress(int Index, int& KeyAscii);
  std::string SearchValue(int Tab) const;

  // assignment.cpp
  void TickCustomersTaxes();
  void optTaxDisp_Click();
  void optCustTypeDisp_Click();
  void optKeyWordDisp_Click();
  void CaptionFilteredList(int Tab, const Array<platform::OptionButton, 3>& Display);

  /// The customer for whom the list of types (key words) was filled last; nothing while there was none.
  std::array<std::optional<std::int32_t>, tab::Count> mAssignAcct{};

  platform::ToolbarButton& tb(const char* Key) const { return Toolbar1.Button(Key); }

  std::array<std::unique_ptr<RecordTab>, tab::Count> mRecords;
  std::string mAreaDigits;  ///< what has been typed into the area code at one go, beyond its own length
  std::array<std::vector<platform::Control*>, tab::Count> mCards;  ///< what was put on each card, without what its frames hold
  CardDesk mDesk{*this};
};

/// Style of a question with No as its default.
inline constexpr int kYesNoQuestion = platform::box::Question + platform::box::YesNo + platform::box::SecondButtonDefault;

/// Whether the list holds at least one row; false before its first opening.
bool HasRecords(const platform::DataControl& Data);
/// The tab's caption without its outer blanks.
std::string TrimmedCaption(const frmCustMain& Screen, int Tab);

namespace screens {
/// The one instance of the main screen.
extern platform::ScreenRef<orcussch::frmCustMain> frmCustMain;
}  // namespace screens

}  // namespace orcussch
