#include <sys/resource.h>

#include <csignal>
#include <regex>

#include "printing/data/report_errors.h"
#include "printing/output/pdf_file.h"
#include "printing/output/printer.h"
#include "unit/printing/output/support.h"

namespace printing_test {
namespace {

using namespace printing;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Words of a PDF with their boxes in points, as one of the independent readers sees them.
struct Word {
  double left, top, right, bottom;
  std::string text;
};

std::vector<Word> WordsOf(const std::string& file) {
  const std::string all = Said("pdftotext -bbox '" + file + "' -");
  const std::regex row(R"re(<word xMin="([0-9.-]+)" yMin="([0-9.-]+)" xMax="([0-9.-]+)" yMax="([0-9.-]+)">([^<]*)</word>)re");
  std::vector<Word> words;
  for (std::sregex_iterator at(all.begin(), all.end(), row), end; at != end; ++at)
    words.push_back({std::stod((*at)[1]), std::stod((*at)[2]), std::stod((*at)[3]), std::stod((*at)[4]), (*at)[5]});
  return words;
}

/// As long as it is there, no file grows beyond so many bytes: what a full disk does to a writer.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    rlimit low = limit_;
    low.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &low);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, before_);
  }

 private:
  void (*before_)(int);
  rlimit limit_{};
};

ReportError ErrorOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const ReportFailure& failure) {
    return failure.Error();
  }
  return ReportError::None;
}

class PagesOut : public OutputTest {
 protected:
  static Page Sample(const std::string& text) {
    Page page;
    page.items.emplace_back(BoxItem{1, 1, 3, 0.5, 1, {200, 0, 0}, Color{240, 240, 240}});
    page.items.emplace_back(LineItem{1, 2, 4, 2, 0.5, {}});
    page.items.emplace_back(TextAt(1, 1, 3, text));
    return page;
  }
  std::string Pdf(const std::vector<Page>& pages, PaintSettings settings = {}) {
    PageSpool spool;
    for (const Page& page : pages) spool.Add(page);
    WritePdf(spool, File("out.pdf"), "A title", fonts, {}, 0, 0, settings);
    return File("out.pdf");
  }

  FontSet fonts;
};

TEST_F(PagesOut, FontIsThePackagedOneWithItsOwnWidths) {
  EXPECT_TRUE(fonts.Packaged());
  TextStyle style;
  // Advances of the font's file, in 2048ths of an em.
  EXPECT_NEAR(fonts.Width("A", style), 1366.0 / 2048, 1e-4);
  EXPECT_NEAR(fonts.Width("AV", style), 2 * 1366.0 / 2048, 1e-4) << "no kerning";
  EXPECT_NEAR(fonts.Width("0123456789", style), 10 * 1139.0 / 2048, 1e-4);
  style.bold = true;
  EXPECT_NEAR(fonts.Width("a", style), 1139.0 / 2048, 1e-4);
  EXPECT_NEAR(fonts.Width("i", style), 569.0 / 2048, 1e-4);
  EXPECT_NEAR(fonts.LineHeight(style), (1854.0 + 434 + 67) / 2048, 2e-3);
  EXPECT_EQ(fonts.Width("\xE4\xBD\xA0", style), 1) << "a character of another font has the same room everywhere";
  EXPECT_EQ(fonts.Width(std::string(1, kPageCountMark), style), fonts.Width("9999", style));
}

TEST_F(PagesOut, SpoolGivesBackWhatItTook) {
  PageSpool spool;
  Page first = Sample("first");
  first.width = 8.27;
  auto& text = std::get<TextItem>(first.items.back());
  text.style.bold = text.style.italic = text.hasPageCount = true;
  text.style.align = Align::Right;
  text.style.color = {1, 2, 3};
  spool.Add(first);
  spool.Add(Page{});
  spool.Add(Sample("third"));
  ASSERT_EQ(spool.Count(), 3);
  EXPECT_EQ(std::get<TextItem>(spool.Read(2).items.at(2)).text, "third");
  EXPECT_THAT(spool.Read(1).items, IsEmpty());
  const Page again = spool.Read(0);
  EXPECT_EQ(again.width, 8.27);
  const auto& read = std::get<TextItem>(again.items.at(2));
  EXPECT_EQ(read.text, "first");
  EXPECT_TRUE(read.style.bold && read.style.italic && read.hasPageCount);
  EXPECT_EQ(read.style.align, Align::Right);
  EXPECT_EQ(read.style.color, (Color{1, 2, 3}));
  EXPECT_FLOAT_EQ(static_cast<float>(read.height), 0.2F);
  const auto& box = std::get<BoxItem>(again.items.at(0));
  EXPECT_EQ(box.fill, (Color{240, 240, 240}));
  EXPECT_EQ(box.height, 0.5);
  EXPECT_EQ(std::get<LineItem>(again.items.at(1)).x2, 4);
  EXPECT_THROW(spool.Read(3), std::out_of_range);
}

