#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/rows/row_source.h"
#include "engine/rows/slices.h"

namespace engine {

/// Row keys among which all of a list's are, each once, in their own order.
struct DrivenKeys {
  const PlanDriver* driver = nullptr;  ///< has led to them
  std::vector<std::int64_t> keys;
  bool narrowed = false;  ///< without those that another driver doesn't lead to
};

/// The drivers of a plan that an index serves, whose keys are read as far as they are of interest: all equally far, until the end of
/// one is known. Far on only the one that seems to lead to the fewest rows is followed.
class Leads {
 public:
  explicit Leads(RowSource& source) : source_(source) {}
  /// More keys than these take too much memory.
  static constexpr std::int64_t kMostKeys = 250'000;
  void Add(const PlanDriver& driver) { leads_.push_back({.driver = &driver}); }
  bool None() const noexcept { return leads_.empty(); }
  /// How the rows of the plan's table are chosen that say which driver leads to the fewest: a SELECT of their keys, as "k".
  void SampleBy(std::string keys) { sample_ = std::move(keys); }
  /// The row keys that there are. Most drivers lead to their keys in order: how far among all of them the first ones reach tells how
  /// many will come.
  void Within(const KeySpan& span) { span_ = span; }

  struct Lead {
    const PlanDriver* driver = nullptr;
    std::unique_ptr<Query> reading{};
    std::vector<std::int64_t> read{};
    bool inOrder = true;  ///< as far as it is read
    bool whole = false;   ///< read to its end
    std::int64_t Keys() const { return static_cast<std::int64_t>(read.size()); }
  };
  /// Follows the drivers as far as `most` keys.
  void Reach(std::int64_t most);
  /// Of those whose end is known the one with the fewest keys; nullptr for none.
  const Lead* Shortest() const;
  /// About how many rows the list has at most, as far as the keys tell that were read; nothing where they don't.
  std::optional<double> FewestLikely() const;
  /// About which part of the table's rows all of the drivers lead to, as far as that is told, should they have nothing to do with each other.
  std::optional<double> LikelyShare() const;
  /// What going on from `from` keys as far as `most` would cost, beside a row that a look at the whole table passes.
  static double CostOf(std::int64_t from, std::int64_t most);
  /// The keys of the shortest. Those to which another driver doesn't lead are left out where reading its keys is clearly less work
  /// than looking at the rows, each of which costs `row`.
  DrivenKeys Keys(double row);
  /// Ends what is still being read.
  void Close();

 private:
  void Read(Lead& lead, std::int64_t most);
  void Begin(Lead& lead, std::int64_t most);
  void ReadTogether(std::int64_t most);
  static void Add(Lead& lead, const Query& row);
  void KeepRarest();
  bool Tells(const Lead& lead) const;
  double Likely(const Lead& lead) const;
  bool Narrow(std::vector<std::int64_t>& keys, Lead& by, double row);

  RowSource& source_;
  std::vector<Lead> leads_;
  std::vector<Lead> aside_;  ///< aren't followed any more
  std::string sample_;
  KeySpan span_;
};

}  // namespace engine
