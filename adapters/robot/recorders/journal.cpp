#include "robot/recorders/journal.h"

#include <algorithm>

#include "robot/language/words.h"

namespace robot {
namespace {

template <class Entry>
const Entry* Oldest(const std::vector<Entry>& entries) {
  const auto found = std::find_if(entries.begin(), entries.end(), [](const Entry& entry) { return !entry.expected; });
  return found == entries.end() ? nullptr : &*found;
}

}  // namespace

void Journal::Box(std::string text, int style, std::string title) {
  boxes_.push_back({std::move(text), style, std::move(title), line_, false});
  const std::size_t box = boxes_.size() - 1;
  if (loggedWithoutBox_) logged_[*loggedWithoutBox_].box = box;
  if (unhandledWithoutBox_) unhandled_[*unhandledWithoutBox_].box = box;
  loggedWithoutBox_.reset();
  unhandledWithoutBox_.reset();
}

void Journal::Logged(const platform::ErrorRecord& record) {
  logged_.push_back({record, line_, std::nullopt, false});
  loggedWithoutBox_ = logged_.size() - 1;
}

void Journal::Unhandled(const platform::Error& error, bool withBox) {
  unhandled_.push_back({error, line_, std::nullopt, false});
  if (withBox) unhandledWithoutBox_ = unhandled_.size() - 1;
}

void Journal::Dialog(std::string name) { dialogs_.push_back({std::move(name), line_, false}); }

template <class Entry>
Entry* Journal::Take(std::vector<Entry>& entries) {
  const auto found = std::find_if(entries.begin(), entries.end(), [](const Entry& entry) { return !entry.expected; });
  if (found == entries.end()) return nullptr;
  found->expected = true;
  if constexpr (requires { found->box; }) {
    if (found->box) boxes_[*found->box].expected = true;
  }
  return &*found;
}

const ShownBox* Journal::TakeBox() { return Take(boxes_); }
const LoggedError* Journal::TakeLogged() { return Take(logged_); }
const UnhandledError* Journal::TakeUnhandled() { return Take(unhandled_); }
const AskedDialog* Journal::TakeDialog() { return Take(dialogs_); }

const ShownBox* Journal::OldestBox() const { return Oldest(boxes_); }
const LoggedError* Journal::OldestLogged() const { return Oldest(logged_); }
const AskedDialog* Journal::OldestDialog() const { return Oldest(dialogs_); }

std::vector<Journal::Leftover> Journal::Leftovers() const {
  std::vector<Leftover> left;
  std::set<std::size_t> told;
  for (const LoggedError& entry : logged_) {
    if (entry.expected) continue;
    if (entry.box) told.insert(*entry.box);
    left.push_back({entry.line, "no error report",
                    entry.record.module + " " + std::to_string(entry.record.number) + " " + Quoted(entry.record.description)});
  }
  for (const UnhandledError& entry : unhandled_) {
    if (entry.expected) continue;
    if (entry.box) told.insert(*entry.box);
    left.push_back({entry.line, "no unhandled error", std::to_string(entry.error.Number()) + " " + Quoted(entry.error.Description())});
  }
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    if (boxes_[i].expected || told.contains(i)) continue;
    left.push_back({boxes_[i].line, "no box", Quoted(boxes_[i].text) + " title " + Quoted(boxes_[i].title)});
  }
  std::stable_sort(left.begin(), left.end(), [](const Leftover& a, const Leftover& b) { return a.line < b.line; });
  return left;
}

void Journal::ActBegins(const std::optional<std::string>& status, int pointer) {
  said_.clear();
  if (status) said_.push_back(*status);
  pointed_ = {pointer};
  reloads_.clear();
  passed_.clear();
}

void Journal::Showed(const platform::Control& control, std::string text) {
  const auto [entry, added] = shown_.try_emplace(&control, text);
  if (!added && entry->second == text) return;
  entry->second = text;
  passed_[&control].push_back(std::move(text));
}

void Journal::Forget(const platform::Control& control) {
  shown_.erase(&control);
  passed_.erase(&control);
  reloads_.erase(&control);
}

int Journal::Reloads(const platform::Control& data) const {
  const auto found = reloads_.find(&data);
  return found == reloads_.end() ? 0 : found->second;
}

std::vector<std::string> Journal::Passed(const platform::Control& control) const {
  const auto found = passed_.find(&control);
  return found == passed_.end() ? std::vector<std::string>{} : found->second;
}

}  // namespace robot
