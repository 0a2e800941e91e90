#include "maintenance/assignment_tab.h"
#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/data_codes.h"
#include "platform/values/convert.h"
#include "records/card_fields.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

namespace orcussch {

using namespace column;

std::int16_t NextDataCode() {
  std::int16_t next = 0;
  Trap("frmCustMain.NextDataCode", [&] {
    const Opened codes(dbCustomer->OpenRecordset("SELECT Max([Code]) AS MaxCode FROM DataCodes WHERE [Code]>0;"));
    if (codes->RecordCount() == 0) {
      next = 1;
    } else {
      const platform::Value maxCode = codes->Field("MaxCode");
      next = maxCode.IsNull() ? std::int16_t{1} : platform::CInt(platform::CLng(maxCode) + 1);
    }
  });
  return next;
}

namespace {

bool IsEmpty(const std::string& V) { return V.empty(); }

TabDesign TheTab() {
  return {.caption = "  Customer Types  ",
          .record = "customer type",
          .field = "Description",
          .ascending = "Ascending Description",
          .descending = "Descending Description",
          .prompt = "Description",
          .database = &gTempPath,
          .columns = {Check("Assigned", "Assign"), Plain("Type Description", "Description")},
          .cellTests = {{"Description", IsEmpty, "You must have a customer type description!"}},
          .assigns = true};
}

const AssignmentDesign kAssignment = {
    .display = "optCustTypeDisp",
    .listTable = "CU_AssignDataCodes",
    .workTable = "CU_AssignDataCodes",
    .columns = "Code, Description",
    .literal = "frmCustMain.LoadCustTypes",
    .assigned =
        "DataCodes.Code, DataCodes.Description"
        " FROM DataCodes INNER JOIN CustCodes ON DataCodes.Code = CustCodes.CustCodes"
        " WHERE (CustCodes.AcctNum=",
    .all =
        "DataCodes.Code, DataCodes.Description"
        " FROM DataCodes",
    .tables = {rsCustCodes, "AcctCode", "CustCodes", rsDataCodes, "Description"},
};

class CustomerTypesTab final : public AssignmentTab {
 public:
  explicit CustomerTypesTab(frmCustMain& screen) : AssignmentTab(screen, tab::CustomerTypes, "Code", TheTab(), kAssignment) {
    CardBeginsWith(txtCustomerType);
  }

  platform::Control& FirstField() override { return txtCustomerType; }
  std::string NameOnCard() const override { return txtCustomerType.Text(); }

  bool Add(ResumeNext& on) override {
    mFields.Clear(on);
    chkAssignCustType.Value(0);
    chkAssignCustType.Visible(true);
    return true;
  }

  void Edit(ResumeNext& on) override {
    mFields.Load(on, Rows());
    chkAssignCustType.Value(0);
    chkAssignCustType.Visible(false);
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Passes(state, {{txtCustomerType.Text().empty(), "You must enter a customer type description!"}})) return false;
    RowWrite row(on);
    std::int16_t code = 0;
    if (Adding()) {
      code = NextDataCode();
      row.Must([] { rsDataCodes->AddNew(); });
      row([&] { rsDataCodes->SetField("Code", code); });
    } else if (!BeginEdit(row, rsDataCodes, state, kGone)) {
      return false;
    }
    mFields.Write(row, rsDataCodes);
    row.Must([] { rsDataCodes->Update(); });
    if (Adding()) {
      state.Position = "[Code]=" + std::to_string(code);
      if (chkAssignCustType.Value() != 0 && (row.Going() || IsThere(on, code))) Assign(on, code);
    }
    LoadAnew(on);
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    on([&] { state.Position = "[Code]>='" + TextOf(Rows(), "Code") + "'"; });
    return true;
  }

  /// A type that any customer has stays. The work table's row goes with the next load.
  bool Remove(ResumeNext& on, DeleteState& state) override {
    const auto code = [this] { return Keys{Rows()->Field("Code")}; };
    const Search assigned = Find(on, rsCustCodes, "CustCodes", code);
    if (assigned == Search::Failed) return false;
    if (assigned == Search::Found) {
      std::string description;
      on([&] { description = TextOf(Rows(), "Description"); });
      Refuse(state.Title, "One or more customers have been assigned customer type '" + description +
                              "'.  You can not delete a customer type if it has been assigned to a customer.");
      return false;
    }
    if (Find(on, rsDataCodes, "PrimaryKey", code) == Search::Found) on([] { rsDataCodes->Delete(); });
    LoadAnew(on);
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

  platform::TextBox txtCustomerType{s, "txtCustomerType", 30};
  platform::CheckBox chkAssignCustType{s, "chkAssignCustType", "Assign New Customer Type to Current Customer"};
  CardFields mFields{card::TextNotNull("Description", txtCustomerType)};
};

}  // namespace

std::unique_ptr<RecordTab> MakeCustomerTypesTab(frmCustMain& screen) { return std::make_unique<CustomerTypesTab>(screen); }

}  // namespace orcussch
