#include "engine/lists/row_list.h"

#include <algorithm>

#include "engine/errors.h"

namespace engine {

bool RowList::Fetch(Place& place) { return FetchRow(place, RowSource::Missing::Gone); }

bool RowList::FetchRow(Place& place, RowSource::Missing missing) {
  auto page = source_->NewPage();
  page->cells.Reserve(page->columns);
  if (!source_->Fetch(place.keys.data(), *page, missing)) return false;
  place.keys = page->keys;
  place.page = std::move(page);
  place.row = 0;
  return true;
}

bool RowList::WindowPlace(const std::string& key, Place& place) {
  try {
    place = PlaceOf(key);
    return true;
  } catch (const platform::Error& error) {
    if (error.Number() != errors::RecordDeleted().Number()) throw;
    return false;
  }
}

platform::ListRow RowList::ShownRow(const Place& place) const {
  if (place.page == nullptr) return {{source_->Set(), KeyOf(place)}, {}};
  return {{source_->Set(), KeyOf(place)}, place.page->CellsOf(place.row, source_->Fields().size())};
}

std::vector<platform::ListRow> RowList::RowsAt(std::int64_t ordinal, int count) {
  if (ordinal <= 0) return Rows(nullptr, true, count);
  Place before;
  return At(ordinal - 1, before) ? Rows(&before, true, count) : std::vector<platform::ListRow>();
}

std::vector<platform::ListRow> RowList::Rows(const Place* from, bool forward, int count) {
  std::vector<platform::ListRow> rows;
  Place place;
  if (from != nullptr) place = *from;
  for (int i = 0; i < count; ++i) {
    const bool atEnd = from == nullptr && i == 0;
    const bool moved = forward ? (atEnd ? First(place) : Next(place)) : (atEnd ? Last(place) : Previous(place));
    if (!moved) break;
    rows.push_back(ShownRow(place));
  }
  if (!forward) std::ranges::reverse(rows);
  return rows;
}

}  // namespace engine
