#include "printing/definition/report_file.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/values/text.h"
#include "printing/definition/band_lines.h"
#include "printing/definition/checks.h"
#include "printing/definition/line_reader.h"

namespace printing {
namespace {

using platform::EqualsNoCase;

constexpr std::size_t kLongestFile = std::size_t{1} << 20;
constexpr std::size_t kMostTables = 32;
constexpr std::size_t kMostParts = 1000;  ///< formulas, totals, sort fields, groups; bands and the elements of one

class FileReader {
 public:
  explicit FileReader(const PartLoader& loadPart) : loadPart_(loadPart) {}

  ReportDefinition Run(std::string_view text) {
    ReadLines(text);
    try {
      CheckReport(report_);
    } catch (const LineError& error) {
      Fail(lineNumber_, 0, error.text);
    }
    return std::move(report_);
  }

 private:
  [[noreturn]] static void Fail(std::size_t line, std::size_t column, const std::string& what) {
    throw ReportFileError(ReportFileError::Fault::Syntax, line, column + 1, what);
  }

  void ReadLines(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // some editors put one before a text
    if (text.size() > kLongestFile) Fail(1, 0, "The file is too long for a report.");
    const std::optional<std::string> normal = platform::Normalise(text);
    if (!normal) Fail(1, 0, "The file is no text in UTF-8.");
    std::string_view rest = *normal;
    if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
    begun_ = false;
    for (lineNumber_ = 0; !rest.empty();) {
      ++lineNumber_;
      const std::size_t end = rest.find('\n');
      ReadOneLine(rest.substr(0, end));
      rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    if (!begun_) Fail(1, 0, FirstLine());
  }

  std::string FirstLine() const {
    return "The first line must be: report " + std::to_string(kReportFormat) + std::string(inPart_ ? " part" : "");
  }

  void ReadOneLine(std::string_view text) {
    LineReader line(text, static_cast<int>(lineNumber_));
    try {
      if (line.AtEnd()) return;
      const std::size_t column = line.Column();
      const std::string word = line.Word();
      if (!begun_) return ReadFormat(line, word, column);
      if (EqualsNoCase(word, "use")) return ReadUse(line, column);
      ReadStatement(line, word, column);
      line.RequireEnd();
      CheckNewest(report_);
    } catch (const LineError& error) {
      Fail(lineNumber_, error.column, error.text);
    }
  }

  void ReadFormat(LineReader& line, const std::string& word, std::size_t column) {
    constexpr int kHighest = 1'000'000;
    if (!EqualsNoCase(word, "report")) LineReader::FailAt(column, FirstLine());
    if (line.WholeNumber(1, kHighest) > kReportFormat)
      throw ReportFileError(ReportFileError::Fault::Newer, lineNumber_, column + 1,
                            "The report is of a newer format; this program can't use it.");
    if (line.SkipWord("part") != inPart_) LineReader::FailAt(column, FirstLine());
    line.RequireEnd();
    begun_ = true;
  }

  // The part's lines stand as if they were written here.
  void ReadUse(LineReader& line, std::size_t column) {
    if (inPart_) LineReader::FailAt(column, "A part uses no other one.");
    if (++parts_ > kMostParts) line.Fail("There are too many of these.");
    const std::string name = line.Text();
    line.RequireEnd();
    const std::size_t here = lineNumber_;
    inPart_ = true;
    inBand_ = false;
    try {
      ReadLines(loadPart_(name));
    } catch (const ReportFileError& error) {
      throw ReportFileError(error.WhichFault(), here, column + 1, name + ':' + error.what());
    }
    inPart_ = false;
    inBand_ = false;
    begun_ = true;
    lineNumber_ = here;
  }

  template <class Part>
  Part& Add(LineReader& line, std::vector<Part>& parts, Part part) {
    if (parts.size() == kMostParts) line.Fail("There are too many of these.");
    parts.push_back(std::move(part));
    return parts.back();
  }

  void ReadStatement(LineReader& line, const std::string& word, std::size_t column) {
    const auto is = [&](std::string_view name) { return EqualsNoCase(word, name); };
    if (is("style")) {
      TextStyle style = ReadStyle(line, styles_);
      std::string name = platform::ToLowerAscii(style.name);
      styles_.emplace(std::move(name), std::move(style));
      return;
    }
    if (is("formula")) return ReadFormula(line);
    if (is("band")) {
      Add(line, report_.bands, ReadBand(line));
      inBand_ = true;
      return;
    }
    if (IsElementWord(word)) {
      if (!inBand_) LineReader::FailAt(column, "A band must come before what stands in it.");
      Add(line, report_.bands.back().elements,
          ReadElement(line, word, styles_, report_.pageWidth - report_.marginLeft - report_.marginRight));
      return;
    }
    if (inPart_) LineReader::FailAt(column, "The word " + word + " means nothing in a part.");
    if (is("title")) return ReadTitle(line);
    if (is("paper") || is("margins")) {
      if (!report_.bands.empty()) LineReader::FailAt(column, "The paper must be known before the first band.");
      return is("paper") ? ReadPaper(line) : ReadMargins(line);
    }
    if (is("table")) return ReadTable(line);
    if (is("select")) return ReadSelect(line, column);
    if (is("group")) return ReadGroup(line);
    if (is("sort")) {
      Add(line, report_.sort, ReadSortField(line));
      return;
    }
    if (is("total")) return ReadTotal(line);
    if (is("labels")) return ReadLabels(line, column);
    LineReader::FailAt(column, "The word " + word + " means nothing here.");
  }

  void ReadTitle(LineReader& line) { report_.title = line.Text(); }

  void ReadPaper(LineReader& line) {
    if (line.SkipWord("letter")) {
      report_.pageWidth = 8.5;
      report_.pageHeight = 11;
    } else if (line.SkipWord("legal")) {
      report_.pageWidth = 8.5;
      report_.pageHeight = 14;
    } else if (line.SkipWord("a4")) {
      constexpr double kMillimetres = 25.4;
      report_.pageWidth = 210 / kMillimetres;
      report_.pageHeight = 297 / kMillimetres;
    } else {
      line.Fail("The paper must be letter, legal or a4.");
    }
    if (line.SkipWord("landscape"))
      std::swap(report_.pageWidth, report_.pageHeight);
    else
      line.SkipWord("portrait");
  }

  void ReadMargins(LineReader& line) {
    for (double* margin : {&report_.marginLeft, &report_.marginTop, &report_.marginRight, &report_.marginBottom})
      *margin = line.Number(0, kLongestLength);
  }

  void ReadTable(LineReader& line) {
    if (report_.tables.size() == kMostTables) line.Fail("There are too many tables.");
    ReportTable table;
    table.name = line.Name();
    table.alias = line.SkipWord("as") ? line.Name() : table.name;
    line.RequireWord("file");
    table.file = line.Text();
    if (!line.AtEnd()) {
      table.join = line.SkipWord("left") ? JoinKind::Left : JoinKind::Inner;
      if (table.join == JoinKind::Inner) line.RequireWord("inner");
      line.RequireWord("join");
      table.on = line.ReadExpression();
    }
    report_.tables.push_back(std::move(table));
  }

  void ReadFormula(LineReader& line) {
    ReportFormula formula;
    formula.name = line.Name();
    if (line.SkipWord("text"))
      formula.type = FormulaType::Text;
    else if (line.SkipWord("boolean"))
      formula.type = FormulaType::Boolean;
    else if (line.SkipWord("number"))
      formula.type = FormulaType::Number;
    else if (line.SkipWord("date"))
      formula.type = FormulaType::Date;
    else
      line.Fail("The formula's type must be text, boolean, number or date.");
    formula.value = line.ReadExpression();
    Add(line, report_.formulas, std::move(formula));
  }

  void ReadSelect(LineReader& line, std::size_t column) {
    if (report_.selection) LineReader::FailAt(column, "There is a selection already.");
    report_.selection = line.ReadExpression();
  }

  static SortField ReadSortField(LineReader& line) {
    SortField sort{line.ReadField()};
    sort.descending = line.SkipWord("descending");
    return sort;
  }

  void ReadGroup(LineReader& line) {
    const std::size_t column = line.Column();
    const int level = line.WholeNumber(1, static_cast<int>(kMostParts));
    if (static_cast<std::size_t>(level) != report_.groups.size() + 1)
      LineReader::FailAt(column, "Groups must come in their order, 1 first.");
    ReportGroup group;
    group.key = ReadSortField(line);
    if (line.SkipWord("by")) {
      if (line.SkipWord("month"))
        group.by = GroupBy::Month;
      else if (line.SkipWord("year"))
        group.by = GroupBy::Year;
      else if (line.SkipWord("letter"))
        group.by = GroupBy::Letter;
      else
        line.Fail("A group is by month, year or letter.");
    }
    group.keepTogether = line.SkipWord("keep");
    group.repeatHeader = line.SkipWord("repeat");
    Add(line, report_.groups, std::move(group));
  }

  void ReadTotal(LineReader& line) {
    ReportTotal total;
    total.name = line.Name();
    if (line.SkipWord("sum"))
      total.summary = Summary::Sum;
    else if (line.SkipWord("count"))
      total.summary = Summary::Count;
    else if (line.SkipWord("average"))
      total.summary = Summary::Average;
    else if (line.SkipWord("least"))
      total.summary = Summary::Least;
    else if (line.SkipWord("greatest"))
      total.summary = Summary::Greatest;
    else
      line.Fail("A total is a sum, count, average, least or greatest.");
    total.value = line.ReadExpression();
    if (line.SkipWord("when")) total.when = line.ReadExpression();
    if (line.SkipWord("group")) total.group = line.WholeNumber(1, static_cast<int>(kMostParts));
    Add(line, report_.totals, std::move(total));
  }

  void ReadLabels(LineReader& line, std::size_t column) {
    constexpr int kMostLabels = 100;
    if (report_.labels) LineReader::FailAt(column, "There are labels already.");
    LabelSheet sheet;
    line.RequireWord("across");
    sheet.across = line.WholeNumber(1, kMostLabels);
    line.RequireWord("down");
    sheet.down = line.WholeNumber(1, kMostLabels);
    line.RequireWord("left");
    sheet.left = line.Number(0, kLongestLength);
    line.RequireWord("top");
    sheet.top = line.Number(0, kLongestLength);
    line.RequireWord("pitch");
    sheet.pitchAcross = line.Number(0, kLongestLength);
    sheet.pitchDown = line.Number(0, kLongestLength);
    line.RequireWord("size");
    sheet.width = line.Number(0, kLongestLength);
    sheet.height = line.Number(0, kLongestLength);
    report_.labels = sheet;
  }

  const PartLoader& loadPart_;
  std::size_t lineNumber_ = 0;
  std::size_t parts_ = 0;
  bool begun_ = false;
  bool inPart_ = false;
  bool inBand_ = false;
  Styles styles_;
  ReportDefinition report_;
};

}  // namespace

ReportDefinition ReadReportFile(std::string_view text, const PartLoader& loadPart) { return FileReader(loadPart).Run(text); }

}  // namespace printing
