#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

namespace {

class KeyWordsTab final : public RecordTab {
 public:
  explicit KeyWordsTab(frmCustMain& screen) : RecordTab(screen, tab::KeyWords) {}

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
    if (Adding()) {
      on([] { rsKeywords->AddNew(); });
    } else if (!BeginEdit(on, state)) {
      return false;
    }
    Write(on, rsKeywords, {From("Keyword", s.txtKeyWord)});
    on([] { rsKeywords->Update(); });
    if (s.chkAssignKeyWord.Value() != 0 && Adding()) {
      on([] { rsLookups->AddNew(); });
      on([&] { rsLookups->SetField("Text", s.txtKeyWord.Text()); });
      on([&] { rsLookups->SetField("AcctNum", Customer()->Field("AcctNum")); });
      on([] { rsLookups->Update(); });
    }
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
    if (Find(on, rsLookups, "ByWord", Word())) {
      std::string Keyword;
      on([&] { Keyword = TextOf(Rows(), "Keyword"); });
      Refuse(state.Title, "One or more customers have been assigned key word '" + Keyword +
                              "'.  You can not delete a key word if it has been assigned to a customer.");
      return false;
    }
    if (Find(on, rsKeywords, "PrimaryKey", Word())) on([] { rsKeywords->Delete(); });
    s.LoadKeyWords();
    on([&] { s.data[tab::KeyWords].Refresh(); });
    return true;
  }

 private:
  /// The key of the list's current row, the word itself.
  std::function<Keys()> Word() const {
    return [this] { return Keys{Rows()->Field("Keyword")}; };
  }

  bool BeginEdit(ResumeNext& on, const SaveState& state) {
    if (Find(on, rsKeywords, "PrimaryKey", Word())) {
      on([] { rsKeywords->Edit(); });
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
