#include "maintenance/card_desk.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/reports.h"

namespace orcussch {

namespace {

/// The panel of the status bar that is the desk's own; the first one belongs to the procedures' texts.
constexpr int kPanel = 2;

platform::Value FieldOf(const platform::DataControl& list, const char* field) {
  platform::Value value = platform::Null;
  if (list.OnRecord()) Ignore()([&] { value = list.Recordset()->Field(field); });
  return value;
}

const char* WordOf(const frmCustMain& screen, int tab) { return screen.Record(tab).Design().record; }

std::string Shown(const platform::Value& value) { return platform::CStr(platform::Concat("", value)); }

}  // namespace

void CardDesk::AttachRefusals() {
  const auto refuse = [this](platform::CommandControl& command, std::string (CardDesk::*refusal)() const) {
    command.Refusal = [this, refusal] { return (this->*refusal)(); };
  };
  for (platform::MenuItem* item : {&s.miSaveRec, &s.miCancelRec}) refuse(*item, &CardDesk::RefusalOfSave);
  for (platform::MenuItem* item : {&s.miRefresh, &s.miQueries, &s.miFind, &s.miDeleteRec, &s.miMapCustomer, &s.miMapAll})
    refuse(*item, &CardDesk::RefusalWhileOpen);
  // A cancel that was answered with No opens these two again.
  for (const char* key : {"tb_Find", "tb_DeleteRec"}) refuse(s.Toolbar1.Button(key), &CardDesk::RefusalWhileOpen);
  refuse(s.miTypedBack, &CardDesk::RefusalOfBringBack);

  for (platform::Control* control : s.Controls())
    if (auto* command = dynamic_cast<platform::CommandControl*>(control)) command->Told = [this](const std::string& text) { Tell(text); };
  s.Toolbar1.Ready = [this] { return s.mToolbarReady; };
}

bool CardDesk::IsOpen() const { return s.SSIndexTab1.Page() == 1; }

void CardDesk::Tell(const std::string& text) const { s.StatusBar1.Panel(kPanel, text); }

std::string CardDesk::RefusalOfSave() const { return IsOpen() ? "" : "No record is being added or edited."; }

std::string CardDesk::RefusalWhileOpen() const {
  return IsOpen() ? std::string("Save or cancel the open ") + WordOf(s, s.Tab()) + " first." : "";
}

std::string CardDesk::RefusalOfBringBack() const {
  if (IsOpen()) return RefusalWhileOpen();
  if (!typed_) return "There is nothing typed that was not saved.";
  const Record& record = typed_->record;
  const std::string what = WordOf(s, record.tab);
  if (record.tab != tab::Customers || record.mode == "E") {
    if (FieldOf(s.data[tab::Customers], "AcctNum") != record.account)
      return "What was typed belongs to account " + Shown(record.account) + ": go to that customer first.";
    if (record.tab != tab::Customers && !s.SSIndexTab1.TabEnabled(record.tab)) return "The tab of that " + what + " is closed now.";
  }
  if (record.tab == s.Tab() && record.mode == "E" && AtHand("E") != record) return "Go to the " + what + " that was edited first.";
  return "";
}

/// The record for which a card would be opened now.
CardDesk::Record CardDesk::AtHand(const std::string& mode) const {
  Record record{s.Tab(), mode, platform::Null, platform::Null};
  if (record.tab != tab::Customers || mode == "E") record.account = FieldOf(s.data[tab::Customers], "AcctNum");
  if (mode == "E") record.key = FieldOf(s.data[record.tab], s.Record(record.tab).Key());
  return record;
}

CardDesk::Start CardDesk::Begins(const std::string& key) {
  Start start{IsOpen(), gFailuresReported, ""};
  if (!start.open || (key != "tb_SaveRec" && key != "tb_CancelRec")) return start;
  start.name = s.Record(s.Tab()).NameOnCard();
  // A card on which nothing was typed takes nothing away from what was typed before it.
  CardEntries now = CardEntries::Of(s);
  if (filled_ && filled_->entries != now) typed_ = Card{filled_->record, std::move(now)};
  return start;
}

void CardDesk::Ended(const std::string& key, const Start& start) {
  if (!s.Loaded()) return;
  // A list can be read at the end of any command, or not: it is no failure of the command.
  Ignore()([&] {
    const bool opens = key == "tb_AddRec" || key == "tb_EditRec";
    if (opens && IsOpen()) {
      typed_.reset();
      Opened();
    } else if (start.open && !IsOpen()) {
      filled_.reset();
      if (key == "tb_SaveRec" && gFailuresReported == start.reports) {
        typed_.reset();
        TellSaved(start.name);
      }
    }
  });
  s.Toolbar1.ReadyChanged();
}

void CardDesk::WentOn() {
  if (s.Loaded() && IsOpen()) Ignore()([this] { Opened(); });
}

void CardDesk::Opened() { filled_ = Card{AtHand(s.mRecordMode), CardEntries::Of(s)}; }

void CardDesk::TellSaved(const std::string& name) const {
  const std::string account = ", account " + Shown(FieldOf(s.data[tab::Customers], "AcctNum"));
  const std::string what = WordOf(s, s.Tab());
  if (s.Tab() == tab::Customers) {
    Tell("Saved: " + name + account);
  } else if (!name.empty()) {
    Tell("Saved: " + what + " " + name);
  } else {
    Tell("Saved: " + what + " of " + platform::Trim(s.lblCustomer.Caption()) + account);
  }
}

bool CardDesk::Unsaved() const { return IsOpen() && filled_ && filled_->entries != CardEntries::Of(s); }

std::string CardDesk::Mode() const {
  if (!IsOpen()) return "";
  return s.mRecordMode == "A" ? std::string("New ") + WordOf(s, s.Tab()) : "Editing";
}

void CardDesk::BringBack() {
  const Card card = *typed_;
  if (s.Tab() != card.record.tab) s.SSIndexTab1.UserClick(card.record.tab);
  if (!s.Loaded() || IsOpen() || s.Tab() != card.record.tab) return;
  if (AtHand(card.record.mode) != card.record) {
    Tell(RefusalOfBringBack());
    return;
  }
  if (card.record.mode == "A")
    s.RecordAdd();
  else
    s.RecordEdit();
  if (!s.Loaded() || !IsOpen() || AtHand(s.mRecordMode) != card.record) return;
  Opened();
  card.entries.PutBack(s);
  s.Toolbar1.ReadyChanged();
}

}  // namespace orcussch
