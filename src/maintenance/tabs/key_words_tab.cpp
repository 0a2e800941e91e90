#include "maintenance/assignment_tab.h"
#include "maintenance/frmCustMain.h"
#include "records/card_fields.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"

namespace orcussch {

using namespace column;

namespace {

bool IsEmpty(const std::string& V) { return V.empty(); }

TabDesign TheTab() {
  return {.caption = "  Key Words  ",
          .record = "key word",
          .field = "Keyword",
          .ascending = "Ascending Key Word",
          .descending = "Descending Key Word",
          .prompt = "Key Word",
          .database = &gTempPath,
          .columns = {Check("Assigned", "Assign"), Plain("Key Word", "KeyWord")},
          // The field's name is written otherwise than the column's, so a key word is not tested here; an empty cell is left
          // alone when the word is written.
          .cellTests = {{"Keyword", IsEmpty, "You must have a key word!"}},
          .assigns = true};
}

const AssignmentDesign kAssignment = {
    .display = "optKeyWordDisp",
    .listTable = "CU_AssignKeyWords",
    .workTable = "CU_AssignKeywords",
    .columns = "Keyword",
    .literal = "frmCustMain.LoadKeywords",
    .assigned =
        "Keyword"
        " FROM KeyWords INNER JOIN Lookups ON KeyWords.KeyWord = Lookups.Text"
        " WHERE (AcctNum=",
    .all =
        "Keyword"
        " FROM Keywords",
    .tables = {rsLookups, "ByAcct", "Text", rsKeywords, "Keyword"},
};

class KeyWordsTab final : public AssignmentTab {
 public:
  explicit KeyWordsTab(frmCustMain& screen) : AssignmentTab(screen, tab::KeyWords, "Keyword", TheTab(), kAssignment) {
    CardBeginsWith(txtKeyWord);
  }

  platform::Control& FirstField() override { return txtKeyWord; }
  std::string NameOnCard() const override { return txtKeyWord.Text(); }

  bool Add(ResumeNext& on) override {
    mFields.Clear(on);
    chkAssignKeyWord.Value(0);
    chkAssignKeyWord.Visible(true);
    return true;
  }

  void Edit(ResumeNext& on) override {
    mFields.Load(on, Rows());
    chkAssignKeyWord.Value(0);
    chkAssignKeyWord.Visible(false);
  }

  /// A word that is there already fails at Update on the key, which is reported; the rest goes on. A changed word leaves the
  /// customers' own rows as they are: they name the word by its text.
  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Passes(state, {{txtKeyWord.Text().empty(), "You must enter a Key Word!"}})) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsKeywords->AddNew(); });
    } else if (!BeginWord(row, state)) {
      return false;
    }
    mFields.Write(row, rsKeywords);
    row.Must([] { rsKeywords->Update(); });
    if (chkAssignKeyWord.Value() != 0 && Adding()) Assign(on);
    LoadAnew(on);
    state.Position = "[Keyword]='" + FixQuotes(txtKeyWord.Text()) + "'";
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    on([&] { state.Position = "[KeyWord]>='" + FixQuotes(TextOf(Rows(), "Keyword")) + "'"; });
    return true;
  }

  bool Remove(ResumeNext& on, DeleteState& state) override {
    const Search assigned = Find(on, rsLookups, "ByWord", Word());
    if (assigned == Search::Failed) return false;
    if (assigned == Search::Found) {
      std::string keyword;
      on([&] { keyword = TextOf(Rows(), "Keyword"); });
      Refuse(state.Title, "One or more customers have been assigned key word '" + keyword +
                              "'.  You can not delete a key word if it has been assigned to a customer.");
      return false;
    }
    if (Find(on, rsKeywords, "PrimaryKey", Word()) == Search::Found) on([] { rsKeywords->Delete(); });
    LoadAnew(on);
    return true;
  }

 private:
  /// The key of the list's current row, the word itself.
  std::function<Keys()> Word() const {
    return [this] { return Keys{Rows()->Field("Keyword")}; };
  }

  /// A row of its own: the word may be there already, and is the customer's then.
  void Assign(ResumeNext& on) const {
    RowWrite row(on);
    row.Must([] { rsLookups->AddNew(); });
    row([&] { rsLookups->SetField("Text", txtKeyWord.Text()); });
    row([&] { rsLookups->SetField("AcctNum", Owner()); });
    row.Must([] { rsLookups->Update(); });
  }

  bool BeginWord(RowWrite& row, const SaveState& state) {
    ResumeNext& on = row.Reports();
    const Search search = Find(on, rsKeywords, "PrimaryKey", [this] { return Keys{CardKey()}; });
    if (search == Search::Failed) return false;
    if (search == Search::Found) {
      row.Must([] { rsKeywords->Edit(); });
      return true;
    }
    // The word is asked of the customer types' list, which has no such field: the report names the failure, the box stays
    // empty. Support knows a vanished key word by just that pair.
    std::string message;
    on([&] {
      message = "The edited key word can no longer be found (Key Word " + TextOf(s.data[tab::CustomerTypes].Recordset(), "Keyword") +
                ").  The key word changes made can not be saved!";
    });
    Refuse(state.Title, message);
    return false;
  }

  platform::TextBox txtKeyWord{s, "txtKeyWord", 20};
  platform::CheckBox chkAssignKeyWord{s, "chkAssignKeyWord", "Assign New Key Word to Current Customer"};
  CardFields mFields{card::TextNotNull("Keyword", txtKeyWord)};
};

}  // namespace

std::unique_ptr<RecordTab> MakeKeyWordsTab(frmCustMain& screen) { return std::make_unique<KeyWordsTab>(screen); }

}  // namespace orcussch
