#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

namespace {

class KeyWordsTab final : public RecordTab {
 public:
  explicit KeyWordsTab(frmCustMain& screen) : RecordTab(screen, tab::KeyWords, "Keyword") {}

  bool Add(ResumeNext&) override {
    s.txtKeyWord.Text("");
    s.chkAssignKeyWord.Value(0);
    s.chkAssignKeyWord.Visible(true);
    return true;
  }

  void Edit(ResumeNext& on) override {
    on([&] { s.txtKeyWord.Text(TextUnguarded(Rows(), "Keyword")); });
    s.chkAssignKeyWord.Value(0);
    s.chkAssignKeyWord.Visible(false);
  }

  /// A word that is there already fails at Update on the key, which is reported; the rest goes on. A changed word leaves the
  /// customers' own rows as they are: they name the word by its text.
  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Passes(state, {{s.txtKeyWord.Text().empty(), "You must enter a Key Word!"}})) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsKeywords->AddNew(); });
    } else if (!BeginWord(row, state)) {
      return false;
    }
    Write(row, rsKeywords, {From("Keyword", s.txtKeyWord)});
    row.Must([] { rsKeywords->Update(); });
    if (s.chkAssignKeyWord.Value() != 0 && Adding()) Assign(on);
    s.LoadKeyWords();
    on([&] { s.data[tab::KeyWords].Refresh(); });
    state.Position = "[Keyword]='" + FixQuotes(s.txtKeyWord.Text()) + "'";
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
      std::string Keyword;
      on([&] { Keyword = TextOf(Rows(), "Keyword"); });
      Refuse(state.Title, "One or more customers have been assigned key word '" + Keyword +
                              "'.  You can not delete a key word if it has been assigned to a customer.");
      return false;
    }
    if (Find(on, rsKeywords, "PrimaryKey", Word()) == Search::Found) on([] { rsKeywords->Delete(); });
    s.LoadKeyWords();
    on([&] { s.data[tab::KeyWords].Refresh(); });
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
    row([&] { rsLookups->SetField("Text", s.txtKeyWord.Text()); });
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
    std::string Message;
    on([&] {
      Message = "The edited key word can no longer be found (Key Word " + TextOf(s.data[tab::CustomerTypes].Recordset(), "Keyword") +
                ").  The key word changes made can not be saved!";
    });
    Refuse(state.Title, Message);
    return false;
  }
};

}  // namespace

std::unique_ptr<RecordTab> MakeKeyWordsTab(frmCustMain& screen) { return std::make_unique<KeyWordsTab>(screen); }

}  // namespace orcussch
