#include "options.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace bench {

OptionWords& OptionWords::Value(const std::string& name, std::function<void(const std::string&)> take) {
  options_.push_back({name, true, std::move(take)});
  return *this;
}

OptionWords& OptionWords::Text(const std::string& name, std::string& text) {
  return Value(name, [&text](const std::string& value) { text = value; });
}

OptionWords& OptionWords::Flag(const std::string& name, bool& given) {
  options_.push_back({name, false, [&given](const std::string&) { given = true; }});
  return *this;
}

std::vector<std::string> OptionWords::Read(int count, const char* const* words) const {
  std::vector<std::string> places;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (!word.starts_with("--")) {
      places.push_back(word);
      continue;
    }
    const auto option = std::ranges::find(options_, word, &Option::name);
    if (option == options_.end() || (option->valued && i + 1 == count)) throw std::invalid_argument(word);
    option->take(option->valued ? words[++i] : "");
  }
  return places;
}

int RunProgram(const char* name, const char* usage, const std::function<void()>& work) {
  try {
    work();
    return EXIT_SUCCESS;
  } catch (const std::invalid_argument& word) {
    std::cerr << name << ": what is meant by \"" << word.what() << "\"?\n" << usage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << name << ": " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}

}  // namespace bench
