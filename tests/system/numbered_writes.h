#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/data/data.h"

/// Writes with numbers, so that the file itself tells which of them it holds and whether it holds them whole. Every row that
/// a write makes or changes bears its number in each field that the write sets.
namespace system_test {

/// What a write does, by its number.
enum class Kind {
  Add,     ///< a new customer, through a table recordset, with a comment of several pages
  Change,  ///< nine fields of one of the writer's standing customers
  Batch,   ///< one statement that inserts kBatchRows rows
  Remove   ///< one statement that deletes the batch before it
};
Kind KindOf(std::int64_t number);

inline constexpr int kBatchRows = 40;
/// Customers that are there from the start and are changed again and again, a writer.
inline constexpr int kStanding = 16;
inline constexpr int kWriters = 4;

/// The numbers of different writers never meet.
inline constexpr std::int64_t kNumbersOfAWriter = 1'000'000;
inline int WriterOf(std::int64_t number) { return static_cast<int>(number / kNumbersOfAWriter); }

/// Makes company 1 in a folder, with the standing customers of all writers and the codes that batches copy.
void MakeCompany(const std::string& folder);
std::string CustomerFile(const std::string& folder);

/// The file, opened by a session of its own.
class Session {
 public:
  explicit Session(const std::string& file);
  platform::Database& Database() { return *database_; }

 private:
  std::unique_ptr<platform::DataEngine> engine_;
  platform::WorkspaceRef workspace_;
  platform::DatabaseRef database_;
};

/// Does one write; returns when the engine says that it is done. Raises what the engine raises.
void Perform(platform::Database& database, std::int64_t number);

/// What is known about the writes of all writers.
struct Ledger {
  std::set<std::int64_t> acknowledged;
  std::set<std::int64_t> uncertain;  ///< begun, perhaps, and never acknowledged
};

/// Compares a file with what is known: every acknowledged write must be there whole, an uncertain one whole or not at all, and
/// nothing else. What is wrong, in sentences.
std::vector<std::string> Compare(const std::string& file, const Ledger& ledger);

}  // namespace system_test
