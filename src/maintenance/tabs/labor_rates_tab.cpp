#include "maintenance/tabs/labor_rates_tab.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/currency.h"
#include "records/columns.h"
#include "records/fields.h"
#include "records/lists.h"
#include "session/ModCustSch.h"

namespace orcussch {

using namespace column;
using platform::Currency;

namespace {

bool NotNumeric(const std::string& V) { return !platform::IsNumeric(V); }

TabDesign TheTab() {
  return {.caption = "  Dept. Labor Rates  ",
          .record = "labor rate",
          .field = "Dept",
          .ascending = "Ascending Department No.",
          .descending = "Descending Department",
          .prompt = "Department No.",
          .database = &gCustomerPath,
          .columns =
              {
                  Closed(Plain("Department", "Dept")),
                  Closed(Plain("Department Description", "DeptDescription")),
                  Closed(Money("Base Rate", "DefaultLaborRate")),
                  Percent("Adjustment %", "Adjustment"),
                  Closed(Money("Adjusted Rate", "Adjusted Rate")),
              },
          .cellTests = {{"Adjustment", NotNumeric, "You must enter a numeric adjustment%!"}},
          .refreshedWith = tab::CustomerTypes};
}

}  // namespace

LaborRatesTab::LaborRatesTab(frmCustMain& screen) : RecordTab(screen, tab::LaborRates, "Dept", TheTab()) {
  PutOnListPage({&optAllDept[0], &optAllDept[1], &txtAdjustAllDept, &cmdAddAllDepts});
  CaptionOptions(optAllDept, {"Add all departmental labor rate records to current customer",
                              "Apply adjustment % to current customers departmental labor rate records"});
  txtAdjustAllDept.ToolTipText("Enter the adjustment % you want to add to all departments");
  optAllDept.Each([this](platform::OptionButton& option, int i) { option.Click = [this, i] { optAllDept_Click(i); }; });
  cmdAddAllDepts.Click = [this] { cmdAddAllDepts_Click(); };

  for (platform::TextBox* figure : {&txtDeptNo, static_cast<platform::TextBox*>(&txtDeptRate),
                                    static_cast<platform::TextBox*>(&txtDeptAdjust), static_cast<platform::TextBox*>(&txtDeptAdjustRate)}) {
    figure->Container(SSPanel1);
    figure->Locked(true);
  }
  CardBeginsWith(cboDepts);
  cboDepts.FillFrom(s.DataDepts, "DeptNumber", "DeptDescription",
                    {{"DeptNumber", "", ""}, {"DeptDescription", "", ""}, {"DefaultLaborRate", "", "Currency"}});
  cboDepts.Change = [this] { DeptChange(); };
  txtRateAdjustment.Change = [this] { txtRateAdjustment_Change(); };
}

std::string LaborRatesTab::Statement(std::int32_t Acct) {
  return "SELECT CustLaborRates.Dept, Departments.DeptDescription, Departments.DefaultLaborRate, CustLaborRates.Adjustment, "
         "[DefaultLaborRate]+([DefaultLaborRate]*[Adjustment]/100) AS [Adjusted Rate]"
         " FROM CustLaborRates INNER JOIN Departments ON CustLaborRates.Dept = Departments.DeptNumber"
         " WHERE (AcctNum=" +
         std::to_string(Acct) + ")";
}

/// A computed column's name can't be ordered on.
std::optional<std::string> LaborRatesTab::OrderBy(const platform::GridColumn& column, int) {
  return column.dataField == "Adjusted Rate" ? "[DefaultLaborRate]+([DefaultLaborRate]*[Adjustment]/100)" : column.dataField;
}

void LaborRatesTab::Visit(const std::string& Caption) {
  RecordTab::Visit(Caption);
  optAllDept[0].Value(true);
}

platform::Control& LaborRatesTab::FirstField() {
  if (Adding()) return cboDepts;
  return txtRateAdjustment;
}

void LaborRatesTab::Loading() {
  cboDepts.ColumnCaption(0, "Dept. No.");
  cboDepts.ColumnCaption(1, "Dept. Name");
  cboDepts.ColumnCaption(2, "Dept. Labor Rate");
}

bool LaborRatesTab::Add(ResumeNext& on) {
  bool departmental = false;
  on([&] { departmental = IsDepartmental(); });
  if (!departmental) return false;
  on([&] { s.DataDepts.Refresh(); });
  EmptyCombo(cboDepts);
  mFields.Clear(on);
  txtDeptRate.Value(Currency{0});
  txtDeptAdjust.Value(Currency{0});
  txtDeptAdjustRate.Value(Currency{0});
  cboDepts.Enabled(true);
  return true;
}

void LaborRatesTab::Edit(ResumeNext& on) {
  on([&] { s.DataDepts.Refresh(); });
  on([&] { cboDepts.BoundValue(Rows()->Field("Dept")); });
  on([&] { cboDepts.Text(TextOf(Rows(), "DeptDescription")); });
  mFields.Load(on, Rows());
  DeptChange();
  // A row can't change its department.
  cboDepts.Enabled(false);
}

bool LaborRatesTab::Save(ResumeNext& on, SaveState& state) {
  const std::string bound = BoundText(cboDepts);
  if (!Passes(state, {{bound.empty(), "You must select a department!", &cboDepts}})) return false;
  std::string dept = FixedDept(bound);
  if (!Adding()) on([&] { dept = FixedDept(platform::CStr(platform::Concat("", CardKey()))); });

  const Search search = Find(on, rsCustLaborRates, "PrimaryKey", [&] { return Keys{Owner(), bound}; });
  if (search == Search::Failed) return false;
  if (Adding() && search == Search::Found) {
    Refuse(state.Title, "The current customer already has a labor rate for department no. " + bound + "!");
    return false;
  }
  if (!Adding() && search == Search::Missing) {
    Refuse(state.Title, "The edited deparment labor rate record can no longer be found (Department No.  " + dept +
                            ").  The labor rate changes made can not be saved!");
    return false;
  }
  RowWrite row(on);
  if (Adding()) {
    row.Must([] { rsCustLaborRates->AddNew(); });
    row([&] { rsCustLaborRates->SetField("AcctNum", Owner()); });
    row([&] { rsCustLaborRates->SetField("Dept", cboDepts.BoundValue()); });
  } else {
    row.Must([] { rsCustLaborRates->Edit(); });
  }
  mFields.Write(row, rsCustLaborRates);
  row.Must([] { rsCustLaborRates->Update(); });
  state.Position = "[Dept]='" + dept + "'";
  return true;
}

bool LaborRatesTab::MayDelete(ResumeNext& on, DeleteState& state) {
  on([&] { state.Position = "[Dept]>='" + TextOf(Rows(), "Dept") + "'"; });
  return true;
}

void LaborRatesTab::DeptChange() {
  Trap("frmCustMain.DeptChange", [this] {
    txtDeptNo.Text("");
    txtDeptRate.Value(Currency{0});
    const std::string bound = BoundText(cboDepts);
    if (!bound.empty() && HasRecords(s.DataDepts)) {
      const platform::RecordsetRef rs = s.DataDepts.Recordset();
      rs->FindFirst("[DeptNumber]='" + bound + "'");
      if (!rs->NoMatch()) {
        txtDeptNo.Text(bound + " - " + cboDepts.Text());
        const platform::Value rate = rs->Field("DefaultLaborRate");
        txtDeptRate.Value(rate.IsNull() ? Currency{0} : platform::CCur(rate));
      }
    }
    ShowAdjustedRate();
  });
}

void LaborRatesTab::txtRateAdjustment_Change() {
  Trap("frmCustMain.txtRateAdjustment_Change", [this] {
    txtDeptAdjust.Value(platform::CCur(txtRateAdjustment.Value()));
    ShowAdjustedRate();
  });
}

/// The product is formed in double precision, the quotient becomes currency and is added as currency.
void LaborRatesTab::ShowAdjustedRate() {
  const Currency rate = txtDeptRate.Value();
  const Currency part = platform::CCur(platform::CDbl(rate) * txtRateAdjustment.Value() / 100);
  txtDeptAdjustRate.Value(rate + part);
}

std::string LaborRatesTab::FixedDept(const std::string& number) { return platform::Left(number + "   ", 3); }

std::unique_ptr<RecordTab> MakeLaborRatesTab(frmCustMain& screen) { return std::make_unique<LaborRatesTab>(screen); }

}  // namespace orcussch
