#include "printing/lists/list_pages.h"

#include <algorithm>
#include <string>
#include <utility>

namespace printing {

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kMargin = 0.5;
constexpr double kGap = 0.08;  // between columns
constexpr double kRowHeight = 0.17;
constexpr double kLineHeight = 0.16;
constexpr double kPoints = 8;
constexpr double kPortrait = 8.5, kLandscape = 11;
constexpr Color kInk{26, 54, 93}, kGrey{74, 85, 104}, kRule{160, 174, 192}, kStripe{247, 250, 252};

Expression Text(std::string text) {
  Expression constant;
  constant.constant = std::move(text);
  return constant;
}

Expression Cell(std::size_t column) {
  Expression name;
  name.kind = ExpressionKind::Name;
  name.table = "List";
  name.name = "C" + std::to_string(column);
  return name;
}

Expression System(SystemValue value) {
  Expression system;
  system.kind = ExpressionKind::System;
  system.system = value;
  return system;
}

Expression Joined(Expression left, Expression right) {
  Expression join;
  join.kind = ExpressionKind::Operation;
  join.operation = Operator::Join;
  join.operands.push_back(std::move(left));
  join.operands.push_back(std::move(right));
  return join;
}

Element At(double x, double y, double width, double height, Expression value, TextStyle style) {
  Element element;
  element.kind = value.kind == ExpressionKind::Constant ? ElementKind::Text : ElementKind::Field;
  element.x = x;
  element.y = y;
  element.width = width;
  element.height = height;
  element.value = std::move(value);
  element.style = std::move(style);
  return element;
}

Element Rule(double y, double width) {
  Element line;
  line.kind = ElementKind::Line;
  line.y = y;
  line.width = width;
  line.style.color = kRule;
  return line;
}

TextStyle Style(double points, bool bold, Color color, Align align = Align::Left) {
  TextStyle style;
  style.points = points;
  style.bold = bold;
  style.color = color;
  style.align = align;
  return style;
}

}  // namespace

ReportDefinition ListReport(const platform::ExportedList& list, const std::vector<bool>& figures) {
  ReportDefinition report;
  report.title = list.title;
  report.tables.push_back({.name = "List", .alias = "List", .file = {}, .join = JoinKind::Driving, .on = {}});
  double width = 0;
  for (const auto& column : list.columns) width += column.width / kPixelsPerInch + kGap;
  if (width > kPortrait - 2 * kMargin) std::swap(report.pageWidth, report.pageHeight);
  report.pageWidth = std::max(report.pageWidth, width + 2 * kMargin);
  report.marginLeft = report.marginTop = report.marginRight = report.marginBottom = kMargin;
  const double inner = report.pageWidth - 2 * kMargin;

  Band head;
  head.kind = BandKind::PageHeader;
  head.elements.push_back(At(0, 0, inner, 0.26, Text(list.title), Style(14, true, kInk)));
  double y = 0.3;
  for (const std::string& note : list.notes) {
    head.elements.push_back(At(0, y, inner, kLineHeight, Text(note), Style(kPoints, false, kGrey)));
    y += kLineHeight;
  }
  y += 0.06;
  Band detail;
  detail.kind = BandKind::Detail;
  detail.height = kRowHeight;
  detail.stripe = kStripe;
  double x = 0;
  for (std::size_t i = 0; i < list.columns.size(); ++i) {
    const double wide = list.columns[i].width / kPixelsPerInch;
    const Align align = i < figures.size() && figures[i] ? Align::Right : Align::Left;
    head.elements.push_back(At(x, y, wide, kLineHeight, Text(list.columns[i].caption), Style(kPoints, true, kGrey, align)));
    detail.elements.push_back(At(x, 0, wide, kRowHeight, Cell(i), Style(kPoints, false, {}, align)));
    x += wide + kGap;
  }
  head.elements.push_back(Rule(y + kLineHeight + 0.02, inner));
  head.height = y + kLineHeight + 0.06;

  Band foot;
  foot.kind = BandKind::PageFooter;
  foot.height = 0.25;
  Expression page = Joined(Joined(Text("Page "), System(SystemValue::PageNumber)), Joined(Text(" of "), System(SystemValue::PageCount)));
  foot.elements.push_back(At(inner - 2, 0.08, 2, kLineHeight, std::move(page), Style(kPoints, false, kGrey, Align::Right)));
  report.bands = {std::move(head), std::move(detail), std::move(foot)};
  return report;
}

}  // namespace printing
