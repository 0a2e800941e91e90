#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "engine/lists/leads.h"
#include "engine/rows/key_walker.h"
#include "engine/rows/row_source.h"
#include "engine/rows/slices.h"

namespace engine {

/// How the list of a filter on a long table begins.
struct FirstRows {
  enum class Way {
    Walk,   ///< the first rows were found by looking at the rows in the list's order
    Drive,  ///< few rows can fit, and `driven` has their keys; of very few all rows are found, `ordered` has their keys
    Scan,   ///< only a look at all rows finds them
  } way = Way::Scan;
  /// The rows found, each with its columns and its order columns; of no use unless the list was walked or `all` are there.
  std::shared_ptr<RowPage> page{};
  std::vector<std::int64_t> ordered{};  ///< all rows' keys in the list's order, where there are more than those of `page`
  bool all = false;                     ///< there are no others than those of `page` or `ordered`
  std::int64_t likelyRows = 0;          ///< a guess at the number of all rows
  std::uint64_t version = 0;            ///< of the tables, before anything was read
  DrivenKeys driven{};
};

/// Finds the first page of rows, or what leads to them, with little more work than the best way would have had that had been
/// known from the start: the drivers are followed and the list is walked by turns, a little further each time, until one of
/// them has won, or a look at the whole table would be quicker than both.
class FirstLook {
 public:
  /// `rows`: the plan's rows in the list's order; `bounded`: the table's rows in that order, without those that conditions on
  /// the order column alone leave out. No `rows`: the list's order has no index.
  FirstLook(RowSource& source, KeyWalker* rows, KeyWalker* bounded, Direction direction);
  /// Leaves out drivers that must be looked for through the whole of their table.
  void ByIndexesAlone() { wide_.clear(); }

  FirstRows Run();
  /// The rows where a driver leads to so few that nothing else is as little work, in a store that plans by itself; nothing where none does.
  /// `likelyRows`: what the store believes of the table's length.
  std::optional<FirstRows> ByFewKeys(std::int64_t likelyRows);
  /// The driver that did.
  const PlanDriver* Taken() const noexcept { return taken_; }
  /// The same by that driver, by one statement if it leads to few; nothing if it leads to more by now, or to no row.
  std::optional<FirstRows> ByFewKeysOf(const PlanDriver& driver);
  /// What the drivers tell of the list.
  struct Told {
    double share = 1;   ///< about which part of the table's rows it has
    double driven = 0;  ///< to about how many rows the best of them leads
  };
  /// Behind ByFewKeys; nothing where their first keys tell nothing.
  const std::optional<Told>& WhatTheyTell() const noexcept { return told_; }

  /// How many rows of the list are looked for.
  static constexpr std::int64_t kPage = 50;

 private:
  /// What a row costs beside one that a look at the whole table passes.
  struct Costs {
    double elsewhere;  ///< in the list's order: it lies anywhere in the file
    double byKey;      ///< in the order of the keys
    double question;   ///< asking another table about it
  };
  static Costs CostsFor(std::int64_t rows);
  void Begin();
  void Choose();
  bool Walks(double other, double trial, bool open);
  bool CollectWide();
  void TakeShortest();
  void Join(const PlanDriver& driver, bool withRows);
  std::string JoinText(const std::string& keys, const PlanDriver& driver, const std::string& columns) const;
  void Fetch(DrivenKeys driven);
  void TakeAll(bool withRows, const std::function<void(const PiecewiseScan::Take&)>& read);
  void TakeInOrder(RowPage& rows, std::vector<OrderPlace>& places, bool withRows);
  void ReadFirst();
  void WalkOn(std::int64_t rows);
  void RunOn(double rows);
  std::int64_t Hits() const { return static_cast<std::int64_t>(first_.page->Rows()); }
  std::optional<double> ToldRows() const;
  double RowsToLookAt() const;
  double LikelyToLookAt() const;
  double LikelyRows() const;
  double Promise() const;

  RowSource& source_;
  KeyWalker* rows_;
  KeyWalker* bounded_;
  Direction direction_;
  FirstRows first_;
  Leads leads_;
  std::vector<const PlanDriver*> wide_;  ///< drivers without an index
  std::optional<OrderPlace> reached_;
  std::int64_t looked_ = 0;
  std::int64_t span_ = 0;
  std::optional<Told> told_;
  const PlanDriver* taken_ = nullptr;
  bool misjudged_ = false;  ///< rows that fit were expected sooner
  double look_ = 0;         ///< what looking at one more row in the list's order costs
  double byKey_ = 0;        ///< at one with a driver's key
  double question_ = 0;     ///< what asking other tables about a row costs
  double scan_ = 0;         ///< at all
};

}  // namespace engine
