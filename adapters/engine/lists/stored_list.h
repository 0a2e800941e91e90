#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/lists/row_list.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// Rows without an identity in any table: distinct values, or the one row of an aggregate. They are read once, at opening,
/// and can't be written.
class StoredList final : public RowList {
 public:
  explicit StoredList(std::shared_ptr<RowSource> source);

  bool First(Place& place) override { return Take(place, 0); }
  bool Last(Place& place) override { return Take(place, RowTotal() - 1); }
  bool Next(Place& place) override { return Take(place, place.ordinal + 1); }
  bool Previous(Place& place) override { return Take(place, place.ordinal - 1); }
  bool Fetch(Place&) override { return true; }
  std::string KeyOf(const Place& place) const override;
  Place PlaceOf(const std::string& key) override;
  bool Find(std::string_view criterion, const Place* after, Place& found) override;
  std::int64_t RowsReached() override { return RowTotal(); }
  Place Added(const std::vector<std::int64_t>& keys) override;
  void Changed(Place& place) override;
  void Deleted(const Place& place) override;
  std::int64_t Count() override { return RowTotal(); }
  bool CountIsExact() override { return true; }
  bool At(std::int64_t ordinal, Place& place) override { return Take(place, ordinal); }
  std::optional<std::int64_t> OrdinalOf(const Place& place) override { return place.ordinal; }
  bool IdleSlice() override { return false; }

 private:
  std::int64_t RowTotal() const;
  bool Take(Place& place, std::int64_t ordinal) const;
  std::string SelectText(std::string_view condition) const;
  void ReadRows(const std::string& text, RowPage& page) const;

  std::shared_ptr<RowPage> rows_;
};

}  // namespace engine
