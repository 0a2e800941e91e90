#pragma once

#include "maintenance/display_options.h"
#include "maintenance/frmCustMain.h"
#include "maintenance/record_tab.h"
#include "platform/controls/combo.h"
#include "platform/controls/text_box.h"
#include "records/card_fields.h"

namespace orcussch {

/// The departmental labor rates of a customer: the record (labor_rates_tab.cpp), and the two acts on all of them that the list's
/// page offers (labor_rates_bulk.cpp).
class LaborRatesTab final : public RecordTab {
 public:
  explicit LaborRatesTab(frmCustMain& screen);

  std::string Statement(std::int32_t Acct) override;
  std::optional<std::string> OrderBy(const platform::GridColumn& column, int ColIndex) override;
  void Visit(const std::string& Caption) override;
  platform::Control& FirstField() override;
  void Loading() override;

  bool Add(ResumeNext& on) override;
  void Edit(ResumeNext& on) override;
  bool Save(ResumeNext& on, SaveState& state) override;
  bool MayDelete(ResumeNext& on, DeleteState& state) override;

 private:
  /// Whether the customer is flagged for departmental rates; if not, the user is told.
  bool IsDepartmental();
  /// A department's number in its three places, filled with blanks.
  static std::string FixedDept(const std::string& number);

  // The panel of the card.
  void DeptChange();
  void txtRateAdjustment_Change();
  void ShowAdjustedRate();

  // The list's page.
  void optAllDept_Click(int Index);
  void cmdAddAllDepts_Click();
  void AddAllDepartments(ResumeNext& on, std::int32_t Acct);
  bool ApplyAdjustment(ResumeNext& on, const platform::RecordsetRef& Rates);
  void StandOnDepartment(ResumeNext& on, const std::string& Dept);

  Array<platform::OptionButton, 2> optAllDept{s, "optAllDept"};
  platform::NumberEdit txtAdjustAllDept{s, "txtAdjustAllDept"};
  platform::CommandButton cmdAddAllDepts{s, "cmdAddAllDepts", "Add All Departments"};

  platform::ComboBox cboDepts{s, "cboDepts"};
  platform::NumberEdit txtRateAdjustment{s, "txtRateAdjustment"};
  platform::Frame SSPanel1{s, "SSPanel1"};
  platform::TextBox txtDeptNo{s, "txtDeptNo"};
  platform::CurrencyEdit txtDeptRate{s, "txtDeptRate"}, txtDeptAdjust{s, "txtDeptAdjust"}, txtDeptAdjustRate{s, "txtDeptAdjustRate"};

  /// The department is the row's key: a new row alone gets it.
  CardFields mFields{card::Number("Adjustment", txtRateAdjustment)};
};

}  // namespace orcussch
