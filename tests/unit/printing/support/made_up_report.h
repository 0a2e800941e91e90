#pragma once

#include <string>
#include <vector>

#include "printing/data/row_source.h"
#include "printing/layout/page.h"
#include "printing/layout/report_values.h"

/// Reports, rows and a font made up for tests.
namespace printing_test {

using printing::Band;
using printing::BandKind;
using printing::Element;
using printing::Expression;
using printing::ReportDefinition;

Expression Text(const std::string& text);
Expression Boolean(bool value);
Expression Number(double value);
Expression Field(const std::string& name);
Expression Total(const std::string& name);
Expression Known(printing::SystemValue value);
/// `left` & `right`.
Expression Joined(Expression left, Expression right);
Expression Equal(Expression left, Expression right);
Expression IsNull(Expression tested);

Element TextAt(double x, double y, double width, double height, const std::string& text);
Element FieldAt(double x, double y, double width, double height, Expression value);
Band BandOf(BandKind kind, double height, std::vector<Element> elements, int group = 0);
/// Letter paper with margins of half an inch: 7.5 by 10 inches to print on.
ReportDefinition Report(std::vector<Band> bands);

/// Rows that stand here.
class MadeUpRows final : public printing::RowSource {
 public:
  MadeUpRows(std::vector<std::string> fields, std::vector<std::vector<platform::Value>> rows);
  const std::vector<printing::RowField>& Fields() const override { return fields_; }
  bool Next() override;
  const std::vector<platform::Value>& Row() const override { return now_; }
  std::int64_t Count() override { return static_cast<std::int64_t>(rows_.size()); }

 private:
  std::vector<printing::RowField> fields_;
  std::vector<std::vector<platform::Value>> rows_;
  std::vector<platform::Value> now_;
  std::size_t next_ = 0;
};

/// So many rows with one field "N", counted from 1.
MadeUpRows Numbered(int rows);

/// Evaluates what the functions above make.
class MadeUpValues final : public printing::ReportValues {
 public:
  MadeUpValues(const ReportDefinition& report, const printing::RowSource& rows) : report_(report), rows_(rows) {}
  int Bind(const Expression& expression) override;
  const platform::Value& Look(int bound, const printing::RunPlace& place, platform::Value& room) override;
  bool IsTrue(int bound, const printing::RunPlace& place) override;
  int Compare(const platform::Value& left, const platform::Value& right) override;

 private:
  platform::Value Worth(const Expression& expression, const printing::RunPlace& place);
  const ReportDefinition& report_;
  const printing::RowSource& rows_;
  std::vector<const Expression*> bound_;
};

/// Every character is half an em wide; lines are 1.2 ems apart. At 10 points: 14.4 characters an inch, lines of a sixth of an inch.
class EvenFont final : public printing::TextMeasure {
 public:
  double Width(std::string_view text, const printing::TextStyle&) const override;
  double LineHeight(const printing::TextStyle&) const override { return 1.2; }
  double Ascent(const printing::TextStyle&) const override { return 0.9; }
};

class KeptPages final : public printing::PageSink {
 public:
  void Add(const printing::Page& page) override { pages.push_back(page); }
  std::vector<printing::Page> pages;
};

/// The pages of a report over rows.
std::vector<printing::Page> LaidOut(const ReportDefinition& report, MadeUpRows rows, int firstLabel = 1);

/// The texts of a page in their order as "x y text", places in thousandths of an inch.
std::vector<std::string> TextsOf(const printing::Page& page);
/// As TextsOf, without the places.
std::vector<std::string> WordsOf(const printing::Page& page);

}  // namespace printing_test
