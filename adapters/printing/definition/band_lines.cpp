#include "printing/definition/band_lines.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/values/text.h"

namespace printing {
namespace {

using platform::EqualsNoCase;

struct NamedBand {
  std::string_view name;
  BandKind kind;
};
constexpr std::array kBands = {NamedBand{"report-header", BandKind::ReportHeader}, NamedBand{"page-header", BandKind::PageHeader},
                               NamedBand{"group-header", BandKind::GroupHeader},   NamedBand{"detail", BandKind::Detail},
                               NamedBand{"group-footer", BandKind::GroupFooter},   NamedBand{"report-footer", BandKind::ReportFooter},
                               NamedBand{"page-footer", BandKind::PageFooter}};

struct NamedElement {
  std::string_view name;
  ElementKind kind;
};
constexpr std::array kElements = {NamedElement{"text", ElementKind::Text}, NamedElement{"field", ElementKind::Field},
                                  NamedElement{"line", ElementKind::Line}, NamedElement{"box", ElementKind::Box}};
constexpr std::string_view kColumn = "column";

constexpr double kSmallestFont = 2;
constexpr double kLargestFont = 200;

// A word or a size that changes how a text is drawn; false when none comes next.
bool ReadStyleWord(LineReader& line, TextStyle& style) {
  if (line.AtNumber()) {
    style.points = line.Number(kSmallestFont, kLargestFont);
  } else if (line.SkipWord("bold")) {
    style.bold = true;
  } else if (line.SkipWord("italic")) {
    style.italic = true;
  } else if (line.SkipWord("left")) {
    style.align = Align::Left;
  } else if (line.SkipWord("center")) {
    style.align = Align::Center;
  } else if (line.SkipWord("right")) {
    style.align = Align::Right;
  } else if (line.SkipWord("color")) {
    style.color = line.ReadColor();
  } else {
    return false;
  }
  return true;
}

TextStyle StyleNamed(LineReader& line, const Styles& styles) {
  const std::size_t column = line.Column();
  const std::string name = line.Name();
  const auto found = styles.find(platform::ToLowerAscii(name));
  if (found == styles.end()) LineReader::FailAt(column, "There is no style " + name + '.');
  return found->second;
}

// "right", or so far before it: "right-2.5".
double ReadAcross(LineReader& line, double right) {
  if (!line.SkipWordBeforeNumber("right")) return line.Number(-kLongestLength, kLongestLength);
  return line.AtNumber() && line.AtMinus() ? right + line.Number(-kLongestLength, 0) : right;
}

void ReadPlace(LineReader& line, Element& element, double right) {
  element.x = ReadAcross(line, right);
  element.y = line.Number(-kLongestLength, kLongestLength);
}

void ReadSize(LineReader& line, Element& element, double right) {
  element.width = line.SkipWord("right") ? std::max(0.0, right - element.x) : line.Number(0, kLongestLength);
  element.height = line.Number(0, kLongestLength);
}

// A line's way may go up or to the left.
void ReadWay(LineReader& line, Element& element, double right) {
  line.RequireWord("from");
  ReadPlace(line, element, right);
  line.RequireWord("to");
  element.width = ReadAcross(line, right) - element.x;
  element.height = line.Number(-kLongestLength, kLongestLength) - element.y;
}

void ReadDrawnWords(LineReader& line, Element& element) {
  constexpr double kWidestPen = 72;
  while (!line.AtEnd()) {
    if (line.SkipWord("width"))
      element.penWidth = line.Number(0, kWidestPen);
    else if (line.SkipWord("color"))
      element.style.color = line.ReadColor();
    else if (element.kind == ElementKind::Box && line.SkipWord("fill"))
      element.fill = line.ReadColor();
    else if (line.SkipWord("suppress"))
      element.suppress = line.ReadExpression();
    else
      line.Fail("This word means nothing here.");
  }
}

void ReadTextWords(LineReader& line, Element& element, const Styles& styles) {
  while (!line.AtEnd()) {
    if (line.SkipWord("style"))
      element.style = StyleNamed(line, styles);
    else if (element.kind == ElementKind::Field && line.SkipWord("format"))
      element.format = line.Text();
    else if (line.SkipWord("grow"))
      element.canGrow = true;
    else if (line.SkipWord("suppress"))
      element.suppress = line.ReadExpression();
    else if (line.SkipWord("column"))
      element.column = line.Text();
    else if (!ReadStyleWord(line, element.style))
      line.Fail("This word means nothing here.");
  }
}

Element ReadColumn(LineReader& line) {
  Element element;
  element.kind = ElementKind::Field;
  element.exportOnly = true;
  element.column = line.Name();
  element.value = line.ReadExpression();
  if (line.SkipWord("format")) element.format = line.Text();
  return element;
}

}  // namespace

TextStyle ReadStyle(LineReader& line, const Styles& styles) {
  TextStyle style;
  style.name = line.Name();
  if (styles.contains(platform::ToLowerAscii(style.name))) line.Fail("There is a style of this name already.");
  while (!line.AtEnd()) {
    if (!ReadStyleWord(line, style)) line.Fail("This word means nothing here.");
  }
  return style;
}

Band ReadBand(LineReader& line) {
  constexpr int kDeepestGroup = 20;
  const std::size_t column = line.Column();
  const std::string word = line.Word();
  const auto* const kind = std::ranges::find_if(kBands, [&](const NamedBand& each) { return EqualsNoCase(each.name, word); });
  if (kind == kBands.end()) LineReader::FailAt(column, "There is no band " + word + '.');
  Band band;
  band.kind = kind->kind;
  if (band.kind == BandKind::GroupHeader || band.kind == BandKind::GroupFooter) band.group = line.WholeNumber(1, kDeepestGroup);
  line.RequireWord("height");
  band.height = line.Number(0, kLongestLength);
  while (!line.AtEnd()) {
    if (line.SkipWord("split"))
      band.keepTogether = false;
    else if (line.SkipWord("stripe"))
      band.stripe = line.ReadColor();
    else if (line.SkipWord("suppress"))
      band.suppress = line.ReadExpression();
    else if (line.SkipWord("new-page-before"))
      band.newPageBefore = line.ReadExpression();
    else if (line.SkipWord("new-page-after"))
      band.newPageAfter = line.ReadExpression();
    else
      line.Fail("This word means nothing here.");
  }
  return band;
}

bool IsElementWord(std::string_view word) {
  return EqualsNoCase(word, kColumn) ||
         std::ranges::any_of(kElements, [&](const NamedElement& each) { return EqualsNoCase(each.name, word); });
}

Element ReadElement(LineReader& line, std::string_view word, const Styles& styles, double right) {
  if (EqualsNoCase(word, kColumn)) return ReadColumn(line);
  Element element;
  for (const NamedElement& each : kElements)
    if (EqualsNoCase(each.name, word)) element.kind = each.kind;
  if (element.kind == ElementKind::Line) {
    ReadWay(line, element, right);
    ReadDrawnWords(line, element);
    return element;
  }
  if (element.kind == ElementKind::Text) {
    element.value.place = line.Column();
    element.value.constant = line.Text();
  }
  if (element.kind == ElementKind::Field) element.value = line.ReadExpression();
  line.RequireWord("at");
  ReadPlace(line, element, right);
  line.RequireWord("size");
  ReadSize(line, element, right);
  if (element.kind == ElementKind::Box)
    ReadDrawnWords(line, element);
  else
    ReadTextWords(line, element, styles);
  return element;
}

}  // namespace printing
