#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

namespace {

class PhonesTab final : public RecordTab {
 public:
  explicit PhonesTab(frmCustMain& screen)
      : RecordTab(screen, tab::Phones, "RecordID"),
        mTexts{{{"Area", &s.txtPhoneArea}, {"Phone", &s.txtPhone}, {"Ext", &s.txtPhoneExt}, {"Comment", &s.txtPhoneComment}}},
        mFields{From("Area", s.txtPhoneArea), From("Phone", s.txtPhone), From("Ext", s.txtPhoneExt), From("Type", s.cboPhoneTypes),
                From("Comment", s.txtPhoneComment)} {}

  bool Add(ResumeNext& on) override {
    s.lblPhoneRecordID.Caption("");
    for (const TextField& text : mTexts) text.edit->Text("");
    EmptyCombo(s.cboPhoneTypes);
    // A customer's first phone proposes itself as the default.
    bool First = false;
    on([&] { First = Rows()->RecordCount() == 0; });
    s.chkDefaultPhone.Value(First ? 1 : 0);
    return true;
  }

  /// The default box is not touched: it keeps what it showed last.
  void Edit(ResumeNext& on) override {
    on([&] { s.lblPhoneRecordID.Caption(TextUnguarded(Rows(), "RecordID")); });
    for (const TextField& text : mTexts) on([&] { text.edit->Text(TextOf(Rows(), text.field)); });
    EmptyCombo(s.cboPhoneTypes);
    bool Found = false;
    on([&] {
      if (!HasRecords(s.DataPhoneTypes)) return;
      s.DataPhoneTypes.Recordset()->FindFirst("[Type]='" + TextOf(Rows(), "Type") + "'");
      Found = !s.DataPhoneTypes.Recordset()->NoMatch();
    });
    if (!Found) return;
    on([&] { s.cboPhoneTypes.BoundValue(s.DataPhoneTypes.Recordset()->Field("Type")); });
    on([&] { s.cboPhoneTypes.Text(TextOf(s.DataPhoneTypes.Recordset(), "TypeDescription")); });
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Passes(state, {{BoundText(s.cboPhoneTypes).empty(), "You must select a phone number type!"}})) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsPhones->AddNew(); });
      row([&] { rsPhones->SetField("AcctNum", Owner()); });
    } else if (!BeginEdit(row, rsPhones, "RecordID", state, kGone)) {
      return false;
    }
    Write(row, rsPhones, mFields);
    Store(row, rsPhones, "RecordID", state);
    if (s.chkDefaultPhone.Value() != 0) MakeDefault(row, rsPhones, "RecordID", {"DefaultPhoneNumber"});
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    std::int32_t Id = 0;
    on([&] { Id = LongOf(Rows(), "RecordID"); });
    bool Default = false;
    on([&] { Default = IsNumber(Customer()->Field("DefaultPhoneNumber"), Id); });
    if (Default) state.Repairs[0] = {true, "DefaultPhoneNumber"};
    state.Position = "[RecordID]>=" + std::to_string(Id);
    return true;
  }

 private:
  static constexpr GoneText kGone{"The edited phone number can longer be found (Phone Record ID ",
                                  ").  The phone number changes made can not be saved!"};

  std::array<TextField, 4> mTexts;
  std::vector<CardField> mFields;
};

}  // namespace

std::unique_ptr<RecordTab> MakePhonesTab(frmCustMain& screen) { return std::make_unique<PhonesTab>(screen); }

}  // namespace orcussch
