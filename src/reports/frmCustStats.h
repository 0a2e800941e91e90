#pragma once

#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// The payment figures and key dates of the main screen's current customer, as they are kept with him; nothing can be changed here.
class frmCustStats final : public platform::Screen {
 public:
  explicit frmCustStats(platform::Application& application);

  void Form_Load() override;
  void Form_Unload() override;

  // --- Controls, in tab order -----------------------------------------------------------------------------------------
  platform::ControlArray<platform::Label, 5> lblCustomer;  ///< the name, three lines of the address, the country
  platform::Label lblAcctNum;
  platform::Label lblStatus;
  platform::CurrencyEdit txtCurrBalance, txtCurrFinanceCharge, txtPaidThisMonth, txtPaidToDate, txtPaidThisYear, txtPaidLastYear;
  platform::DateEdit txtEntryDate, txtLastTrans, txtLastOrdDate, txtLastStateDate, txtLastPayDate;
  /// Stands in no menu; Escape runs it.
  platform::MenuItem miClose;

 private:
  void ShowAddress(const platform::RecordsetRef& Customer);
  void ShowFigures(const platform::RecordsetRef& Customer);
};

namespace screens {
extern platform::ScreenRef<orcussch::frmCustStats> frmCustStats;
}  // namespace screens

}  // namespace orcussch
