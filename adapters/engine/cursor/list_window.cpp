#include "engine/cursor/list_window.h"

#include "engine/errors.h"

namespace engine {

using platform::Bookmark;
using platform::ListRow;

bool ListWindow::PlaceOf(const Bookmark& bookmark, Place& place) {
  if (bookmark.set != list_.Source().Set()) throw errors::BadBookmark();
  return list_.WindowPlace(bookmark.key, place);
}

std::vector<ListRow> ListWindow::RowsAt(std::int64_t ordinal, int count) {
  if (count <= 0) return {};
  if (ordinal <= 0) return list_.Rows(nullptr, true, count);
  Place before;
  return list_.At(ordinal - 1, before) ? list_.Rows(&before, true, count) : std::vector<ListRow>();
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
  if (!list_.Fetch(place)) place.page.reset();  // its line stays, without cells
  return list_.ShownRow(place);
}

std::optional<std::int64_t> ListWindow::OrdinalOf(const Bookmark& row) {
  Place place;
  if (!PlaceOf(row, place)) return {};
  return list_.OrdinalOf(place);
}

}  // namespace engine
