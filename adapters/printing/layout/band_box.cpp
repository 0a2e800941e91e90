#include "printing/layout/band_box.h"

#include <algorithm>
#include <cmath>

#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "printing/layout/text_lines.h"

namespace printing {

using platform::Value;
using platform::ValueKind;

namespace {

bool IsFigure(const Value& value) { return value.IsNumber() && value.Kind() != ValueKind::Boolean; }

std::string ShownText(const Value& value, const std::string& format) {
  if (value.IsNull() || value.IsEmpty()) return {};
  if (!format.empty()) return platform::Format(value, format);
  if (value.Kind() == ValueKind::Currency) return platform::Format(value, "#,##0.00");
  return platform::CStr(value);
}

}  // namespace

bool Holds(ReportValues& values, int condition, const RunPlace& place) { return condition >= 0 && values.IsTrue(condition, place); }

BoundBand Bind(const ReportDefinition& report, const Band& band, ReportValues& values) {
  const auto bind = [&](const std::optional<Expression>& expression) { return expression ? values.Bind(*expression) : -1; };
  BoundBand bound;
  bound.band = &band;
  bound.suppress = bind(band.suppress);
  bound.newPageBefore = bind(band.newPageBefore);
  bound.newPageAfter = bind(band.newPageAfter);
  bound.uses = UsesOf(report, band);
  for (const Element& element : band.elements) {
    if (element.exportOnly) continue;
    BoundElement part;
    part.element = &element;
    part.style = element.style;
    part.style.name.clear();
    part.suppress = bind(element.suppress);
    part.constant = element.value.kind == ExpressionKind::Constant;
    if (part.constant) {
      part.text = ShownText(element.value.constant, element.format);
    } else if (element.kind == ElementKind::Text || element.kind == ElementKind::Field) {
      part.value = values.Bind(element.value);
      part.hasPageCount = UsesOf(report, element.value).pageCount;
    }
    bound.elements.push_back(std::move(part));
  }
  return bound;
}

std::vector<BoundBand> BindKind(const ReportDefinition& report, BandKind kind, int group, ReportValues& values) {
  std::vector<BoundBand> bound;
  for (const Band& band : report.bands)
    if (band.kind == kind && band.group == group) bound.push_back(Bind(report, band, values));
  return bound;
}

BandBox BandMaker::Make(const BoundBand& bound, const RunPlace& place, bool striped) {
  Measure(bound, place);
  BandBox box;
  box.height = Grow(bound.band->height);
  box.items.reserve(standing_.size() + 1);
  if (striped && bound.band->stripe) box.items.emplace_back(BoxItem{0, 0, width_, box.height, 0, {}, bound.band->stripe});
  for (Standing& standing : standing_) Put(standing, box);
  return box;
}

void BandMaker::Measure(const BoundBand& bound, const RunPlace& place) {
  standing_.clear();
  for (const BoundElement& part : bound.elements) {
    if (Holds(values_, part.suppress, place)) continue;
    const Element& element = *part.element;
    Standing standing;
    standing.bound = &part;
    standing.y = element.y;
    standing.height = element.height;
    standing.width = std::min(element.width, width_ - element.x);
    if (element.kind != ElementKind::Line && standing.width <= 0) continue;
    if (element.kind == ElementKind::Text || element.kind == ElementKind::Field) MeasureText(part, place, standing);
    standing_.push_back(std::move(standing));
  }
}

void BandMaker::MeasureText(const BoundElement& bound, const RunPlace& place, Standing& standing) {
  const Element& element = *bound.element;
  const TextStyle& style = bound.style;
  if (style.points <= 0) return;
  Value room;
  const Value& value = bound.constant ? room : values_.Look(bound.value, place, room);
  const bool figures = IsFigure(value);
  const double line = measure_.LineHeight(style) * style.points / kPointsPerInch;
  const double width = standing.width * kPointsPerInch / style.points;
  const auto lines = line > 0 ? static_cast<std::size_t>(std::max(1.0, std::floor(standing.height / line + kSmallest))) : 1;
  const bool oneLine = !element.canGrow && (lines == 1 || figures);
  std::string text = CleanText(bound.constant ? bound.text : ShownText(value, element.format), oneLine, bound.hasPageCount);
  if (text.empty()) return;
  if (oneLine) {
    standing.line = FitText(std::move(text), width, style, measure_, figures);
    return;
  }
  standing.lines = WrapText(text, width, style, measure_, element.canGrow ? 0 : lines);
  for (std::string& shown : standing.lines) shown = FitText(std::move(shown), width, style, measure_, false);
  if (!element.canGrow) return;
  const double needed = line * static_cast<double>(standing.lines.size());
  if (needed <= standing.height + kSmallest) return;
  standing.grown = needed - standing.height;
  standing.height = needed;
}

/// Moves down what stands below a text that has grown, makes boxes and upright lines around it longer; the band's height.
double BandMaker::Grow(double height) {
  if (std::none_of(standing_.begin(), standing_.end(), [](const Standing& one) { return one.grown > 0; })) return height;
  std::vector<Standing*> downwards;
  for (Standing& one : standing_) downwards.push_back(&one);
  std::stable_sort(downwards.begin(), downwards.end(), [](const auto* a, const auto* b) { return a->y < b->y; });
  std::vector<const Standing*> grown;
  const auto moved = [&grown](double above) {
    double most = 0;
    for (const Standing* one : grown)
      if (one->bound->element->y + one->bound->element->height <= above + kSmallest) most = std::max(most, one->grown);
    return most;
  };
  for (Standing* one : downwards) {
    const double by = moved(one->bound->element->y);
    one->y += by;
    one->grown += by;
    const bool text = one->bound->element->kind == ElementKind::Text || one->bound->element->kind == ElementKind::Field;
    if (text && one->grown > 0) grown.push_back(one);
  }
  for (Standing* one : downwards) {
    const Element& element = *one->bound->element;
    if (element.kind == ElementKind::Text || element.kind == ElementKind::Field || element.height <= 0) continue;
    one->height += std::max(0.0, moved(element.y + element.height) - (one->y - element.y));
  }
  return height + moved(height);
}

void BandMaker::Put(Standing& standing, BandBox& box) const {
  const Element& element = *standing.bound->element;
  const TextStyle& style = standing.bound->style;
  switch (element.kind) {
    case ElementKind::Line:
      box.items.emplace_back(
          LineItem{element.x, standing.y, element.x + element.width, standing.y + standing.height, element.penWidth, style.color});
      return;
    case ElementKind::Box:
      box.items.emplace_back(BoxItem{element.x, standing.y, standing.width, standing.height, element.penWidth, style.color, element.fill});
      return;
    case ElementKind::Text:
    case ElementKind::Field:
      break;
  }
  const auto put = [&](std::string& text, double y, double height) {
    if (!text.empty())
      box.items.emplace_back(TextItem{element.x, y, standing.width, height, std::move(text), style, standing.bound->hasPageCount});
  };
  const double line = measure_.LineHeight(style) * style.points / kPointsPerInch;
  put(standing.line, standing.y, std::max(line, standing.height));
  double y = standing.y;
  for (std::string& text : standing.lines) {
    put(text, y, line);
    y += line;
  }
}

}  // namespace printing
