#include "unit/printing/support/made_up_report.h"

#include <cmath>
#include <stdexcept>

#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "printing/layout/report_layout.h"

namespace printing_test {

using namespace printing;
using platform::Value;
using platform::ValueKind;

Expression Text(const std::string& text) {
  Expression made;
  made.constant = text;
  return made;
}

Expression Boolean(bool value) {
  Expression made;
  made.constant = value;
  return made;
}

Expression Number(double value) {
  Expression made;
  made.constant = value;
  return made;
}

Expression Field(const std::string& name) {
  Expression made;
  made.kind = ExpressionKind::Name;
  made.name = name;
  return made;
}

Expression Total(const std::string& name) {
  Expression made = Field(name);
  made.nameKind = NameKind::Total;
  return made;
}

Expression Known(SystemValue value) {
  Expression made;
  made.kind = ExpressionKind::System;
  made.system = value;
  return made;
}

static Expression Operation(Operator operation, std::vector<Expression> operands) {
  Expression made;
  made.kind = ExpressionKind::Operation;
  made.operation = operation;
  made.operands = std::move(operands);
  return made;
}

Expression Joined(Expression left, Expression right) { return Operation(Operator::Join, {std::move(left), std::move(right)}); }
Expression Equal(Expression left, Expression right) { return Operation(Operator::Equal, {std::move(left), std::move(right)}); }

Expression IsNull(Expression tested) {
  Expression made;
  made.kind = ExpressionKind::Call;
  made.function = Function::IsNull;
  made.operands.push_back(std::move(tested));
  return made;
}

Element TextAt(double x, double y, double width, double height, const std::string& text) {
  Element made = FieldAt(x, y, width, height, Text(text));
  made.kind = ElementKind::Text;
  return made;
}

Element FieldAt(double x, double y, double width, double height, Expression value) {
  Element made;
  made.kind = ElementKind::Field;
  made.x = x;
  made.y = y;
  made.width = width;
  made.height = height;
  made.value = std::move(value);
  made.style.points = 10;
  return made;
}

Band BandOf(BandKind kind, double height, std::vector<Element> elements, int group) {
  Band made;
  made.kind = kind;
  made.height = height;
  made.elements = std::move(elements);
  made.group = group;
  return made;
}

ReportDefinition Report(std::vector<Band> bands) {
  ReportDefinition made;
  made.bands = std::move(bands);
  return made;
}

MadeUpRows::MadeUpRows(std::vector<std::string> fields, std::vector<std::vector<Value>> rows) : rows_(std::move(rows)) {
  for (std::string& field : fields) fields_.push_back({0, std::move(field), {}});
}

bool MadeUpRows::Next() {
  if (next_ == rows_.size()) {
    now_.clear();
    return false;
  }
  now_ = rows_[next_++];
  return true;
}

MadeUpRows Numbered(int rows) {
  std::vector<std::vector<Value>> made;
  for (int row = 1; row <= rows; ++row) made.push_back({Value(std::int32_t{row})});
  return {{"N"}, std::move(made)};
}

int MadeUpValues::Bind(const Expression& expression) {
  bound_.push_back(&expression);
  return static_cast<int>(bound_.size()) - 1;
}

const Value& MadeUpValues::Look(int bound, const RunPlace& place, Value& room) {
  return room = Worth(*bound_.at(static_cast<std::size_t>(bound)), place);
}

bool MadeUpValues::IsTrue(int bound, const RunPlace& place) {
  Value room;
  return Look(bound, place, room) == Value(true);
}

Value MadeUpValues::Worth(const Expression& expression, const RunPlace& place) {
  const auto operand = [&](std::size_t at) { return Worth(expression.operands.at(at), place); };
  switch (expression.kind) {
    case ExpressionKind::Constant:
      return expression.constant;
    case ExpressionKind::System:
      if (expression.system == SystemValue::PageCount) return std::string(1, kPageCountMark);
      return static_cast<double>(expression.system == SystemValue::PageNumber ? place.pageNumber : place.recordNumber);
    case ExpressionKind::Call:
      return operand(0).IsNull();
    case ExpressionKind::Operation:
      if (expression.operation == Operator::Join) return platform::CStr(operand(0)) + platform::CStr(operand(1));
      return Compare(operand(0), operand(1)) == 0;
    case ExpressionKind::Name:
      if (expression.nameKind == NameKind::Total) {
        for (std::size_t total = 0; total < report_.totals.size(); ++total)
          if (report_.totals[total].name == expression.name && place.totals) return place.totals->at(total);
        return platform::Null;
      }
      for (std::size_t field = 0; field < rows_.Fields().size(); ++field)
        if (rows_.Fields()[field].name == expression.name && place.row) return place.row->at(field);
      return platform::Null;
    default:
      throw std::logic_error("not made up");
  }
}

int MadeUpValues::Compare(const Value& left, const Value& right) {
  if (left.IsText() && right.IsText()) return left.As<std::string>().compare(right.As<std::string>());
  const double one = platform::CDbl(left);
  const double other = platform::CDbl(right);
  return one < other ? -1 : one > other ? 1 : 0;
}

double EvenFont::Width(std::string_view text, const TextStyle&) const { return 0.5 * static_cast<double>(platform::CharacterCount(text)); }

std::vector<Page> LaidOut(const ReportDefinition& report, MadeUpRows rows, int firstLabel) {
  MadeUpValues values(report, rows);
  const EvenFont font;
  KeptPages kept;
  ReportLayout layout(report, values, rows, font, kept, firstLabel);
  while (layout.Advance()) {
  }
  return kept.pages;
}

std::vector<std::string> TextsOf(const Page& page) {
  std::vector<std::string> texts;
  for (const PageItem& item : page.items) {
    const auto* text = std::get_if<TextItem>(&item);
    if (text)
      texts.push_back(std::to_string(std::lround(text->x * 1000)) + " " + std::to_string(std::lround(text->y * 1000)) + " " + text->text);
  }
  return texts;
}

std::vector<std::string> WordsOf(const Page& page) {
  std::vector<std::string> texts;
  for (const PageItem& item : page.items)
    if (const auto* text = std::get_if<TextItem>(&item)) texts.push_back(text->text);
  return texts;
}

}  // namespace printing_test
