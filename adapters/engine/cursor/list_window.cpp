#include "engine/cursor/list_window.h"

#include <utility>

#include "engine/errors.h"

namespace engine {

using platform::Bookmark;
using platform::ListRow;

bool ListWindow::PlaceOf(const Bookmark& bookmark, Place& place) {
  if (bookmark.set != list_.Source().Set()) throw errors::BadBookmark();
  return list_.WindowPlace(bookmark.key, place);
}

std::vector<ListRow> ListWindow::RowsAt(std::int64_t ordinal, int count) {
  return count <= 0 ? std::vector<ListRow>() : list_.RowsAt(ordinal, count);
}

std::vector<ListRow> ListWindow::RowsAfter(const Bookmark& row, int count) {
  Place place;
  return PlaceOf(row, place) ? list_.Rows(&place, true, count) : std::vector<ListRow>();
}

std::vector<ListRow> ListWindow::RowsBefore(const Bookmark& row, int count) {
  Place place;
  return PlaceOf(row, place) ? list_.Rows(&place, false, count) : std::vector<ListRow>();
}

std::optional<ListRow> ListWindow::RowOf(const Bookmark& row) {
  Place place;
  if (!PlaceOf(row, place)) return {};
  return Shown(place);
}

platform::ListRow ListWindow::Shown(Place& place) {
  if (!list_.Fetch(place)) place.page.reset();  // its line stays, without cells
  return list_.ShownRow(place);
}

std::optional<platform::RowsAround> ListWindow::Around(const Bookmark& row, int count) {
  Place place;
  if (!PlaceOf(row, place)) return {};
  ListRow self = Shown(place);
  platform::RowsAround around;
  around.rows = list_.Rows(&place, false, count);
  around.before = around.rows.size();
  // Near the start the place is known without counting.
  if (std::cmp_less(around.before, count))
    around.ordinal = static_cast<std::int64_t>(around.before);
  else if (list_.CountIsExact() && !(around.ordinal = list_.OrdinalOf(place)))
    return {};
  around.rows.push_back(std::move(self));
  for (ListRow& behind : list_.Rows(&place, true, count)) around.rows.push_back(std::move(behind));
  return around;
}

std::optional<std::int64_t> ListWindow::OrdinalOf(const Bookmark& row) {
  Place place;
  if (!PlaceOf(row, place)) return {};
  return list_.OrdinalOf(place);
}

}  // namespace engine
