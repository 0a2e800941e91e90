#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "engine/values/packed_cells.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

/// A statement that a store has prepared. One run at a time: bind, step, read. Columns count from 0, parameters from 1; a text
/// may leave numbers of parameters out, and each run binds all that it uses. A run that meets a lock waits for it, then raises
/// 3218 when it writes and 3045 when it reads.
class Statement {
 public:
  Statement() = default;
  virtual ~Statement() = default;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  bool InUse() const noexcept { return inUse_; }
  /// Whether a new run may begin: it isn't being run, and the store hasn't dropped it.
  bool Free() const noexcept { return !inUse_ && !dropped_; }
  void Begin() noexcept { inUse_ = true; }
  /// Nothing of the run stays open.
  void End() noexcept {
    Reset();
    inUse_ = false;
  }

  virtual void BindNull(int parameter) = 0;
  virtual void Bind(int parameter, std::int64_t number) = 0;
  virtual void Bind(int parameter, double number) = 0;
  virtual void Bind(int parameter, std::string_view text) = 0;
  /// The same for a text that stays where it is until the run has ended: it need not be copied.
  virtual void BindInPlace(int parameter, std::string_view text) { Bind(parameter, text); }

  /// Told before a run: its rows are few, and the way to them is the same whatever values are bound. A store that plans each run for its
  /// values may then plan once.
  virtual void PlanOnce() {}
  /// It gives few rows, which may come as a whole.
  virtual void ExpectFew() {}
  /// Told before a run, instead of that: its rows are few, and the order in which they are wanted is that of an index, along which they are
  /// to be found. A store that plans by itself may think it less work to put all rows in order.
  virtual void PlanAlong() {}
  /// True when there is a row.
  virtual bool Step() = 0;
  /// Makes it ready for another run; bindings stay.
  virtual void Reset() noexcept = 0;
  /// Rows that the run, now at its end, has written.
  virtual std::int64_t Changed() const = 0;
  /// The row key of the row that the run, an INSERT of one row that is now at its end, has added.
  virtual std::int64_t AddedRow() const = 0;

  virtual bool IsNull(int column) const = 0;
  virtual std::int64_t Int(int column) const = 0;
  /// The bytes of a text, nothing for Null; valid until the next step.
  virtual std::optional<std::string_view> Text(int column) const = 0;
  /// Puts the values of neighbouring columns of these types, from `first` on, behind the cells.
  virtual void Append(std::vector<platform::Value>& cells, int first, std::span<const platform::FieldType> types) const = 0;
  /// The same into packed cells, of which nobody may ever ask most.
  virtual void Pack(PackedCells& cells, int first, std::span<const platform::FieldType> types) const {
    std::vector<platform::Value> values;
    values.reserve(types.size());
    Append(values, first, types);
    for (const platform::Value& value : values) cells.Add(value);
  }

 protected:
  void MarkDropped() noexcept { dropped_ = true; }

 private:
  bool inUse_ = false;
  bool dropped_ = false;
};

}  // namespace engine
