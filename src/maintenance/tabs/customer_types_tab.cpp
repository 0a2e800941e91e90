#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

namespace {

class CustomerTypesTab final : public RecordTab {
 public:
  explicit CustomerTypesTab(frmCustMain& screen) : RecordTab(screen, tab::CustomerTypes, "Code") {}

  bool Add(ResumeNext&) override {
    s.txtCustomerType.Text("");
    s.chkAssignCustType.Value(0);
    s.chkAssignCustType.Visible(true);
    return true;
  }

  void Edit(ResumeNext& on) override {
    on([&] { s.txtCustomerType.Text(TextUnguarded(Rows(), "Description")); });
    s.chkAssignCustType.Value(0);
    s.chkAssignCustType.Visible(false);
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Passes(state, {{s.txtCustomerType.Text().empty(), "You must enter a customer type description!"}})) return false;
    RowWrite row(on);
    std::int16_t Code = 0;
    if (Adding()) {
      Code = s.NextDataCode();
      row.Must([] { rsDataCodes->AddNew(); });
      row([&] { rsDataCodes->SetField("Code", Code); });
    } else if (!BeginEdit(row, rsDataCodes, "Code", state, kGone)) {
      return false;
    }
    Write(row, rsDataCodes, {From("Description", s.txtCustomerType)});
    row.Must([] { rsDataCodes->Update(); });
    if (Adding()) {
      state.Position = "[Code]=" + std::to_string(Code);
      if (s.chkAssignCustType.Value() != 0 && (row.Going() || IsThere(on, Code))) Assign(on, Code);
    }
    s.LoadCustTypes();
    on([&] { s.data[tab::CustomerTypes].Refresh(); });
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    on([&] { state.Position = "[Code]>='" + TextOf(Rows(), "Code") + "'"; });
    return true;
  }

  /// A type that any customer has stays. The work table's row goes with the next load.
  bool Remove(ResumeNext& on, DeleteState& state) override {
    const auto Code = [this] { return Keys{Rows()->Field("Code")}; };
    const Search assigned = Find(on, rsCustCodes, "CustCodes", Code);
    if (assigned == Search::Failed) return false;
    if (assigned == Search::Found) {
      std::string Description;
      on([&] { Description = TextOf(Rows(), "Description"); });
      Refuse(state.Title, "One or more customers have been assigned customer type '" + Description +
                              "'.  You can not delete a customer type if it has been assigned to a customer.");
      return false;
    }
    if (Find(on, rsDataCodes, "PrimaryKey", Code) == Search::Found) on([] { rsDataCodes->Delete(); });
    s.LoadCustTypes();
    on([&] { s.data[tab::CustomerTypes].Refresh(); });
    return true;
  }

 private:
  static constexpr GoneText kGone{"The edited customer type record can no longer be found (Customer Type Code  ",
                                  ").  The customer type changes made can not be saved!"};

  /// Where the key refused the type, the code is another one's, and the assignment that was asked for is still made. A code that
  /// no type has is given to the next one: it must not be anybody's by then.
  static bool IsThere(ResumeNext& on, std::int16_t Code) {
    return Find(on, rsDataCodes, "PrimaryKey", [Code] { return Keys{Code}; }) == Search::Found;
  }

  void Assign(ResumeNext& on, std::int16_t Code) const {
    RowWrite row(on);
    row.Must([] { rsCustCodes->AddNew(); });
    row([&] { rsCustCodes->SetField("AcctNum", Owner()); });
    row([&] { rsCustCodes->SetField("CustCodes", Code); });
    row.Must([] { rsCustCodes->Update(); });
  }
};

}  // namespace

std::unique_ptr<RecordTab> MakeCustomerTypesTab(frmCustMain& screen) { return std::make_unique<CustomerTypesTab>(screen); }

}  // namespace orcussch
