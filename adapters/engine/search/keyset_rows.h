#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "engine/rows/key_walker.h"
#include "engine/rows/place.h"

namespace engine {

/// What a search asks of a list of held keys.
class KeysetRows {
 public:
  virtual ~KeysetRows() = default;

  /// Keys held so far.
  virtual std::int64_t Size() const = 0;
  /// Reads on until there is a row with that number; false when there is none.
  virtual bool Reach(std::int64_t ordinal) = 0;
  virtual void FillAll() = 0;
  virtual const std::int64_t* KeysOf(std::int64_t ordinal) const = 0;
  virtual bool IsAlive(std::int64_t ordinal) const = 0;
  /// Rows that this recordset has added or changed: they may fit or not fit apart from what the tables' order says.
  virtual const std::vector<std::int64_t>& OwnRows() const = 0;
  /// The row with that number, read; false when it is gone.
  virtual bool Visit(std::int64_t ordinal, Place& place) = 0;
  /// Of a list of few rows, in a store that answers to many keys as quickly as to one: the numbers of the rows for which the criterion is
  /// true, all of which are read by that. Nothing of any other list.
  virtual std::optional<std::vector<std::int64_t>> FitsOfFew(std::string_view criterion) = 0;
  /// Number of the row with that key of the first table; the list has one table.
  virtual std::optional<std::int64_t> OrdinalOfKey(std::int64_t rowKey) = 0;

  /// Of a list in the order of an index, else nullptr.
  virtual KeyWalker* Walker() = 0;
  /// Of a list of one table that was put in its order by the columns of this walker, else nullptr.
  virtual KeyWalker* Places() = 0;
  virtual Direction Forward() const = 0;
  /// Whether nobody has written since the keys were read, so that they still are in the order of the index.
  virtual bool InIndexOrder() = 0;
  /// The same of a list that has Places, when all its keys are held.
  virtual bool InOrder() = 0;
  /// Of a list that is InOrder: the first number from `from` on whose row isn't before what is looked for, its size when there is none.
  /// `isBefore` is given a row's place, nothing for a row that is gone; of the rows for which it says no the last one asked is the found
  /// one.
  using IsBefore = std::function<bool(const OrderPlace* place)>;
  virtual std::int64_t FirstNotBefore(std::int64_t from, const IsBefore& isBefore) = 0;
};

}  // namespace engine
