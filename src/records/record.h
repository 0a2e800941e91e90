#pragma once

#include <array>
#include <optional>
#include <string>

#include "platform/data/data.h"
#include "platform/values/value.h"

/// What the steps of a record operation hand on to each other.
namespace orcussch {

/// The record that a card was opened for. It stays the same while the card is open, wherever the lists stand by then.
struct CardRecord {
  platform::Value Owner = platform::Null;  ///< the key of the record that it belongs to; Null where there is none
  platform::Value Key = platform::Null;    ///< an existing record's key field; Null for a new one
};

/// What a save leaves for its common end.
struct SaveState {
  int Card = 0;          ///< the card that is saved, see RecordOperations::mCardNumber
  std::string Title;     ///< of every box of this save
  std::string Position;  ///< criterion that finds the saved row in the rebuilt list
  int LeftCol = 0;       ///< first column of the list's last split, where the save keeps it
};

/// What a deletion is told by its kind of record.
struct DeleteState {
  std::string Title;
  std::string Position;  ///< criterion that finds the deleted row's successor
  /// The list and its row as the user was asked about them.
  platform::RecordsetRef Rows;
  std::optional<platform::Bookmark> Row;
  CardRecord Record;
  /// Fields of the owner that point at the deleted row and are set to 0 after it.
  struct Repair {
    bool Wanted = false;
    std::string Field;
  };
  std::array<Repair, 2> Repairs;
};

}  // namespace orcussch
