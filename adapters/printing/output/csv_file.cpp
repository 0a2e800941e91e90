#include "printing/output/csv_file.h"

#include <QSaveFile>
#include <cstdio>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "printing/data/report_errors.h"

namespace printing {

using platform::Value;
using platform::ValueKind;

namespace {

constexpr std::size_t kBuffer = 1 << 16;

std::string IsoDate(platform::Date date) {
  const platform::CalendarDay day = platform::CalendarOf(date);
  const int seconds = platform::SecondsOf(date);
  char text[64];
  if (seconds == 0) {
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
  } else {
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", day.year, day.month, day.day, seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
  }
  return text;
}

/// Whether a program might take the text for a formula.
bool NeedsMark(std::string_view text) {
  constexpr std::string_view kBegins = "=+-@\t\r\n";
  return !text.empty() && kBegins.find(text.front()) != std::string_view::npos;
}

void PutText(std::string& to, std::string_view text) {
  const bool quoted = text.find_first_of(",\"\r\n") != std::string_view::npos;
  if (!quoted) {
    to += text;
    return;
  }
  to += '"';
  for (const char c : text) {
    if (c == '"') to += '"';
    to += c;
  }
  to += '"';
}

void PutCell(std::string& to, const Value& value) {
  if (value.IsNull() || value.IsEmpty()) return;
  if (value.IsText()) {
    const std::string& text = value.As<std::string>();
    return NeedsMark(text) ? PutText(to, HarmlessText(text)) : PutText(to, text);
  }
  if (value.Kind() == ValueKind::Date) {
    to += IsoDate(value.As<platform::Date>());
    return;
  }
  to += platform::CStr(value);
}

}  // namespace

std::string HarmlessText(std::string_view text) {
  std::string made;
  if (NeedsMark(text)) made += '\'';
  return made.append(text);
}

struct CsvFile::Making {
  explicit Making(const std::string& path) : file(QString::fromStdString(path)) {}
  [[noreturn]] void Fail() const {
    throw ReportFailure(ReportError::OutputFailed, file.fileName().toStdString() + ": " + file.errorString().toStdString());
  }
  QSaveFile file;
};

CsvFile::CsvFile(const std::string& path) : making_(std::make_unique<Making>(path)) {
  if (!making_->file.open(QIODevice::WriteOnly)) making_->Fail();
}

CsvFile::~CsvFile() = default;

void CsvFile::Begin(const std::vector<DetailColumn>& columns) {
  std::vector<Value> headings;
  for (const DetailColumn& column : columns) headings.emplace_back(column.heading);
  Add(headings);
}

void CsvFile::Add(const std::vector<Value>& cells) {
  bool first = true;
  for (const Value& cell : cells) {
    if (!first) buffer_ += ',';
    first = false;
    PutCell(buffer_, cell);
  }
  buffer_ += "\r\n";
  if (buffer_.size() >= kBuffer) Flush();
}

void CsvFile::Flush() {
  if (making_->file.write(buffer_.data(), static_cast<qint64>(buffer_.size())) != static_cast<qint64>(buffer_.size())) making_->Fail();
  buffer_.clear();
}

void CsvFile::Finish() {
  Flush();
  if (!making_->file.commit()) making_->Fail();
}

}  // namespace printing
