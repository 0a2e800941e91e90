#pragma once

#include <charconv>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace bench {

/// What a program understands of its command line: "--pairs 5", "--waits"; all other words are places to work on.
class OptionWords {
 public:
  /// An option with a value, told as it stands.
  OptionWords& Value(const std::string& name, std::function<void(const std::string&)> take);
  OptionWords& Text(const std::string& name, std::string& text);
  template <class T>
  OptionWords& Number(const std::string& name, T& number) {
    return Value(name, [&number](const std::string& text) {
      const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
      if (problem != std::errc() || end != text.data() + text.size()) throw std::invalid_argument(text);
    });
  }
  /// An option without a value.
  OptionWords& Flag(const std::string& name, bool& given);

  /// The words that are no options, in their order. Throws std::invalid_argument with a word that isn't understood.
  std::vector<std::string> Read(int count, const char* const* words) const;

 private:
  struct Option {
    std::string name;
    bool valued = true;
    std::function<void(const std::string&)> take;
  };
  std::vector<Option> options_;
};

/// The frame of a program's main: runs it and tells what went wrong under its name; `usage` where the words were not understood.
int RunProgram(const char* name, const char* usage, const std::function<void()>& work);

}  // namespace bench
