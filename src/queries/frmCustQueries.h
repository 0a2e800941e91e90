#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"
#include "queries/criteria.h"

namespace orcussch {

/// The query screen: which customers the main screen is to list. Four tabs of criteria (criteria.h), each switched on by its own
/// check box. Once loaded it lives hidden, with its entries, until the main screen goes.
///
/// design.cpp has what is fixed, life.cpp loading and the start on the user's own criterion, enabling.cpp what switches what,
/// lists.cpp the two lists' searches, run.cpp the toolbar, query_builder.cpp the statement.
class frmCustQueries final : public platform::Screen {
 public:
  template <class T, std::size_t N>
  using Array = platform::ControlArray<T, N>;

  explicit frmCustQueries(platform::Application& application);

  // Life.
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  void Form_MouseMove() override;

  // --- Controls; design.cpp puts those of a tab into the order in which the Tab key goes through them ------------------------
  platform::Toolbar Toolbar1;
  platform::CheckBox chkSelectAll;
  platform::TabControl SSTab1;

  // Names and addresses; the frames 1, 7, 8, 9 and 10 and the last comparison belong to the next tab.
  Array<platform::Frame, 13> fraSQL;
  Array<platform::CheckBox, criteria::kTexts> chkSelectNameAdd;
  Array<platform::ComboBox, 9> cboSQL;
  Array<platform::TextBox, 9> txtNameAdd;

  // Miscellaneous.
  platform::Frame fraBillingStatus, Frame1, Frame2, Frame3;
  Array<platform::CheckBox, criteria::kMiscs> chkSelectMisc;
  Array<platform::OptionButton, 3> optStatus;
  Array<platform::OptionButton, 2> optInvoiceNo;
  platform::ClassEdit txtInvoiceNo;
  platform::TextBox txtCreditCard;
  Array<platform::OptionButton, 2> optBillingStatus;
  platform::TextBox txtCheckNo;
  platform::TextBox txtTaxID;
  Array<platform::OptionButton, 2> optOmitFinChg;
  Array<platform::DataControl, criteria::kLists> Data;
  Array<platform::Label, criteria::kLists> lblSch;
  Array<platform::Label, criteria::kLists> lblSearch;
  Array<platform::TextBox, criteria::kLists> txtSearch;
  Array<platform::Grid, criteria::kLists> grid;

  // Amounts, dates: a frame for each range, the even index its lower end.
  Array<platform::Frame, criteria::kAmounts / 2> fraAmount;
  Array<platform::CheckBox, criteria::kAmounts> chkSelectAmount;
  Array<platform::CurrencyEdit, criteria::kAmounts> txtAmount;
  Array<platform::Frame, criteria::kDates / 2> fraDate;
  Array<platform::CheckBox, criteria::kDates> chkSelectDate;
  Array<platform::DateEdit, criteria::kDates> txtDate;

  platform::StatusBar StatusBar1;

 private:
  // design.cpp
  void DesignNames();
  void DesignMisc();
  void DesignLists();
  void DesignAmounts();
  void DesignDates();
  void ArrangeTabOrder();
  void AttachHandlers();
  platform::Frame& MiscFrame(int Index);

  // life.cpp
  void StartOnUsersCriterion();
  void TakeBillingStatus();
  void FocusUsersCriterion(int QueryField);

  // enabling.cpp
  std::vector<platform::Control*> SwitchedByMisc(int Index);
  void chkSelectAll_Click();
  void chkSelectNameAdd_Click(int Index);
  void chkSelectMisc_Click(int Index);
  void chkSelectAmount_Click(int Index);
  void chkSelectDate_Click(int Index);
  void optInvoiceNo_Click(int Index);
  /// The query may be run again.
  void OfferRun() { Toolbar1.Button("tb_RunQuery").Enabled(true); }

  // lists.cpp
  void txtSearch_Change(int Index);
  void txtSearch_KeyPress(int Index, int KeyAscii);
  void SearchRecord(int Index);

  // run.cpp
  void Toolbar1_ButtonClick(const std::string& Key);
  void RunQuery();
  void BuildSQL();

  bool mFocusWanted = false;  ///< Form_Activate still has to place the focus for the user's start-up choice
};

namespace screens {
/// The one instance of the query screen.
extern platform::ScreenRef<orcussch::frmCustQueries> frmCustQueries;
}  // namespace screens

}  // namespace orcussch