TEST_F(PagesOut, PdfIsSoundAndHasItsTextsInTheirPlaces) {
  Page page = Sample("Left");
  TextItem right = TextAt(1, 3, 3, "Right");
  right.style.align = Align::Right;
  TextItem center = TextAt(1, 4, 3, "Center");
  center.style.align = Align::Center;
  center.style.bold = true;
  page.items.insert(page.items.end(), {right, center});
  const std::string file = Pdf({page});
  EXPECT_THAT(Said("qpdf --check '" + file + "'"), HasSubstr("No syntax or stream encoding errors found"));
  EXPECT_THAT(Said("pdfinfo '" + file + "'"), HasSubstr("612 x 792 pts (letter)"));
  EXPECT_THAT(Said("pdfinfo '" + file + "'"), HasSubstr("A title"));
  EXPECT_THAT(Said("pdffonts '" + file + "'"), HasSubstr("LiberationSans-Bold"));
  const auto words = WordsOf(file);
  ASSERT_EQ(words.size(), 3U);
  EXPECT_EQ(words[0].text, "Left");
  EXPECT_NEAR(words[0].left, 72, 0.1);
  EXPECT_NEAR(words[0].right, 72 + 10 * fonts.Width("Left", {}), 0.1);
  EXPECT_NEAR(words[0].top, 72, 1);
  EXPECT_NEAR(words[1].right, 4 * 72, 0.1);
  EXPECT_NEAR((words[2].left + words[2].right) / 2, 2.5 * 72, 0.1);
  // The other reader agrees.
  EXPECT_THAT(Said("mutool draw -F text '" + file + "'"), testing::AllOf(HasSubstr("Left"), HasSubstr("Right"), HasSubstr("Center")));
}

TEST_F(PagesOut, NumberOfPagesStandsWhereItIsAskedFor) {
  Page page;
  page.items.emplace_back(TextAt(1, 1, 3, "Page 1 of \x01"));
  std::get<TextItem>(page.items[0]).hasPageCount = true;
  EXPECT_THAT(Said("pdftotext '" + Pdf({page, Page{}, Page{}}) + "' -"), HasSubstr("Page 1 of 3"));
  EXPECT_EQ(WithPageCount(std::get<TextItem>(page.items[0]), 0), "Page 1 of \xE2\x80\xA6");
}

TEST_F(PagesOut, PdfOfChosenPagesCountsAllOfThem) {
  PageSpool spool;
  for (int page = 1; page <= 5; ++page) spool.Add(Sample("number " + std::to_string(page) + " of \x01"));
  WritePdf(spool, File("some.pdf"), "", fonts, {}, 2, 3);
  EXPECT_THAT(Said("pdftotext '" + File("some.pdf") + "' -"),
              testing::AllOf(HasSubstr("number 2"), HasSubstr("number 3"), Not(HasSubstr("number 1")), Not(HasSubstr("number 4"))));
}

TEST_F(PagesOut, PdfOfNothingIsAnEmptyPage) { EXPECT_THAT(Said("pdfinfo '" + Pdf({}) + "'"), HasSubstr("Pages:           1")); }

TEST_F(PagesOut, ShiftAndScaleMoveEverything) {
  const auto words = WordsOf(Pdf({Sample("Left")}, {0.5, 0.25, 0.5}));
  ASSERT_EQ(words.size(), 1U);
  EXPECT_NEAR(words[0].left, 36 + 36, 0.1);
  EXPECT_NEAR(words[0].right - words[0].left, 5 * fonts.Width("Left", {}), 0.1);
  EXPECT_NEAR(words[0].top, 36 + 18, 1);
}

