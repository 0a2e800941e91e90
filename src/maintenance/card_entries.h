#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/values/value.h"

namespace platform {
class Control;
}

namespace orcussch {

class frmCustMain;

/// What the user can enter on a tab's card, as it stands at one moment: the contents of its boxes and, for a customer, the
/// taxes that are ticked.
class CardEntries {
 public:
  /// Reads the card of the current tab. Nothing is fetched anew and no event fires.
  static CardEntries Of(const frmCustMain& screen);
  /// Puts everything back into the card that is open now, as the user's own entries would: events fire.
  void PutBack(frmCustMain& screen) const;
  bool operator==(const CardEntries&) const = default;

 private:
  struct Entry {
    std::string control;  ///< with its index
    std::string text;
    platform::Value bound;  ///< combos: the key
    int choice = 0;         ///< check boxes and options
    bool operator==(const Entry&) const = default;
  };
  static std::optional<Entry> Read(const platform::Control& control);
  static void Write(platform::Control& control, const Entry& entry);

  int tab_ = -1;
  std::vector<Entry> entries_;
  std::optional<std::vector<platform::Value>> ticked_;  ///< in the card's list; nothing where they are not known
};

}  // namespace orcussch
