#include "hostile/options.h"

#include <charconv>

namespace hostile {

const char* const kUsage =
    "hostile_yields [--all | --share N] [--seed N] [--part I/N] [--only PROCEDURE] [--act ACT] [--yield N] [--no] [--live | --exact]\n"
    "               [--server] [--no-fork] [--notes] [--list]\n"
    "Interrupts procedures of the screens at their yields. Ends with 1 when something was found.\n";

namespace {

template <class Number>
bool Read(const std::string& text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size();
}

bool ReadPart(const std::string& text, Options& options) {
  const auto slash = text.find('/');
  if (slash == std::string::npos) return false;
  return Read(text.substr(0, slash), options.part) && Read(text.substr(slash + 1), options.parts) && options.parts > 0;
}

/// A word without a value.
bool TakeFlag(const std::string& word, Options& options) {
  if (word == "--all")
    options.share = 1;
  else if (word == "--no")
    options.no = true;
  else if (word == "--live")
    options.live = true;
  else if (word == "--exact")
    options.live = false;
  else if (word == "--server")
    options.server = true;
  else if (word == "--no-fork")
    options.fork = false;
  else if (word == "--notes")
    options.notes = true;
  else if (word == "--list")
    options.list = true;
  else
    return false;
  return true;
}

bool TakeValue(const std::string& word, const std::string& value, Options& options) {
  if (word == "--share") return Read(value, options.share);
  if (word == "--seed") return Read(value, options.seed);
  if (word == "--yield") return Read(value, options.yield);
  if (word == "--part") return ReadPart(value, options);
  if (word == "--only")
    options.only = value;
  else if (word == "--act")
    options.act = value;
  else
    return false;
  return true;
}

}  // namespace

Options ReadOptions(int count, char** words, std::string& mistake) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (TakeFlag(word, options)) continue;
    if (i + 1 == count || !TakeValue(word, words[i + 1], options)) {
      mistake = "what is meant by " + word + "?";
      return options;
    }
    ++i;
  }
  return options;
}

}  // namespace hostile