TEST_F(PagesOut, TextsOfAllScriptsStayInTheirBoxes) {
  const std::string letters = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D";
  Page page;
  page.items.emplace_back(TextAt(1, 1, 2, letters));
  page.items.emplace_back(TextAt(1, 2, 2, "\xF0\x9F\x98\x80\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7 ok"));
  page.items.emplace_back(TextAt(1, 3, 2, "caf\xC3\xA9 \xE2\x82\xAC 5 e\xCC\x81"));
  page.items.emplace_back(TextAt(1, 4, 2, std::string(10000, 'W')));
  page.items.emplace_back(TextAt(1, 5, 2, "\xD8\xB9\xD9\x85\xD8\xB1 \xE4\xBD\xA0\xE5\xA5\xBD \x7F\xC2\xAD"));
  const std::string file = Pdf({page});
  EXPECT_THAT(Said("qpdf --check '" + file + "'"), HasSubstr("No syntax or stream encoding errors found"));
  EXPECT_THAT(Said("pdftotext '" + file + "' -"), testing::AllOf(HasSubstr("caf\xC3\xA9 \xE2\x82\xAC 5"), HasSubstr(letters)));
}

TEST_F(PagesOut, FullDiskLeavesNoHalfFileAndWhatWasThere) {
  std::ofstream(File("old.pdf")) << "before";
  PageSpool spool;
  for (int page = 0; page < 400; ++page) spool.Add(Sample("some text on page " + std::to_string(page * 7919)));
  {
    const FullDisk full(20000);
    EXPECT_EQ(ErrorOf([&] { WritePdf(spool, File("old.pdf"), "", fonts, {}); }), ReportError::OutputFailed);
    EXPECT_EQ(ErrorOf([&] { WritePdf(spool, File("new.pdf"), "", fonts, {}); }), ReportError::OutputFailed);
    PageSpool small;
    EXPECT_EQ(ErrorOf([&] {
                for (int page = 0; page < 1000; ++page) small.Add(Sample("text"));
              }),
              ReportError::OutputFailed);
  }
  EXPECT_THAT(Names(), testing::ElementsAre("old.pdf"));
  EXPECT_EQ(Content(File("old.pdf")), "before");
}

TEST_F(PagesOut, FolderThatIsNotThereIsAnError) {
  PageSpool spool;
  EXPECT_EQ(ErrorOf([&] { WritePdf(spool, File("none/out.pdf"), "", fonts, {}); }), ReportError::OutputFailed);
}

TEST_F(PagesOut, CanBeStoppedBetweenPages) {
  PageSpool spool;
  for (int page = 0; page < 10; ++page) spool.Add(Sample("text"));
  std::int64_t asked = 0;
  const Progress third = [&](std::int64_t done) { return (asked = done) < 3; };
  EXPECT_EQ(ErrorOf([&] { WritePdf(spool, File("out.pdf"), "", fonts, third); }), ReportError::Stopped);
  EXPECT_EQ(asked, 3);
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(PagesOut, WithoutAPrinterSaySo) {
  PageSpool spool;
  spool.Add(Sample("text"));
  PrinterRun run;
  run.printer = "no printer of this name";
  EXPECT_EQ(ErrorOf([&] { Print(spool, fonts, run, {}); }), ReportError::NoPrinter);
  if (DefaultPrinter().empty()) {
    EXPECT_EQ(ErrorOf([&] { Print(spool, fonts, {}, {}); }), ReportError::NoPrinter);
  }
}

TEST_F(PagesOut, PrintTheirRangeWhereTheyStandOnThePage) {
  PageSpool spool;
  for (int page = 1; page <= 4; ++page) spool.Add(Sample("number" + std::to_string(page)));
  PrinterRun run;
  run.toFile = File("printed.pdf");
  run.from = 2;
  run.to = 3;
  Print(spool, fonts, run, {});
  const auto words = WordsOf(run.toFile);
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[0].text, "number2");
  EXPECT_EQ(words[1].text, "number3");
  EXPECT_NEAR(words[0].left, 72, 0.2);
  EXPECT_NEAR(words[0].top, 72, 1);
}

}  // namespace
}  // namespace printing_test
