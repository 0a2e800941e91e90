#include "printing/layout/report_layout.h"

#include <algorithm>

namespace printing {

namespace {

bool LooksAtRow(const std::vector<BoundBand>& bands) {
  return std::any_of(bands.begin(), bands.end(), [](const BoundBand& bound) { return bound.uses.row; });
}

}  // namespace

ReportLayout::ReportLayout(const ReportDefinition& report, ReportValues& values, RowSource& rows, const TextMeasure& measure,
                           PageSink& sink, int firstLabel)
    : report_(report),
      values_(values),
      rows_(rows),
      totals_(report, values),
      keys_(report, values),
      headers_(BindKind(report, BandKind::ReportHeader, 0, values)),
      details_(BindKind(report, BandKind::Detail, 0, values)),
      footers_(BindKind(report, BandKind::ReportFooter, 0, values)) {
  if (report.labels) {
    labels_.emplace(report, sink, firstLabel);
    labelMaker_.emplace(report.labels->width, values, measure);
    return;
  }
  keepsLastRow_ = LooksAtRow(footers_);
  for (std::size_t level = 1; level <= report.groups.size(); ++level) {
    const int number = static_cast<int>(level);
    levels_.push_back({BindKind(report, BandKind::GroupHeader, number, values), BindKind(report, BandKind::GroupFooter, number, values),
                       report.groups[level - 1].keepTogether});
    keepsLastRow_ |= LooksAtRow(levels_.back().footers);
  }
  for (const Band& band : report.bands) {
    if (band.kind != BandKind::PageHeader && band.kind != BandKind::PageFooter) continue;
    const ExpressionUses uses = UsesOf(report, band);
    pageLooksAtRow_ |= uses.row || uses.totals;
    keepsLastRow_ |= uses.row;
  }
  pages_.emplace(report, values, measure, sink);
}

RunPlace ReportLayout::Place() { return {&rows_.Row(), &totals_.Now(), records_, pages_ ? pages_->PageNumber() : labels_->PageNumber()}; }

/// Where the report stands when the row has gone by.
RunPlace ReportLayout::LastPlace() {
  const bool known = keepsLastRow_ && records_ > 0;
  return {known ? &lastRow_ : nullptr, &totals_.Now(), records_, pages_->PageNumber()};
}

RunStateRef ReportLayout::StateFor(const BoundBand& bound, const RunPlace& place) {
  if (!pageLooksAtRow_ && !bound.uses.pageNumber) return nullptr;
  if (state_) return state_;
  auto made = std::make_shared<RunState>();
  made->hasRow = place.row != nullptr;
  if (place.row) made->row = *place.row;
  made->totals = *place.totals;
  made->recordNumber = place.recordNumber;
  state_ = std::move(made);
  return state_;
}

bool ReportLayout::Advance() {
  const bool first = !started_;
  started_ = true;
  const bool more = rows_.Next();
  if (labels_) {
    if (more) {
      TakeRow();
    } else {
      labels_->Finish();
    }
    return more;
  }
  if (first) Print(headers_, more ? Place() : LastPlace(), 0, 0);
  if (more) {
    TakeRow();
    return true;
  }
  if (records_ > 0) EndGroups(1);
  state_.reset();
  const RunPlace end = LastPlace();
  Print(footers_, end, 0, 0);
  RunStateRef last;
  if (pageLooksAtRow_) {
    static const BoundBand kNothing;
    last = StateFor(kNothing, end);
  }
  pages_->Finish(last);
  return false;
}

void ReportLayout::TakeRow() {
  const int levels = static_cast<int>(levels_.size());
  const std::vector<platform::Value>& row = rows_.Row();
  const RunPlace now{&row, &totals_.Now(), records_ + 1, 0};
  const int changed = labels_ ? 1 : keys_.FirstChanged(now);
  if (records_ > 0 && changed <= levels && !labels_) EndGroups(changed);
  ++records_;
  state_.reset();
  if (records_ == 1 || changed <= levels) totals_.Begin(records_ == 1 ? 0 : changed);
  totals_.Add({&row, nullptr, records_, 0});
  if (labels_) {
    TakeLabel(Place());
  } else {
    if (changed <= levels) BeginGroups(changed, Place());
    const RunPlace place = Place();
    bool printed = false;
    for (const BoundBand& detail : details_) {
      if (Holds(values_, detail.suppress, place)) continue;
      printed = true;
      Print(detail, place, 0, levels, detailsPrinted_ % 2 == 1);
    }
    if (printed) ++detailsPrinted_;
  }
  if (keepsLastRow_) lastRow_ = row;
}

/// A label's bands stand below each other; a label of which all of them are suppressed takes no cell.
void ReportLayout::TakeLabel(const RunPlace& place) {
  BandBox label;
  bool printed = false;
  for (const BoundBand& detail : details_) {
    if (Holds(values_, detail.suppress, place)) continue;
    printed = true;
    BandBox box = labelMaker_->Make(detail, place, false);
    Page all;
    all.items = std::move(label.items);
    const double height = box.height;
    PutOn(all, std::move(box), 0, label.height);
    label.items = std::move(all.items);
    label.height += height;
  }
  if (printed) labels_->Add(std::move(label));
}

void ReportLayout::BeginGroups(int from, const RunPlace& place) {
  for (int level = from; level <= static_cast<int>(levels_.size()); ++level) {
    pages_->BeginGroup(level);
    const Level& bands = levels_[static_cast<std::size_t>(level) - 1];
    // The report's first group has nothing in front of it that a new page would part it from.
    if (records_ > 1)
      for (const BoundBand& header : bands.headers)
        if (Holds(values_, header.newPageBefore, place) && !Holds(values_, header.suppress, place)) pages_->BreakPage();
    if (bands.kept) pages_->Keep();
    for (const BoundBand& header : bands.headers)
      if (!Holds(values_, header.suppress, place)) Print(header, place, level, level - 1, false);
  }
  detailsPrinted_ = 0;
}

void ReportLayout::EndGroups(int from) {
  for (int level = static_cast<int>(levels_.size()); level >= from; --level) {
    const Level& bands = levels_[static_cast<std::size_t>(level) - 1];
    Print(bands.footers, LastPlace(), 0, level);
    if (bands.kept) pages_->Release();
  }
}

void ReportLayout::Print(const std::vector<BoundBand>& bands, const RunPlace& place, int header, int inside, bool striped) {
  for (const BoundBand& bound : bands)
    if (!Holds(values_, bound.suppress, place)) Print(bound, place, header, inside, striped);
}

void ReportLayout::Print(const BoundBand& bound, const RunPlace& place, int header, int inside, bool striped) {
  if (header == 0 && Holds(values_, bound.newPageBefore, place)) pages_->BreakPage();
  FlowBand band;
  band.bound = &bound;
  band.box = pages_->Maker().Make(bound, place, striped);
  band.state = StateFor(bound, place);
  band.madeForPage = place.pageNumber;
  band.striped = striped;
  band.header = header;
  band.inside = inside;
  if (band.box.height > 0 || !band.box.items.empty()) pages_->Add(std::move(band));
  if (Holds(values_, bound.newPageAfter, place)) pages_->BreakPage();
}

}  // namespace printing
