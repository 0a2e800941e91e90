#include "printing/layout/alignment_sheet.h"

#include <string>

namespace printing {

namespace {

constexpr double kFrameWidth = 0.5;
constexpr double kCrossWidth = 0.25;
constexpr double kCross = 0.1;
constexpr double kNumberFrom = 0.05;
constexpr double kNumberWidth = 0.5;
constexpr double kNumberHeight = 0.16;

struct Frame {
  double x, y, width, height;
};

void Add(Page& page, const Frame& frame, int number) {
  BoxItem box;
  box.x = frame.x;
  box.y = frame.y;
  box.width = frame.width;
  box.height = frame.height;
  box.penWidth = kFrameWidth;
  page.items.emplace_back(box);

  const double middleX = frame.x + frame.width / 2;
  const double middleY = frame.y + frame.height / 2;
  page.items.emplace_back(LineItem{middleX - kCross, middleY, middleX + kCross, middleY, kCrossWidth, {}});
  page.items.emplace_back(LineItem{middleX, middleY - kCross, middleX, middleY + kCross, kCrossWidth, {}});

  TextItem text;
  text.x = frame.x + kNumberFrom;
  text.y = frame.y + kNumberFrom;
  text.width = kNumberWidth;
  text.height = kNumberHeight;
  text.text = std::to_string(number);
  page.items.emplace_back(text);
}

}  // namespace

Page AlignmentSheet(const ReportDefinition& report) {
  Page page;
  page.width = report.pageWidth;
  page.height = report.pageHeight;
  if (!report.labels) {
    Add(page,
        {report.marginLeft, report.marginTop, report.pageWidth - report.marginLeft - report.marginRight,
         report.pageHeight - report.marginTop - report.marginBottom},
        1);
    return page;
  }
  const LabelSheet& sheet = *report.labels;
  for (int cell = 0; cell < sheet.across * sheet.down; ++cell) {
    const double x = sheet.left + sheet.pitchAcross * (cell % sheet.across);
    const double y = sheet.top + sheet.pitchDown * (cell / sheet.across);
    Add(page, {x, y, sheet.width, sheet.height}, cell + 1);
  }
  return page;
}

}  // namespace printing
