#pragma once

#include <deque>
#include <vector>

#include "printing/layout/band_box.h"
#include "printing/layout/run_state.h"

namespace printing {

/// A band on its way to a page.
struct FlowBand {
  const BoundBand* bound = nullptr;
  BandBox box;
  RunStateRef state;             ///< where it was made; none where nothing asks for it later
  std::int64_t madeForPage = 0;  ///< the page's number that its texts may name
  bool striped = false;
  int header = 0;  ///< of a group header its level
  int inside = 0;  ///< how many levels of groups it stands in, without its own header
};

/// Bands to pages, one of which is in memory: where a page ends, its header and footer, headers of groups that go on, what is kept
/// together. A band may have to wait until it is known whether what it is kept with fits; never more than a page of them does.
class PageFlow {
 public:
  PageFlow(const ReportDefinition& report, ReportValues& values, const TextMeasure& measure, PageSink& sink);

  /// Takes the next band. A group header never ends a page.
  void Add(FlowBand band);
  /// What comes next begins a page, unless it does so already.
  void BreakPage();
  /// A group of that level begins: headers of the one before are not repeated any more.
  void BeginGroup(int level);
  /// What is added until Release begins on a new page where it doesn't fit on the rest of this one, but on a whole one.
  void Keep();
  void Release();
  /// Nothing more comes; `last` is where the report ends. Makes one page at least.
  void Finish(const RunStateRef& last);

  /// Of the page on which a band that comes now will most likely stand.
  std::int64_t PageNumber() const { return pageNumber_ > 0 ? pageNumber_ : 1; }
  BandMaker& Maker() { return maker_; }

 private:
  enum class Act { Band, Break, Begin, Keep, Release };
  struct Event {
    Act act = Act::Band;
    FlowBand band;
    int level = 0;
  };

  void Drain(bool atEnd);
  void Pass(const Event& event);
  bool Waits(const FlowBand& first, bool kept, bool atEnd);
  bool KeptAtFront(double& height) const;
  bool HeaderAtFront(double& height) const;
  const FlowBand* NextBand() const;

  void Place(FlowBand band);
  void PutParts(FlowBand& band);
  void Put(BandBox box);
  void Remake(FlowBand& band);
  void NewPageFor(const FlowBand& band);
  void StartPage(const FlowBand& first);
  void FinishPage();
  void PutPageHeader();
  void PutRepeated(int levels);
  double Room() const { return bottom_ - y_; }
  double WholeRoom(const FlowBand& band) const;

  const ReportDefinition& report_;
  ReportValues& values_;
  BandMaker maker_;
  PageSink& sink_;
  std::vector<BoundBand> headers_, footers_;
  double headerHeight_ = 0, footerHeight_ = 0;
  std::deque<Event> queue_;
  std::vector<std::vector<FlowBand>> repeated_;  ///< by level: the headers that stand again on the next page
  Page page_;
  bool pageOpen_ = false;
  bool headerDue_ = false;  ///< the report's header stands above the first page's own
  bool empty_ = true;       ///< nothing but the page's own and repeated headers is on it
  bool breakDue_ = false;
  double y_ = 0, bottom_ = 0;
  std::int64_t pageNumber_ = 0;
  RunStateRef state_;  ///< of the band that was placed last
};

}  // namespace printing
