#include "robot/language/arguments.h"

#include <cassert>
#include <charconv>

#include "platform/values/text.h"
#include "robot/language/failure.h"

namespace robot {

const Word& Arguments::At(std::size_t index) const {
  assert(index < words_.size());
  return words_[index];
}

int Arguments::Number(std::size_t index) const {
  const std::string& text = Text(index);
  int number = 0;
  const auto [end, mistake] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (mistake != std::errc{} || end != text.data() + text.size()) throw ActionFailed("no whole number: " + text);
  return number;
}

bool Arguments::Is(std::size_t index, std::string_view keyword) const {
  return index < words_.size() && !words_[index].quoted && platform::EqualsNoCase(words_[index].text, keyword);
}

std::vector<Word> Arguments::From(std::size_t index) const {
  if (index >= words_.size()) return {};
  return {words_.begin() + static_cast<std::ptrdiff_t>(index), words_.end()};
}

}  // namespace robot
