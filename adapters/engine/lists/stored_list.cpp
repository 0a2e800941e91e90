#include "engine/lists/stored_list.h"

#include <cassert>
#include <cstring>

#include "engine/errors.h"
#include "engine/translate/plan/planning.h"
#include "engine/translate/plan/select_text.h"

namespace engine {

StoredList::StoredList(std::shared_ptr<RowSource> source)
    : RowList(std::move(source)), rows_(std::make_shared<RowPage>(Source().Fields().size(), 1)) {
  ReadRows(SelectText(""), *rows_);
}

std::string StoredList::SelectText(std::string_view condition) const {
  const SelectPlan& plan = Source().Plan();
  std::string where = plan.where;
  // An aggregate's row can only be asked when it is finished, by the names of its columns.
  if (!condition.empty() && !plan.aggregate)
    where = where.empty() ? std::string(condition) : "(" + where + ") AND (" + std::string(condition) + ")";
  if (plan.distinct && Source().OwnDialect().textKeys != nullptr) return DistinctText(plan, ColumnTexts(plan), Source().OwnDialect(), where);
  std::string text = "SELECT ";
  if (plan.distinct) text += "DISTINCT ";
  for (std::size_t i = 0; i < plan.columns.size(); ++i) text += (i == 0 ? "" : ", ") + plan.columns[i].sql + " AS c" + std::to_string(i);
  text += " FROM " + plan.from;
  if (!where.empty()) text += " WHERE " + where;
  if (!plan.aggregate && !plan.order.empty()) {
    text += " ORDER BY ";
    for (std::size_t i = 0; i < plan.order.size(); ++i)
      text += (i == 0 ? "" : ", ") + plan.order[i].By() + Source().OwnDialect().OrderSuffix(plan.order[i].descending);
  }
  if (!condition.empty() && plan.aggregate) text = "SELECT * FROM (" + text + ") AS finished WHERE " + std::string(condition);
  return text;
}

void StoredList::ReadRows(const std::string& text, RowPage& page) const {
  Query query(Source().Store(), std::string_view(text));
  while (query.Step()) {
    Source().ReadCells(query, 0, page);
    page.keys.push_back(static_cast<std::int64_t>(page.keys.size()));
    if (page.keys.size() % 8192 == 0) Source().Store().ServePainting();
  }
}

std::int64_t StoredList::RowTotal() const { return static_cast<std::int64_t>(rows_->Rows()); }

bool StoredList::Take(Place& place, std::int64_t ordinal) const {
  if (ordinal < 0 || ordinal >= RowTotal()) return false;
  place.ordinal = ordinal;
  place.keys.assign(1, ordinal);
  place.page = rows_;
  place.row = static_cast<std::size_t>(ordinal);
  return true;
}

std::string StoredList::KeyOf(const Place& place) const {
  std::string key(sizeof(place.ordinal), '\0');
  std::memcpy(key.data(), &place.ordinal, sizeof(place.ordinal));
  return key;
}

Place StoredList::PlaceOf(const std::string& key) {
  Place place;
  std::int64_t ordinal = 0;
  if (key.size() != sizeof(ordinal)) throw errors::BadBookmark();
  std::memcpy(&ordinal, key.data(), sizeof(ordinal));
  if (!Take(place, ordinal)) throw errors::BadBookmark();
  return place;
}

// The rows that fit now are asked for anew; those of them that the list holds are hits.
bool StoredList::Find(std::string_view criterion, const Place* after, Place& found) {
  const CriterionPlan planned = PlanCriterion(criterion, Source().Plan(), Source().OwnDialect());
  RowPage fitting(rows_->columns, 1);
  ReadRows(SelectText(planned.where), fitting);
  const auto fits = [&](std::int64_t ordinal) {
    for (std::size_t i = 0; i < fitting.Rows(); ++i)
      if (rows_->SameRow(static_cast<std::size_t>(ordinal), fitting, i)) return true;
    return false;
  };
  for (std::int64_t i = after == nullptr ? 0 : after->ordinal + 1; i < RowTotal(); ++i)
    if (fits(i)) return Take(found, i);
  return false;
}

// Nothing of it can be written, so nothing of it changes.
Place StoredList::Added(const std::vector<std::int64_t>&) {
  assert(false);
  return {};
}
void StoredList::Changed(Place&) { assert(false); }
void StoredList::Deleted(const Place&) { assert(false); }

}  // namespace engine
