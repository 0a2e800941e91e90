#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

namespace {

class CustomerTypesTab final : public RecordTab {
 public:
  explicit CustomerTypesTab(frmCustMain& screen) : RecordTab(screen, tab::CustomerTypes) {}

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
    std::int16_t Code = 0;
    if (Adding()) {
      Code = s.NextDataCode();
      on([] { rsDataCodes->AddNew(); });
      on([&] { rsDataCodes->SetField("Code", Code); });
    } else if (!BeginEdit(on, state, Code)) {
      return false;
    }
    Write(on, rsDataCodes, {From("Description", s.txtCustomerType)});
    on([] { rsDataCodes->Update(); });
    if (s.chkAssignCustType.Value() != 0 && Adding()) {
      on([] { rsCustCodes->AddNew(); });
      on([&] { rsCustCodes->SetField("AcctNum", Customer()->Field("AcctNum")); });
      on([&] { rsCustCodes->SetField("CustCodes", Code); });
      on([] { rsCustCodes->Update(); });
    }
    s.LoadCustTypes();
    on([&] { s.data[tab::CustomerTypes].Refresh(); });
    state.Position = "[Code]=" + std::to_string(Code);
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    on([&] { state.Position = "[Code]>='" + TextOf(Rows(), "Code") + "'"; });
    return true;
  }

  /// A type that any customer has stays. The work table's row goes with the next load.
  bool Remove(ResumeNext& on, DeleteState& state) override {
    const auto Code = [this] { return Keys{Rows()->Field("Code")}; };
    if (Find(on, rsCustCodes, "CustCodes", Code)) {
      std::string Description;
      on([&] { Description = TextOf(Rows(), "Description"); });
      Refuse(state.Title, "One or more customers have been assigned customer type '" + Description +
                              "'.  You can not delete a customer type if it has been assigned to a customer.");
      return false;
    }
    if (Find(on, rsDataCodes, "PrimaryKey", Code)) on([] { rsDataCodes->Delete(); });
    s.LoadCustTypes();
    on([&] { s.data[tab::CustomerTypes].Refresh(); });
    return true;
  }

 private:
  bool BeginEdit(ResumeNext& on, const SaveState& state, std::int16_t& Code) {
    on([&] { Code = platform::CInt(Rows()->Field("Code")); });
    if (!Find(on, rsDataCodes, "PrimaryKey", [Code] { return Keys{Code}; })) {
      Refuse(state.Title, "The edited customer type record can no longer be found (Customer Type Code  " + std::to_string(Code) +
                              ").  The customer type changes made can not be saved!");
      return false;
    }
    on([] { rsDataCodes->Edit(); });
    return true;
  }
};

}  // namespace

std::unique_ptr<RecordTab> MakeCustomerTypesTab(frmCustMain& screen) { return std::make_unique<CustomerTypesTab>(screen); }

}  // namespace orcussch
