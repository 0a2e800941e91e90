#pragma once

#include <string>

namespace platform {

/// A screen on which the user fills in cards, as its window needs to know it.
class CardScreen {
 public:
  virtual ~CardScreen() = default;
  /// Whether closing the screen now would lose what the user has entered. The window asks him first when he closes it by its
  /// frame; a close by code asks nobody.
  virtual bool HasUnsavedEntries() const = 0;
  /// What the open card is for, in words for the user: "New phone", "Editing"; "" while none is open.
  virtual std::string CardMode() const = 0;
  /// Whether the open card is for a new owner, so that the name above the tabs is another one's.
  virtual bool AddsOwner() const = 0;
};

}  // namespace platform
