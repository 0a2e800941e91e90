#include <algorithm>

#include "printing/layout/band_box.h"

namespace printing {

namespace {

struct Places {
  double top, end;
};

Places PlacesOf(const PageItem& item) {
  if (const auto* line = std::get_if<LineItem>(&item)) return {std::min(line->y1, line->y2), std::max(line->y1, line->y2)};
  if (const auto* box = std::get_if<BoxItem>(&item)) return {box->y, box->y + box->height};
  const auto& text = std::get<TextItem>(item);
  return {text.y, text.y + text.height};
}

void Move(PageItem& item, double x, double y) {
  if (auto* line = std::get_if<LineItem>(&item)) {
    line->x1 += x;
    line->x2 += x;
    line->y1 += y;
    line->y2 += y;
    return;
  }
  const auto move = [x, y](auto& placed) {
    placed.x += x;
    placed.y += y;
  };
  if (auto* box = std::get_if<BoxItem>(&item)) return move(*box);
  move(std::get<TextItem>(item));
}

/// A box or a line that goes on beyond `at`: what is above stays in `item`, the rest is given.
PageItem CutAt(PageItem& item, double at) {
  PageItem rest = item;
  if (auto* box = std::get_if<BoxItem>(&item)) {
    auto& below = std::get<BoxItem>(rest);
    below.y = at;
    below.height = box->y + box->height - at;
    box->height = at - box->y;
    return rest;
  }
  auto& line = std::get<LineItem>(item);
  auto& below = std::get<LineItem>(rest);
  if (line.y1 > line.y2) {
    std::swap(line.x1, line.x2);
    std::swap(line.y1, line.y2);
    below = line;
  }
  const double x = line.x1 + (line.x2 - line.x1) * (at - line.y1) / (line.y2 - line.y1);
  line.x2 = below.x1 = x;
  line.y2 = below.y1 = at;
  return rest;
}

}  // namespace

double PartingPlace(const BandBox& box, double at) {
  double cut = at;
  for (bool again = true; again;) {
    again = false;
    for (const PageItem& item : box.items) {
      const Places places = PlacesOf(item);
      if (!std::holds_alternative<TextItem>(item) || places.top >= cut - kSmallest || places.end <= cut + kSmallest) continue;
      cut = places.top;
      again = true;
    }
  }
  return cut > kSmallest ? cut : 0;
}

std::pair<BandBox, BandBox> Part(BandBox box, double cut) {
  BandBox first, rest;
  first.height = cut;
  rest.height = std::max(0.0, box.height - cut);
  for (PageItem& item : box.items) {
    const Places places = PlacesOf(item);
    if (places.end <= cut + kSmallest) {
      first.items.push_back(std::move(item));
    } else if (places.top >= cut - kSmallest) {
      Move(item, 0, -cut);
      rest.items.push_back(std::move(item));
    } else if (std::holds_alternative<TextItem>(item)) {
      first.items.push_back(std::move(item));
    } else {
      PageItem below = CutAt(item, cut);
      Move(below, 0, -cut);
      first.items.push_back(std::move(item));
      rest.items.push_back(std::move(below));
    }
  }
  return {std::move(first), std::move(rest)};
}

void PutOn(Page& page, BandBox box, double x, double y) {
  for (PageItem& item : box.items) {
    Move(item, x, y);
    page.items.push_back(std::move(item));
  }
}

}  // namespace printing
