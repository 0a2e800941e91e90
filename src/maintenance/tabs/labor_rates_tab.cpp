#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::Currency;

namespace {

class LaborRatesTab final : public RecordTab {
 public:
  explicit LaborRatesTab(frmCustMain& screen) : RecordTab(screen, tab::LaborRates, "Dept") {}

  bool Add(ResumeNext& on) override {
    bool Departmental = false;
    on([&] { Departmental = s.CustomerDeptLaborRate(); });
    if (!Departmental) return false;
    on([&] { s.DataDepts.Refresh(); });
    EmptyCombo(s.cboDepts);
    s.txtRateAdjustment.Value(0.0);
    s.txtDeptRate.Value(Currency{0});
    s.txtDeptAdjust.Value(Currency{0});
    s.txtDeptAdjustRate.Value(Currency{0});
    s.cboDepts.Enabled(true);
    return true;
  }

  void Edit(ResumeNext& on) override {
    on([&] { s.DataDepts.Refresh(); });
    on([&] { s.cboDepts.BoundValue(Rows()->Field("Dept")); });
    on([&] { s.cboDepts.Text(TextOf(Rows(), "DeptDescription")); });
    on([&] { s.txtRateAdjustment.Value(platform::CDbl(Rows()->Field("Adjustment"))); });
    s.DeptChange();
    // A row can't change its department.
    s.cboDepts.Enabled(false);
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    const std::string Bound = BoundText(s.cboDepts);
    if (!Passes(state, {{Bound.empty(), "You must select a department!", &s.cboDepts}})) return false;
    std::string Dept = FixedDept(Bound);
    if (!Adding()) on([&] { Dept = FixedDept(platform::CStr(platform::Concat("", CardKey()))); });

    const Search search = Find(on, rsCustLaborRates, "PrimaryKey", [&] { return Keys{Owner(), Bound}; });
    if (search == Search::Failed) return false;
    if (Adding() && search == Search::Found) {
      Refuse(state.Title, "The current customer already has a labor rate for department no. " + Bound + "!");
      return false;
    }
    if (!Adding() && search == Search::Missing) {
      Refuse(state.Title, "The edited deparment labor rate record can no longer be found (Department No.  " + Dept +
                              ").  The labor rate changes made can not be saved!");
      return false;
    }
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsCustLaborRates->AddNew(); });
      row([&] { rsCustLaborRates->SetField("AcctNum", Owner()); });
      row([&] { rsCustLaborRates->SetField("Dept", s.cboDepts.BoundValue()); });
    } else {
      row.Must([] { rsCustLaborRates->Edit(); });
    }
    Write(row, rsCustLaborRates, {From("Adjustment", s.txtRateAdjustment)});
    row.Must([] { rsCustLaborRates->Update(); });
    state.Position = "[Dept]='" + Dept + "'";
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    on([&] { state.Position = "[Dept]>='" + TextOf(Rows(), "Dept") + "'"; });
    return true;
  }
};

}  // namespace

std::unique_ptr<RecordTab> MakeLaborRatesTab(frmCustMain& screen) { return std::make_unique<LaborRatesTab>(screen); }

}  // namespace orcussch
