#include "printing/output/xlsx_file.h"

#include <sys/stat.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "printing/data/report_errors.h"

namespace printing {

using platform::Value;
using platform::ValueKind;

namespace {

constexpr std::size_t kCharactersOfCell = 32767;
constexpr double kCharactersPerInch = 13;
constexpr double kWidest = 60;
/// The first day whose number is the same in a workbook: what comes before stands as a text.
constexpr double kFirstDay = 61;

/// Whether a workbook reads the format as we do: figures and their marks alone.
bool IsNumberFormat(const std::string& format) { return !format.empty() && format.find_first_not_of("#0,.%$()-;\" ") == std::string::npos; }

}  // namespace

struct XlsxFile::Making {
  std::string path;  ///< its name to be
  std::string part;  ///< until it is whole
  std::string folder;
  lxw_workbook* book = nullptr;
  lxw_worksheet* sheet = nullptr;
  lxw_format* heading = nullptr;
  lxw_format* amount = nullptr;
  lxw_format* date = nullptr;
  lxw_format* moment = nullptr;
  std::vector<lxw_format*> columns;  ///< the report's own formats of numbers; none where it has none
  lxw_row_t row = 0;
  lxw_row_t rowsOfSheet = 0;
  bool failed = false;

  [[noreturn]] void Fail(const std::string& why) const { throw ReportFailure(ReportError::OutputFailed, path + ": " + why); }
  void CheckRows() {
    // The library keeps rows in files of its own and doesn't look whether they could be written.
    if (sheet && sheet->optimize_tmpfile && (std::fflush(sheet->optimize_tmpfile) != 0 || std::ferror(sheet->optimize_tmpfile) != 0))
      Fail(std::strerror(errno));
  }
  lxw_format* NewFormat(const char* numbers) const {
    lxw_format* made = workbook_add_format(book);
    format_set_num_format(made, numbers);
    return made;
  }
};

XlsxFile::XlsxFile(const std::string& path, const std::string& title, std::uint32_t rowsOfSheet) : making_(std::make_unique<Making>()) {
  Making& making = *making_;
  making.path = path;
  making.rowsOfSheet = std::min<lxw_row_t>(rowsOfSheet, LXW_ROW_MAX);
  making.part = path + ".XXXXXX";
  const int file = mkstemp(making.part.data());
  if (file < 0) {
    making.part.clear();
    making.Fail(std::strerror(errno));
  }
  // As any new file is.
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(file, 0666 & ~mask);
  close(file);
  std::error_code none;
  making.folder = std::filesystem::temp_directory_path(none).string();
  lxw_workbook_options options = {};
  options.constant_memory = LXW_TRUE;
  options.tmpdir = making.folder.data();
  options.use_zip64 = LXW_TRUE;
  making.book = workbook_new_opt(making.part.c_str(), &options);
  if (!making.book) making.Fail("no memory");
  lxw_doc_properties properties = {};
  std::string own = title;
  properties.title = own.data();
  workbook_set_properties(making.book, &properties);
  making.heading = workbook_add_format(making.book);
  format_set_bold(making.heading);
  format_set_bottom(making.heading, LXW_BORDER_THIN);
  making.amount = making.NewFormat("#,##0.00");
  making.date = making.NewFormat("m/d/yyyy");
  making.moment = making.NewFormat("m/d/yyyy h:mm AM/PM");
}

XlsxFile::~XlsxFile() {
  // Closing is the library's only way to give its memory back; what it writes then is taken away.
  if (making_->book) workbook_close(making_->book);
  if (!making_->part.empty()) unlink(making_->part.c_str());
}

void XlsxFile::Begin(const std::vector<DetailColumn>& columns) {
  columns_ = columns;
  for (const DetailColumn& column : columns)
    making_->columns.push_back(IsNumberFormat(column.format) ? making_->NewFormat(column.format.c_str()) : nullptr);
  NewSheet();
}

void XlsxFile::NewSheet() {
  Making& making = *making_;
  making.CheckRows();
  making.sheet = workbook_add_worksheet(making.book, nullptr);
  if (!making.sheet) making.Fail("no memory");
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    const auto column = static_cast<lxw_col_t>(at);
    const auto letters = static_cast<double>(platform::CharacterCount(columns_[at].heading)) + 2;
    worksheet_set_column(making.sheet, column, column, std::min(kWidest, std::max(letters, columns_[at].width * kCharactersPerInch)),
                         nullptr);
  }
  worksheet_freeze_panes(making.sheet, 1, 0);
  making.row = 0;
  for (std::size_t at = 0; at < columns_.size(); ++at)
    worksheet_write_string(making.sheet, 0, static_cast<lxw_col_t>(at), columns_[at].heading.c_str(), making.heading);
  making.row = 1;
}

void XlsxFile::Add(const std::vector<Value>& cells) {
  Making& making = *making_;
  if (making.row >= making.rowsOfSheet) NewSheet();
  for (std::size_t at = 0; at < cells.size(); ++at) PutCell(static_cast<std::uint16_t>(at), cells[at]);
  ++making.row;
  constexpr lxw_row_t kRowsBetweenChecks = 4096;
  if (making.row % kRowsBetweenChecks == 0) making.CheckRows();
}

void XlsxFile::PutCell(std::uint16_t column, const Value& value) {
  Making& making = *making_;
  const auto text = [&](std::string shown) {
    shown.resize(platform::ByteOffset(shown, kCharactersOfCell));
    worksheet_write_string(making.sheet, making.row, column, shown.c_str(), nullptr);
  };
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return;
    case ValueKind::Boolean:
      worksheet_write_boolean(making.sheet, making.row, column, value.As<bool>() ? 1 : 0, nullptr);
      return;
    case ValueKind::Date: {
      const double serial = value.As<platform::Date>().serial;
      if (serial < kFirstDay) return text(platform::GeneralDate(value.As<platform::Date>()));
      worksheet_write_number(making.sheet, making.row, column, serial, serial == std::floor(serial) ? making.date : making.moment);
      return;
    }
    case ValueKind::Text:
      return text(value.As<std::string>());
    default:
      break;
  }
  lxw_format* format = making.columns[column];
  if (!format && value.Kind() == ValueKind::Currency) format = making.amount;
  worksheet_write_number(making.sheet, making.row, column, platform::CDbl(value), format);
}

void XlsxFile::Finish() {
  Making& making = *making_;
  making.CheckRows();
  lxw_workbook* book = std::exchange(making.book, nullptr);
  const lxw_error error = workbook_close(book);
  if (error != LXW_NO_ERROR) making.Fail(lxw_strerror(error));
  if (std::rename(making.part.c_str(), making.path.c_str()) != 0) making.Fail(std::strerror(errno));
  making.part.clear();
}

}  // namespace printing
