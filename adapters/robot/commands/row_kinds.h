#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "robot/language/arguments.h"

namespace robot {

/// How a value is written in a statement.
enum class FieldKind { Text, Number, Flag, Date };

struct RowField {
  std::string_view name;
  FieldKind kind = FieldKind::Text;
};

/// How many of the first fields must be given, and how many may be without their names.
struct Places {
  std::size_t least = 0;
  std::size_t most = 0;
};

/// A kind of row that `add` puts into the company's customer file.
struct RowKind {
  std::string_view name;  ///< one word, or two
  std::string_view table;
  Places places;
  /// The first field may be left out, where no number stands: the file numbers the row.
  bool counted = false;
  std::vector<RowField> fields;
  /// What fields hold that the line does not name, as words of the language; all others are left to the file.
  std::vector<std::pair<std::string_view, Word>> filled;
};

/// The kind that the words behind `add` begin with; `taken` becomes the number of its words. nullptr when there is none.
const RowKind* FindRowKind(const Arguments& words, std::size_t& taken);
/// The names of all kinds, for messages.
std::string RowKindNames();

/// "VALUE... [FIELD VALUE]...": the kind's first fields by their place, until a field is named.
class RowWords {
 public:
  RowWords(const RowKind& kind, const Arguments& words);
  /// What is wrong with them, "" for nothing. A word with braces may become anything.
  const std::string& Mistake() const noexcept { return mistake_; }
  /// The statement that puts the row in. Raises ActionFailed for a word that its field can't hold.
  std::string Statement() const;

 private:
  void Place(const Arguments& words);
  void Check();
  const RowField* FieldNamed(const Word& word) const;
  bool IsGiven(std::string_view field) const;

  const RowKind& kind_;
  std::vector<std::pair<const RowField*, Word>> values_;
  std::string mistake_;
};

}  // namespace robot
