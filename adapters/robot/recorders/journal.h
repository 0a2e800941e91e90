#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/controls/form/control.h"
#include "platform/services/error_log.h"
#include "platform/values/error.h"

namespace robot {

/// A message box as it was shown. `line` is that of the command that was running.
struct ShownBox {
  std::string text;
  int style = 0;
  std::string title;
  int line = 0;
  bool expected = false;
};

/// A record of the error log, with the box that told the user of it.
struct LoggedError {
  platform::ErrorRecord record;
  int line = 0;
  std::optional<std::size_t> box;
  bool expected = false;
};

/// An error that no handler of a screen took.
struct UnhandledError {
  platform::Error error;
  int line = 0;
  std::optional<std::size_t> box;
  bool expected = false;
};

struct AskedDialog {
  std::string name;
  int line = 0;
  bool expected = false;
};

/// What happened while a scenario ran. Boxes, error reports and dialogs wait to be expected, oldest first; the rest is kept
/// since the last act of the user.
class Journal {
 public:
  /// The line that is blamed for what follows.
  void Line(int line) noexcept { line_ = line; }
  int Line() const noexcept { return line_; }

  void Box(std::string text, int style, std::string title);
  /// A record of the error log; the next box belongs to it.
  void Logged(const platform::ErrorRecord& record);
  /// An error that nobody handled; the next box belongs to it if `withBox`.
  void Unhandled(const platform::Error& error, bool withBox);
  void Dialog(std::string name);

  /// The oldest one not yet expected, taken as expected (an error's box with it); nullptr when there is none.
  const ShownBox* TakeBox();
  const LoggedError* TakeLogged();
  const UnhandledError* TakeUnhandled();
  const AskedDialog* TakeDialog();
  /// The same without taking it.
  const ShownBox* OldestBox() const;
  const LoggedError* OldestLogged() const;
  const AskedDialog* OldestDialog() const;

  struct Leftover {
    int line;
    std::string expected;
    std::string was;
  };
  /// Everything that nobody expected, each error with its box as one.
  std::vector<Leftover> Leftovers() const;

  /// An act of the user begins: what is kept "since then" starts with the status text and the pointer of now.
  void ActBegins(const std::optional<std::string>& status, int pointer);
  void Status(const std::string& text) { said_.push_back(text); }
  void Pointer(int pointer) { pointed_.insert(pointer); }
  void Refreshed(const platform::Control& data) { ++reloads_[&data]; }
  /// The control shows this text now; kept when it differs from what it showed before.
  void Showed(const platform::Control& control, std::string text);
  /// What the control shows before anything has happened to it.
  void ShowsAtFirst(const platform::Control& control, std::string text) { shown_[&control] = std::move(text); }
  /// The control is about to go.
  void Forget(const platform::Control& control);

  const std::vector<std::string>& Said() const noexcept { return said_; }
  const std::set<int>& Pointed() const noexcept { return pointed_; }
  int Reloads(const platform::Control& data) const;
  std::vector<std::string> Passed(const platform::Control& control) const;

 private:
  template <class Entry>
  Entry* Take(std::vector<Entry>& entries);

  int line_ = 0;
  std::vector<ShownBox> boxes_;
  std::vector<LoggedError> logged_;
  std::vector<UnhandledError> unhandled_;
  std::vector<AskedDialog> dialogs_;
  std::optional<std::size_t> loggedWithoutBox_;
  std::optional<std::size_t> unhandledWithoutBox_;

  std::vector<std::string> said_;
  std::set<int> pointed_;
  std::map<const platform::Control*, int> reloads_;
  std::map<const platform::Control*, std::vector<std::string>> passed_;
  std::map<const platform::Control*, std::string> shown_;
};

}  // namespace robot
