#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "engine/store/channel.h"
#include "engine/store/postgres/link/run.h"

namespace engine::postgres {

/// Marks the saves of one desk, so that the desk can ask what became of one whose answer was cut: a row of the desk's own, in a table of
/// the schema, is written in the same transaction and is there exactly when the save is. It needs no trip of its own, and unlike the
/// transaction's number it need not have come back before the cut.
class SaveMarks {
 public:
  static constexpr std::string_view kWroteNothing = "0";

  SaveMarks();

  /// The desk's name, which no other one has: of its connections and of its row.
  const std::string& Desk() const noexcept { return desk_; }

  /// The schema has the table, and this role may write there.
  void KeptIn(const std::string& schema) { kept_.insert(schema); }
  bool AreKeptIn(const std::string& schema) const { return kept_.contains(schema); }

  /// What is to be run behind a save, in its transaction; it is the save `Last` then.
  Mark Next(const std::string& schema);
  /// The same as one text.
  std::string NextText(const std::string& schema);
  std::uint64_t Last() const noexcept { return last_; }

  /// The number of the save's transaction if it was stored, kWroteNothing if that changed no row; nothing if it wasn't, or nobody can know. Ends what is left of the desk's
  /// other connections first: one that nobody hears of any more may still be about to store. Raises 3043 while there is nobody to ask.
  std::optional<std::string> Stored(Channel& channel, const std::string& schema, std::uint64_t save) const;

 private:
  std::string TextOf(const std::string& schema, const std::string& save);

  std::string desk_;
  std::uint64_t last_ = 0;
  std::set<std::string> kept_;
  std::set<std::string> begun_;  ///< schemas where a mark was left
};

/// Whether a statement that writes rows gives a column of them back.
bool GivesRowsBack(std::string_view sql);

/// What asks for the rows that an INSERT or UPDATE has written, by the number of its transaction, and for the column that it gives back.
/// "" where they can't be found again.
std::string RowsWrittenBy(std::string_view sql, const std::string& number);

}  // namespace engine::postgres
