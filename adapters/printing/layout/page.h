#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "printing/definition/report_definition.h"

namespace printing {

/// A page as a list of what is drawn on it, from back to front; inches from the paper's left upper corner. Outputs know this and
/// nothing of bands.

/// One line of text inside its box: clipped to it, on the baseline that its first line's font has there.
struct TextItem {
  double x = 0, y = 0, width = 0, height = 0;
  std::string text;
  TextStyle style;
  bool hasPageCount = false;  ///< kPageCountMark in it stands for the number of pages, known when the last one is laid out
};

struct LineItem {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  double penWidth = 0.5;
  Color color;
};

struct BoxItem {
  double x = 0, y = 0, width = 0, height = 0;
  double penWidth = 0.5;
  Color color;
  std::optional<Color> fill;
};

using PageItem = std::variant<BoxItem, LineItem, TextItem>;

struct Page {
  double width = 8.5, height = 11;
  std::vector<PageItem> items;
};

/// A character that no text holds.
inline constexpr char kPageCountMark = '\x01';

/// Widths of texts in the one font set, the same on every machine. All lengths are those of a size of one point (ems), whatever the
/// style's own size. Widths add up: that of a text is the sum of its characters'; kPageCountMark has room for some figures.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual double Width(std::string_view text, const TextStyle& style) const = 0;
  /// From one baseline to the next.
  virtual double LineHeight(const TextStyle& style) const = 0;
  /// From the top of a box to its first baseline.
  virtual double Ascent(const TextStyle& style) const = 0;
};

/// Takes pages one after another as they are laid out.
class PageSink {
 public:
  virtual ~PageSink() = default;
  virtual void Add(const Page& page) = 0;
};

}  // namespace printing
