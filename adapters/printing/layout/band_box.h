#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "printing/layout/expression_uses.h"
#include "printing/layout/page.h"
#include "printing/layout/report_values.h"

namespace printing {

/// Lengths (inches) that differ by less are the same, so that what was made to fit fits.
inline constexpr double kSmallest = 1e-6;
inline constexpr double kPointsPerInch = 72;

/// A band with its texts, places counted from its own left upper corner.
struct BandBox {
  double height = 0;
  std::vector<PageItem> items;
};

/// An element of a band, its expressions bound.
struct BoundElement {
  const Element* element = nullptr;
  TextStyle style;  ///< without its name, which no output asks for
  int value = -1;
  int suppress = -1;
  bool constant = false;
  bool hasPageCount = false;
  std::string text;  ///< of a constant one
};

/// A band, its expressions bound.
struct BoundBand {
  const Band* band = nullptr;
  int suppress = -1;
  int newPageBefore = -1;
  int newPageAfter = -1;
  ExpressionUses uses;
  std::vector<BoundElement> elements;
};

BoundBand Bind(const ReportDefinition& report, const Band& band, ReportValues& values);
/// All bands of that kind, and of that group where it is one of a group, in their order.
std::vector<BoundBand> BindKind(const ReportDefinition& report, BandKind kind, int group, ReportValues& values);

/// Whether a bound condition is true; one that is not there (below 0) is not.
bool Holds(ReportValues& values, int condition, const RunPlace& place);

/// Makes bands of one width (inches): texts that grow, what stands below them, what is suppressed. Texts and boxes end at the width.
class BandMaker {
 public:
  BandMaker(double width, ReportValues& values, const TextMeasure& measure) : width_(width), values_(values), measure_(measure) {}

  BandBox Make(const BoundBand& bound, const RunPlace& place, bool striped);

 private:
  /// An element where it has come to stand.
  struct Standing {
    const BoundElement* bound = nullptr;
    double y = 0, height = 0, width = 0;
    double grown = 0;                ///< how much lower its end is than in the report file
    std::string line;                ///< the text's only one
    std::vector<std::string> lines;  ///< or all of them
  };
  void Measure(const BoundBand& bound, const RunPlace& place);
  void MeasureText(const BoundElement& bound, const RunPlace& place, Standing& standing);
  double Grow(double height);
  void Put(Standing& standing, BandBox& box) const;

  double width_;
  ReportValues& values_;
  const TextMeasure& measure_;
  std::vector<Standing> standing_;
};

/// Where to part a box so that no line of text is cut: at `at` or above it; 0 where there is no such place.
double PartingPlace(const BandBox& box, double at);

/// The part of a box above `cut` and the rest, whose places are counted from there. A line of text across `cut` stays above.
std::pair<BandBox, BandBox> Part(BandBox box, double cut);

/// Appends what is in `box` to a page, its corner at x, y.
void PutOn(Page& page, BandBox box, double x, double y);

}  // namespace printing
