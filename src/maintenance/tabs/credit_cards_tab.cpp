#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::Val;

namespace {

constexpr int kYearLength = 4;

class CreditCardsTab final : public RecordTab {
 public:
  explicit CreditCardsTab(frmCustMain& screen)
      : RecordTab(screen, tab::CreditCards, "CreditCardID"),
        mTexts{{{"CCNumber", &s.txtCCNumber}, {"CCHolder", &s.txtCCHolder}, {"CCMonth", &s.txtCCMonth}, {"CCYear", &s.txtCCYear}}},
        mFields{From("CCType", s.cboCreditCards), From("CCNumber", s.txtCCNumber), From("CCHolder", s.txtCCHolder),
                From("CCMonth", s.txtCCMonth),    From("CCYear", s.txtCCYear),     From("CCLimit", s.txtCCLimit),
                From("CCComment", s.txtCCComment)} {}

  bool Add(ResumeNext& on) override {
    on([&] { s.DataCreditCards.Refresh(); });
    EmptyCombo(s.cboCreditCards);
    s.txtCCNumber.Text("");
    s.txtCCHolder.Text(s.lblCustomer.Caption());
    s.txtCCMonth.Text("");
    s.txtCCYear.Text("");
    s.txtCCLimit.Value(platform::Currency{0});
    s.txtCCComment.Text("");
    ProposeDefault(on);
    return true;
  }

  void Edit(ResumeNext& on) override {
    on([&] { s.DataCreditCards.Refresh(); });
    EmptyCombo(s.cboCreditCards);
    on([&] { s.cboCreditCards.BoundValue(Rows()->Field("CCType")); });
    on([&] { s.cboCreditCards.Text(TextUnguarded(Rows(), "CreditCardName")); });
    for (const TextField& text : mTexts) on([&] { text.edit->Text(TextUnguarded(Rows(), text.field)); });
    on([&] { s.txtCCLimit.Value(platform::CCur(Rows()->Field("CCLimit"))); });
    on([&] { s.txtCCComment.Text(TextUnguarded(Rows(), "CCComment")); });
    ProposeDefault(on);
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Valid(state)) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsCustCreditCards->AddNew(); });
      row([&] { rsCustCreditCards->SetField("AcctNum", Owner()); });
    } else if (!BeginEdit(row, rsCustCreditCards, "CreditCardID", state, kGone)) {
      return false;
    }
    Write(row, rsCustCreditCards, mFields);
    Store(row, rsCustCreditCards, "CreditCardID", state);
    if (s.chkDefaultCC.Value() != 0) MakeDefault(row, rsCustCreditCards, "CreditCardID", {"DefaultCreditCard"});
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    std::int32_t Id = 0;
    on([&] { Id = LongOf(Rows(), "CreditCardID"); });
    bool Default = false;
    on([&] { Default = IsNumber(Customer()->Field("DefaultCreditCard"), Id); });
    if (Default) state.Repairs[0] = {true, "DefaultCreditCard"};
    state.Position = "[CreditCardID]>=" + std::to_string(Id);
    return true;
  }

 private:
  /// Whether the customer has a default card at all, not whether this one is it.
  void ProposeDefault(ResumeNext& on) {
    bool HasDefault = false;
    on([&] {
      const platform::Value card = Customer()->Field("DefaultCreditCard");
      HasDefault = !card.IsNull() && platform::CLng(card) > 0;
    });
    s.chkDefaultCC.Value(HasDefault ? 0 : 1);
  }

  bool Valid(const SaveState& state) {
    const double Month = Val(s.txtCCMonth.Text());
    const int YearLength = platform::Len(platform::Trim(s.txtCCYear.Text()));
    return Passes(state, {
                             {BoundText(s.cboCreditCards).empty(), "You must select a credit card type!", &s.cboCreditCards},
                             {s.txtCCNumber.Text().empty(), "You must enter the credit card number!", &s.txtCCNumber},
                             {Month < 1 || Month > 12, "You must enter an expiration month between 1 and 12!", &s.txtCCMonth},
                             {YearLength != kYearLength, "You must enter a 4-digit expiration date year!", &s.txtCCYear},
                         });
  }

  static constexpr GoneText kGone{"The edited credit card can no longer be found (Credit Card ID ",
                                  ").  The credit card changes made can not be saved!"};

  std::array<TextField, 4> mTexts;
  std::vector<CardField> mFields;
};

}  // namespace

std::unique_ptr<RecordTab> MakeCreditCardsTab(frmCustMain& screen) { return std::make_unique<CreditCardsTab>(screen); }

}  // namespace orcussch
