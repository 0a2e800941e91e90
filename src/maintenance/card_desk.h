#pragma once

#include <optional>
#include <string>

#include "maintenance/card_entries.h"
#include "platform/values/value.h"

namespace orcussch {

class frmCustMain;

/// What the desk adds to the record operations where the user starts them, by a click or a key: commands that have no sense now
/// do nothing and say why, what was saved is told, and what was typed on a card can be brought back after the card was left. The
/// operations themselves, and code that calls them, know nothing of it.
class CardDesk {
 public:
  explicit CardDesk(frmCustMain& screen) : s(screen) {}

  /// Sets the refusals of the screen's menu items and toolbar keys.
  void AttachRefusals();
  /// What stood when a command of the user began; another one may run in its yields.
  struct Start {
    bool open = false;  ///< a card was
    int reports = 0;    ///< failures that had been reported
    std::string name;   ///< what the card that is being saved calls its record
  };
  /// The user's command with this toolbar key's name begins, has ended. The screen may be gone at the end.
  Start Begins(const std::string& key);
  void Ended(const std::string& key, const Start& start);
  /// A card that the program opened behind a save, for the user's next record.
  void WentOn();

  /// Whether an open card differs from what its add or edit filled in.
  bool Unsaved() const;
  /// What the open card is for; "" while none is open.
  std::string Mode() const;
  /// Reopens the card that was left and puts the user's entries into it.
  void BringBack();

 private:
  /// The record that a card was opened for.
  struct Record {
    int tab = -1;
    std::string mode;
    platform::Value account = platform::Null;
    platform::Value key = platform::Null;  ///< Null for a new one
    bool operator==(const Record&) const = default;
  };
  struct Card {
    Record record;
    CardEntries entries;
  };

  bool IsOpen() const;
  Record AtHand(const std::string& mode) const;
  void Opened();
  void TellSaved(const std::string& name) const;
  void Tell(const std::string& text) const;
  std::string RefusalOfSave() const;
  std::string RefusalWhileOpen() const;
  std::string RefusalOfBringBack() const;

  frmCustMain& s;
  std::optional<Card> filled_;  ///< the open card as its add or edit filled it in
  std::optional<Card> typed_;   ///< the card as it was when the user saved or cancelled; until the next add or edit
};

}  // namespace orcussch
