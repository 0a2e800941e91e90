// Lists into files: what stands in them, and that none is left half done.
#include <gmock/gmock.h>

#include "platform/values/error.h"
#include "printing/entry/report_engine.h"
#include "unit/printing/output/support.h"

namespace printing_test {
namespace {

using platform::Value;
using testing::HasSubstr;

class Rows final : public platform::ExportRows {
 public:
  explicit Rows(std::vector<std::vector<Value>> rows, std::size_t stopAfter = SIZE_MAX) : rows_(std::move(rows)), stopAfter_(stopAfter) {}
  Step Next(std::vector<Value>& cells) override {
    if (next_ == stopAfter_) return Step::Stopped;
    if (next_ == rows_.size()) return Step::End;
    cells = rows_[next_++];
    return Step::Row;
  }

 private:
  std::vector<std::vector<Value>> rows_;
  std::size_t stopAfter_;
  std::size_t next_ = 0;
};

const platform::ExportedList kList{"Customers",
                                   {"Query: city is Duluth", "Ascending by Name"},
                                   {{"Name", "", false, 200}, {"Balance", "#,##0.00", false, 90}, {"Rate", "0.0", true, 60}}};
const std::vector<std::vector<Value>> kCells = {{"=1+1", platform::Currency{12'345'600}, 2.5},
                                                {"Hale, \"Rose\"", platform::Null, platform::Null}};

class ListFiles : public OutputTest {
 protected:
  bool Export(const std::string& name, Rows rows) { return exporter->Export(kList, rows, File(name)); }
  std::unique_ptr<platform::ListExport> exporter = printing::MakeListExport();
};

TEST_F(ListFiles, ValuesHaveTheirTypesAndNoCellIsAFormula) {
  EXPECT_TRUE(Export("list.csv", Rows(kCells)));
  EXPECT_EQ(Content(File("list.csv")), "Name,Balance,Rate\r\n'=1+1,1234.56,2.5\r\n\"Hale, \"\"Rose\"\"\",,\r\n");
}

TEST_F(ListFiles, AWorkbookIsOne) {
  EXPECT_TRUE(Export("list.XLSX", Rows(kCells)));
  const std::string cells = Said("unzip -p " + File("list.XLSX") + " xl/worksheets/sheet1.xml");
  EXPECT_THAT(cells, HasSubstr("<v>1234.56</v>"));
  EXPECT_THAT(cells, testing::Not(HasSubstr("<f>")));
}

TEST_F(ListFiles, PagesShowWhatTheListShows) {
  EXPECT_TRUE(Export("list.pdf", Rows(kCells)));
  const std::string text = Said("pdftotext -layout " + File("list.pdf") + " - | sed 's/  */ /g;s/^ //;/^$/d'");
  EXPECT_THAT(text,
              HasSubstr("Customers\nQuery: city is Duluth\nAscending by Name\nName Balance Rate\n=1+1 1,234.56 2.5%\nHale, \"Rose\"\n"));
  EXPECT_THAT(text, HasSubstr("Page 1 of 1"));
}

TEST_F(ListFiles, AStoppedOneLeavesNothingBehind) {
  for (const char* name : {"list.csv", "list.xlsx", "list.pdf"}) {
    EXPECT_FALSE(Export(name, Rows(kCells, 1))) << name;
    EXPECT_THAT(Names(), testing::IsEmpty()) << name;
  }
}

TEST_F(ListFiles, AFolderThatIsNotThereIsToldInWords) {
  for (const char* name : {"none/list.csv", "none/list.xlsx", "none/list.pdf"}) {
    try {
      Export(name, Rows(kCells));
      ADD_FAILURE() << name;
    } catch (const platform::Error& error) {
      EXPECT_THAT(error.Description(), HasSubstr(name));
    }
  }
}

}  // namespace
}  // namespace printing_test
