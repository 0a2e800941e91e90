#include "robot/language/arguments.h"

#include <cassert>
#include <charconv>

#include "robot/language/failure.h"

namespace robot {

const Word& Arguments::At(std::size_t index) const {
  assert(index < words_.size());
  return words_[index];
}

std::optional<int> Arguments::WholeNumber(std::size_t index) const {
  const std::string& text = Text(index);
  int number = 0;
  const auto [end, mistake] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (mistake != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

int Arguments::Number(std::size_t index) const {
  const auto number = WholeNumber(index);
  if (!number) throw ActionFailed("no whole number: " + Text(index));
  return *number;
}

bool Arguments::Is(std::size_t index, std::string_view keyword) const { return index < words_.size() && words_[index].Is(keyword); }

std::vector<Word> Arguments::From(std::size_t index) const {
  if (index >= words_.size()) return {};
  return {words_.begin() + static_cast<std::ptrdiff_t>(index), words_.end()};
}

}  // namespace robot
