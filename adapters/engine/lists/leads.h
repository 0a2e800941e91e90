#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/rows/row_source.h"

namespace engine {

/// Row keys that one of a plan's drivers leads to, each once, in their own order.
struct DrivenKeys {
  const PlanDriver* driver = nullptr;
  std::vector<std::int64_t> keys;
};

/// The drivers of a plan that an index serves, counted as far as it is of interest: all equally far, until the end of one is known.
/// Far on only the one that seems to lead to the fewest rows is followed, and its keys are read at once in place of counted.
class Leads {
 public:
  explicit Leads(RowSource& source) : source_(source) {}
  void Add(const PlanDriver& driver) { leads_.push_back({.driver = &driver}); }
  bool None() const noexcept { return leads_.empty(); }
  /// How the rows of the plan's table are chosen that say which driver leads to the fewest: a SELECT of their keys, as "k".
  void SampleBy(std::string keys) { sample_ = std::move(keys); }

  struct Lead {
    const PlanDriver* driver = nullptr;
    std::int64_t keys = 0;  ///< more when it isn't `whole`
    bool whole = false;
    std::unique_ptr<Query> reading{};
    std::vector<std::int64_t> read{};
  };
  /// Follows the drivers as far as `most` keys.
  void Reach(std::int64_t most);
  /// Of those whose end is known the one with the fewest keys; nullptr for none.
  const Lead* Shortest() const;
  /// What going on from `from` keys as far as `most` would cost, beside a row that a look at the whole table passes.
  static double CostOf(std::int64_t from, std::int64_t most);
  /// All keys of the shortest.
  DrivenKeys Keys();
  /// Ends what is still being read.
  void Close() { leads_.clear(); }

 private:
  void Count(Lead& lead, std::int64_t most);
  void Read(Lead& lead, std::int64_t most);
  void KeepRarest();

  RowSource& source_;
  std::vector<Lead> leads_;
  std::string sample_;
};

}  // namespace engine
