#include "printing/layout/page_flow.h"

#include <algorithm>

namespace printing {

namespace {

const RunState kNowhere;

/// With less room than that a page takes what comes as it is: no band is parted into thousands of pages.
constexpr double kLeastRoom = 0.1;
/// Bands without height could be kept together without end.
constexpr std::size_t kMostWaiting = 5000;

RunPlace PlaceOf(const RunStateRef& state, std::int64_t page) { return (state ? *state : kNowhere).Place(page); }

}  // namespace

PageFlow::PageFlow(const ReportDefinition& report, ReportValues& values, const TextMeasure& measure, PageSink& sink)
    : report_(report),
      values_(values),
      maker_(report.pageWidth - report.marginLeft - report.marginRight, values, measure),
      sink_(sink),
      headers_(BindKind(report, BandKind::PageHeader, 0, values)),
      footers_(BindKind(report, BandKind::PageFooter, 0, values)),
      repeated_(report.groups.size()) {
  for (const BoundBand& footer : footers_) footerHeight_ += footer.band->height;
  bottom_ = report.pageHeight - report.marginBottom - footerHeight_;
}

void PageFlow::Add(FlowBand band) {
  queue_.push_back({Act::Band, std::move(band)});
  Drain(false);
}

void PageFlow::BreakPage() { queue_.push_back({Act::Break, {}}); }
void PageFlow::BeginGroup(int level) { queue_.push_back({Act::Begin, {}, level}); }
void PageFlow::Keep() { queue_.push_back({Act::Keep, {}}); }

void PageFlow::Release() {
  queue_.push_back({Act::Release, {}});
  Drain(false);
}

void PageFlow::Finish(const RunStateRef& last) {
  Drain(true);
  if (!pageOpen_) {
    FlowBand nothing;
    nothing.state = last;
    StartPage(nothing);
  }
  if (headerDue_) PutPageHeader();
  FinishPage();
}

void PageFlow::Drain(bool atEnd) {
  while (!queue_.empty()) {
    const Act act = queue_.front().act;
    if (act == Act::Break || act == Act::Begin || act == Act::Release) {
      Pass(queue_.front());
      queue_.pop_front();
      continue;
    }
    const FlowBand* first = NextBand();
    if (!first) return;
    if ((act == Act::Keep || first->header > 0) && Waits(*first, act == Act::Keep, atEnd)) return;
    Event event = std::move(queue_.front());
    queue_.pop_front();
    if (act == Act::Band) Place(std::move(event.band));
  }
}

void PageFlow::Pass(const Event& event) {
  if (event.act == Act::Break) breakDue_ = pageOpen_ && !empty_;
  if (event.act != Act::Begin) return;
  for (std::size_t level = static_cast<std::size_t>(event.level) - 1; level < repeated_.size(); ++level) repeated_[level].clear();
}

/// Whether what begins with `first` has to wait for more of it; begins a page where it fits on the next and not on this one.
bool PageFlow::Waits(const FlowBand& first, bool kept, bool atEnd) {
  if (!pageOpen_) StartPage(first);
  if (breakDue_) NewPageFor(first);
  if (headerDue_) PutPageHeader();
  double height = 0;
  const bool whole = kept ? KeptAtFront(height) : HeaderAtFront(height);
  const bool fitsOnOne = height <= WholeRoom(first) + kSmallest;
  if (!whole && !atEnd && fitsOnOne && queue_.size() < kMostWaiting) return true;
  if (!empty_ && height > Room() + kSmallest && fitsOnOne) NewPageFor(first);
  return false;
}

const FlowBand* PageFlow::NextBand() const {
  for (const Event& event : queue_)
    if (event.act == Act::Band) return &event.band;
  return nullptr;
}

/// How high is what is kept together at the queue's front, as far as it is there; whether all of it is.
bool PageFlow::KeptAtFront(double& height) const {
  int open = 0;
  for (const Event& event : queue_) {
    if (event.act == Act::Keep) ++open;
    if (event.act == Act::Break && height > 0) return true;
    if (event.act == Act::Release && --open == 0) return true;
    height += event.band.box.height;
  }
  return false;
}

/// As KeptAtFront, for headers of groups and what follows them.
bool PageFlow::HeaderAtFront(double& height) const {
  for (const Event& event : queue_) {
    if (event.act == Act::Break) return true;
    if (event.act != Act::Band) continue;
    height += event.band.box.height;
    if (event.band.header == 0) return true;
  }
  return false;
}

void PageFlow::Place(FlowBand band) {
  const bool reportHeader = band.bound->band->kind == BandKind::ReportHeader;
  if (!pageOpen_) StartPage(band);
  if (breakDue_) NewPageFor(band);
  if (headerDue_ && !reportHeader) PutPageHeader();
  Remake(band);
  if (band.box.height > Room() + kSmallest) {
    if (!empty_ && band.bound->band->keepTogether) {
      NewPageFor(band);
      Remake(band);
    }
    if (band.box.height > Room() + kSmallest) PutParts(band);
  }
  state_ = band.state;
  empty_ = false;
  const auto level = static_cast<std::size_t>(std::max(0, band.header - 1));
  if (band.header > 0 && level < repeated_.size() && report_.groups[level].repeatHeader) repeated_[level].push_back(band);
  Put(std::move(band.box));
}

/// Fills pages until the rest of the band fits on one.
void PageFlow::PutParts(FlowBand& band) {
  while (band.box.height > Room() + kSmallest) {
    if (empty_ && Room() < kLeastRoom) return;
    double cut = Room() < kLeastRoom ? 0 : PartingPlace(band.box, Room());
    if (cut <= 0 && empty_) cut = Room();
    if (cut > 0) {
      auto [part, rest] = Part(std::move(band.box), cut);
      Put(std::move(part));
      band.box = std::move(rest);
    }
    NewPageFor(band);
  }
}

void PageFlow::Put(BandBox box) {
  const double height = box.height;
  PutOn(page_, std::move(box), report_.marginLeft, y_);
  y_ += height;
}

/// A band whose texts name the page is made again when it comes to stand on another one.
void PageFlow::Remake(FlowBand& band) {
  if (!band.bound->uses.pageNumber || band.madeForPage == pageNumber_) return;
  band.box = maker_.Make(*band.bound, PlaceOf(band.state, pageNumber_), band.striped);
  band.madeForPage = pageNumber_;
}

void PageFlow::NewPageFor(const FlowBand& band) {
  FinishPage();
  StartPage(band);
}

void PageFlow::StartPage(const FlowBand& first) {
  page_.width = report_.pageWidth;
  page_.height = report_.pageHeight;
  page_.items.clear();
  ++pageNumber_;
  pageOpen_ = true;
  empty_ = true;
  breakDue_ = false;
  y_ = report_.marginTop;
  state_ = first.state;
  headerDue_ = true;
  const bool above = pageNumber_ == 1 && first.bound && first.bound->band->kind == BandKind::ReportHeader;
  if (!above) PutPageHeader();
  PutRepeated(first.inside);
}

void PageFlow::PutRepeated(int levels) {
  for (int level = 0; level < levels && level < static_cast<int>(repeated_.size()); ++level)
    for (FlowBand& header : repeated_[static_cast<std::size_t>(level)]) {
      Remake(header);
      Put(header.box);
    }
}

void PageFlow::PutPageHeader() {
  headerDue_ = false;
  const RunPlace place = PlaceOf(state_, pageNumber_);
  const double top = y_;
  for (const BoundBand& header : headers_)
    if (!Holds(values_, header.suppress, place)) Put(maker_.Make(header, place, false));
  headerHeight_ = y_ - top;
}

void PageFlow::FinishPage() {
  const RunPlace place = PlaceOf(state_, pageNumber_);
  double y = bottom_;
  for (const BoundBand& footer : footers_) {
    if (!Holds(values_, footer.suppress, place)) {
      BandBox box = maker_.Make(footer, place, false);
      PutOn(page_, std::move(box), report_.marginLeft, y);
    }
    y += footer.band->height;
  }
  sink_.Add(page_);
  page_.items.clear();
  pageOpen_ = false;
}

double PageFlow::WholeRoom(const FlowBand& band) const {
  double room = bottom_ - report_.marginTop - headerHeight_;
  for (int level = 0; level < band.inside && level < static_cast<int>(repeated_.size()); ++level)
    for (const FlowBand& header : repeated_[static_cast<std::size_t>(level)]) room -= header.box.height;
  return room;
}

}  // namespace printing
