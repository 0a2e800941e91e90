#pragma once

#include "engine/lists/row_list.h"
#include "platform/data/data.h"

namespace engine {

/// A list as windows look at it; no cursor is moved.
class ListWindow final : public platform::RowWindow {
 public:
  explicit ListWindow(RowList& list) : list_(list) {}

  std::int64_t Count() override { return list_.Count(); }
  bool CountIsExact() override { return list_.CountIsExact(); }
  std::vector<platform::ListRow> RowsAt(std::int64_t ordinal, int count) override;
  std::vector<platform::ListRow> RowsAfter(const platform::Bookmark& row, int count) override;
  std::vector<platform::ListRow> RowsBefore(const platform::Bookmark& row, int count) override;
  std::vector<platform::ListRow> LastRows(int count) override { return list_.Rows(nullptr, false, count); }
  std::optional<platform::ListRow> RowOf(const platform::Bookmark& row) override;
  std::optional<platform::RowsAround> Around(const platform::Bookmark& row, int count) override;
  std::optional<std::int64_t> OrdinalOf(const platform::Bookmark& row) override;
  bool IdleSlice() override { return list_.IdleSlice(); }

 private:
  /// The place behind a bookmark; false for a row that is gone.
  bool PlaceOf(const platform::Bookmark& bookmark, Place& place);
  platform::ListRow Shown(Place& place);

  RowList& list_;
};

}  // namespace engine
