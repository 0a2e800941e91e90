#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/rows/place.h"
#include "engine/rows/row_editor.h"
#include "engine/rows/row_source.h"

namespace engine {

/// The rows of one open recordset in their order, shared with its clones. A row that others have deleted is passed over
/// when walking.
class RowList {
 public:
  explicit RowList(std::shared_ptr<RowSource> source) : source_(std::move(source)) {}
  virtual ~RowList() = default;
  RowList(const RowList&) = delete;
  RowList& operator=(const RowList&) = delete;

  RowSource& Source() const noexcept { return *source_; }

  /// A list of the same statement that is opened now: it begins with what this one has read, if nothing has been written since.
  /// nullptr when it can't.
  virtual std::shared_ptr<RowList> OpenAgain(const std::shared_ptr<RowSource>&) { return nullptr; }

  /// The row, by its key in the first table, that was gone to last: a list that is opened anew is mostly opened to stand on it again.
  virtual std::optional<std::int64_t> RowGoneTo() const { return {}; }
  /// Before anything is read: that row is expected to be gone to next.
  virtual void BeginAlsoAt(std::int64_t rowKey) { static_cast<void>(rowKey); }

  /// The first (last) row, the row behind (before) a place. False when there is none: the place is then as it was.
  virtual bool First(Place& place) = 0;
  virtual bool Last(Place& place) = 0;
  virtual bool Next(Place& place) = 0;
  virtual bool Previous(Place& place) = 0;

  /// Reads the row anew from the store; false when it is gone.
  virtual bool Fetch(Place& place);
  /// Whether that would find the row as it was read.
  bool StillSo(const Place& place) const { return place.page != nullptr && source_->StillSo(*place.page); }

  /// The identity that a bookmark carries, and the place that it names. A text that can't be a bookmark of this list: 3159; a
  /// row that is gone: 3167.
  virtual std::string KeyOf(const Place& place) const = 0;
  virtual Place PlaceOf(const std::string& key) = 0;

  /// The place of a bookmark for a window, the row itself not read; false for a row that has left the list.
  virtual bool WindowPlace(const std::string& key, Place& place);

  /// The first row for which the criterion holds, behind `after` or from the first row on. False when there is none.
  virtual bool Find(std::string_view criterion, const Place* after, Place& found) = 0;

  /// Rows reached so far; final once the last was reached. 0 exactly when there is no row.
  virtual std::int64_t RowsReached() = 0;
  /// Whether there is a row at all.
  virtual bool AnyRow() { return RowsReached() != 0; }

  /// Before this recordset writes: a list that reads on as it is walked settles which rows it has.
  virtual void Settle() {}
  // What this recordset itself has done.
  /// The new row's place, good for KeyOf; the row itself may not have been read.
  virtual Place Added(const std::vector<std::int64_t>& keys) = 0;
  /// Before a row is changed: how the store gives it back, where it can; Changed comes next, if the change succeeds.
  virtual std::optional<RowBack> Back() { return {}; }
  virtual void Changed(Place& place) = 0;
  virtual void Deleted(const Place& place) = 0;

  // The list as windows show it.
  /// Up to `count` rows behind `from` (before it), or from that end of the list; in list order.
  virtual std::vector<platform::ListRow> Rows(const Place* from, bool forward, int count);
  /// Up to `count` rows from that number on.
  virtual std::vector<platform::ListRow> RowsAt(std::int64_t ordinal, int count);
  platform::ListRow ShownRow(const Place& place) const;
  virtual std::int64_t Count() = 0;
  virtual bool CountIsExact() = 0;
  /// The place with that number, the row itself not read; false when there is none.
  virtual bool At(std::int64_t ordinal, Place& place) = 0;
  /// The number of a place that has just been found.
  virtual std::optional<std::int64_t> OrdinalOf(const Place& place) = 0;
  /// A slice of work for idle time; false when none is left.
  virtual bool IdleSlice() = 0;

 protected:
  bool FetchRow(Place& place, RowSource::Missing missing);

 private:
  std::shared_ptr<RowSource> source_;
};

}  // namespace engine
