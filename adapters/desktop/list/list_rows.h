#pragma once

#include <QString>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/data.h"

namespace desktop {

/// One row of the window with the texts that were shown of it.
struct ShownRow {
  platform::ListRow row;
  std::vector<QString> texts;  ///< by design column
  std::vector<bool> known;     ///< whether that text was made

  bool Readable() const noexcept { return !row.cells.empty(); }
};

/// A few hundred rows of a list around what is in view, fetched through the engine's window. Ordinals may be estimates
/// while the engine is still counting; `Settle` puts them right.
class ListRows {
 public:
  /// Most rows that are ever held.
  static constexpr int kMost = 384;

  /// Where the rows come from; asked anew at each use, nullptr while there is no list.
  using Source = std::function<platform::RowWindow*()>;
  explicit ListRows(Source source) : source_(std::move(source)) {}

  /// Forgets all rows: the list was opened anew (or closed).
  void Forget();
  /// Rows of the list, as far as is known. Never raises.
  std::int64_t Count();
  bool CountIsExact() const noexcept { return exact_; }
  /// Asks the engine for the count again; returns how many rows the held ones moved down the list by that.
  std::int64_t Settle();

  /// Fetches what is missing of these rows, with one call where it can be. False when they can't be read now.
  bool Need(std::int64_t first, int count);
  const ShownRow* At(std::int64_t ordinal) const;
  ShownRow* At(std::int64_t ordinal);

  /// Ordinal of a row that is held.
  std::optional<std::int64_t> HeldOrdinal(const platform::Bookmark& row) const;
  /// All that are held, in the list's order.
  std::vector<platform::Bookmark> HeldRows() const;
  /// Ordinal of any row, fetching `around` rows before and behind it; nothing when it is not in the list. While the engine
  /// still counts, the ordinal is a guess that Settle puts right.
  std::optional<std::int64_t> Find(const platform::Bookmark& row, int around);
  /// Reads one held row again. False when the program has deleted it: it is not held any more then, those behind it move up.
  bool Reread(const platform::Bookmark& row);
  /// Forgets the texts, so that changed columns show.
  void ForgetTexts();

  int Held() const noexcept { return static_cast<int>(rows_.size()); }

 private:
  template <class Body>
  bool Try(Body&& body);
  void Replace(std::int64_t first, std::vector<platform::ListRow> rows);
  void Append(std::vector<platform::ListRow> rows);
  void Prepend(std::vector<platform::ListRow> rows);
  bool Extend(platform::RowWindow& window, std::int64_t first, std::int64_t end);
  bool Jump(platform::RowWindow& window, std::int64_t first, int count);
  std::int64_t End() const noexcept { return base_ + static_cast<std::int64_t>(rows_.size()); }
  void NoteEnd();
  void Remove(std::int64_t ordinal);

  Source source_;
  std::deque<ShownRow> rows_;
  std::int64_t base_ = 0;
  std::int64_t count_ = 0;
  bool counted_ = false;
  bool exact_ = false;
};

}  // namespace desktop
