#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "printing/expressions/expression.h"

namespace printing {

/// All lengths of a report are inches, as the label sheets are; fonts are points.

struct Color {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Color&) const = default;
};

enum class Align { Left, Center, Right };

/// How a text is drawn.
struct TextStyle {
  std::string name;  ///< of a named style; empty for the report's own
  double points = 9;
  bool bold = false;
  bool italic = false;
  Align align = Align::Left;
  Color color;
};

enum class JoinKind { Driving, Left, Inner };

/// One table of a report; its place in the list is its index in DataFiles.
struct ReportTable {
  std::string name;   ///< in its file
  std::string alias;  ///< in the report's expressions; the name where the report gives none
  std::string file;   ///< name of the data file, used where the job's DataFiles gives an empty text
  JoinKind join = JoinKind::Driving;
  std::optional<Expression> on;  ///< of a joined table: comparisons by = of fields, joined by And
};

enum class FormulaType { Text, Boolean, Number, Date };

/// A formula field: what it gives unless the job's Formulas override it by its name.
struct ReportFormula {
  std::string name;
  FormulaType type = FormulaType::Text;
  Expression value;
};

/// A field by which rows are sorted.
struct SortField {
  Expression field;  ///< a field, or a formula that is one
  bool descending = false;
};

enum class GroupBy { Value, Month, Year, Letter };

/// Rows with the same value stand together; groups sort in front of SortField.
struct ReportGroup {
  SortField key;
  GroupBy by = GroupBy::Value;
  bool keepTogether = false;  ///< begins on a new page where it doesn't fit on the rest of this one, but on a whole one
  bool repeatHeader = false;  ///< its header stands again on each page that it goes on
};

enum class Summary { Sum, Count, Average, Least, Greatest };

/// A total: runs over the details, begins anew with each group of its level (0: once for the report).
struct ReportTotal {
  std::string name;
  Summary summary = Summary::Sum;
  Expression value;
  std::optional<Expression> when;  ///< only rows for which it is true
  int group = 0;
};

enum class ElementKind { Text, Field, Line, Box };

/// What stands in a band, its place counted from the band's left upper corner.
struct Element {
  ElementKind kind = ElementKind::Text;
  double x = 0, y = 0, width = 0, height = 0;  ///< of a line: the way from its start to its end
  Expression value;                            ///< of a text a constant
  std::string format;                          ///< of a field, as Format takes it; empty: the type's own
  TextStyle style;
  bool canGrow = false;       ///< takes as many lines as its text needs; what stands below moves down
  double penWidth = 0.5;      ///< lines and boxes, in points; 0 draws no frame
  std::optional<Color> fill;  ///< boxes
  std::optional<Expression> suppress;
  std::string column;       ///< heading of its column in a CSV or XLSX export; empty: not exported
  bool exportOnly = false;  ///< a column that isn't printed
};

enum class BandKind { ReportHeader, PageHeader, GroupHeader, Detail, GroupFooter, ReportFooter, PageFooter };

struct Band {
  BandKind kind = BandKind::Detail;
  int group = 0;  ///< 1 is the outermost; group bands only
  double height = 0;
  bool keepTogether = true;  ///< never parted by a page's end while it fits on a page
  std::optional<Expression> suppress;
  std::optional<Expression> newPageBefore;
  std::optional<Expression> newPageAfter;
  std::optional<Color> stripe;  ///< background of each second detail
  std::vector<Element> elements;
};

/// Sheets of labels: details go across, then down; no other band is printed on them.
struct LabelSheet {
  int across = 1, down = 1;
  double left = 0, top = 0;
  double pitchAcross = 0, pitchDown = 0;
  double width = 0, height = 0;
};

/// A report file, read and checked.
struct ReportDefinition {
  std::string title;
  double pageWidth = 8.5, pageHeight = 11;
  double marginLeft = 0.5, marginTop = 0.5, marginRight = 0.5, marginBottom = 0.5;
  std::vector<ReportTable> tables;
  std::vector<ReportFormula> formulas;
  std::optional<Expression> selection;  ///< the report's own, beside the job's
  std::vector<SortField> sort;          ///< inside the groups; the job's SortFields take its place
  std::vector<ReportGroup> groups;
  std::vector<ReportTotal> totals;
  std::vector<Band> bands;  ///< in the order in which they are printed
  std::optional<LabelSheet> labels;
};

}  // namespace printing
