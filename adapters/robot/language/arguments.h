#pragma once

#include <optional>
#include <string>
#include <vector>

#include "robot/language/words.h"

namespace robot {

/// The words behind a command, with everything in braces replaced. Asking for a word that is not there is a bug and asserted;
/// how many there are was checked when the script was read.
class Arguments {
 public:
  explicit Arguments(std::vector<Word> words) : words_(std::move(words)) {}
  std::size_t Count() const noexcept { return words_.size(); }
  const Word& At(std::size_t index) const;
  const std::string& Text(std::size_t index) const { return At(index).text; }
  /// A whole number; nothing for any other text.
  std::optional<int> WholeNumber(std::size_t index) const;
  /// The same; raises ActionFailed for any other text.
  int Number(std::size_t index) const;
  /// Whether the word is this keyword, unquoted, in any case.
  bool Is(std::size_t index, std::string_view keyword) const;
  std::vector<Word> From(std::size_t index) const;
  const std::vector<Word>& Words() const noexcept { return words_; }

 private:
  std::vector<Word> words_;
};

}  // namespace robot
