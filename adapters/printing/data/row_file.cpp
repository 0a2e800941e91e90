#include "printing/data/row_file.h"

#include "printing/data/report_errors.h"

namespace printing {
namespace {

using platform::Value;
using platform::ValueKind;

[[noreturn]] void FailRoom() {
  throw ReportFailure(ReportError::NoRoom, "There is no room in the system's temporary folder for the rows of the report.");
}

}  // namespace

RowFile::RowFile() : file_(std::tmpfile()) {
  constexpr std::size_t kBuffer = std::size_t{1} << 16;
  if (file_ == nullptr) FailRoom();
  std::setvbuf(file_.get(), nullptr, _IOFBF, kBuffer);
}

void RowFile::Write(const std::vector<Value>& row) {
  for (const Value& value : row) WriteValue(value);
  ++count_;
}

void RowFile::Rewind() {
  if (std::fflush(file_.get()) != 0 || std::fseek(file_.get(), 0, SEEK_SET) != 0) FailRoom();
  given_ = 0;
}

bool RowFile::Read(std::vector<Value>& row, std::size_t cells) {
  if (given_ == count_) return false;
  ++given_;
  row.clear();
  for (std::size_t i = 0; i < cells; ++i) row.push_back(ReadValue());
  return true;
}

void RowFile::WriteBytes(const void* bytes, std::size_t size) {
  if (size > 0 && std::fwrite(bytes, size, 1, file_.get()) != 1) FailRoom();
}

void RowFile::ReadBytes(void* bytes, std::size_t size) {
  if (size > 0 && std::fread(bytes, size, 1, file_.get()) != 1)
    throw ReportFailure(ReportError::ReadingFailed, "The rows of the report could not be read again.");
}

// The kind in one byte, then the value as it lies in memory; a text with its length before it.
void RowFile::WriteValue(const Value& value) {
  WriteOf(static_cast<std::uint8_t>(value.Kind()));
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return;
    case ValueKind::Boolean:
      return WriteOf(value.As<bool>());
    case ValueKind::Byte:
      return WriteOf(value.As<std::uint8_t>());
    case ValueKind::Short:
      return WriteOf(value.As<std::int16_t>());
    case ValueKind::Long:
      return WriteOf(value.As<std::int32_t>());
    case ValueKind::Currency:
      return WriteOf(value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return WriteOf(value.As<double>());
    case ValueKind::Date:
      return WriteOf(value.As<platform::Date>().serial);
    case ValueKind::Text:
      break;
  }
  const std::string& text = value.As<std::string>();
  WriteOf(static_cast<std::uint64_t>(text.size()));
  WriteBytes(text.data(), text.size());
}

Value RowFile::ReadValue() {
  switch (static_cast<ValueKind>(ReadOf<std::uint8_t>())) {
    case ValueKind::Empty:
      return {};
    case ValueKind::Null:
      return platform::Null;
    case ValueKind::Boolean:
      return ReadOf<bool>();
    case ValueKind::Byte:
      return ReadOf<std::uint8_t>();
    case ValueKind::Short:
      return ReadOf<std::int16_t>();
    case ValueKind::Long:
      return ReadOf<std::int32_t>();
    case ValueKind::Currency:
      return platform::Currency{ReadOf<std::int64_t>()};
    case ValueKind::Double:
      return ReadOf<double>();
    case ValueKind::Date:
      return platform::Date{ReadOf<double>()};
    case ValueKind::Text:
      break;
  }
  std::string text(ReadOf<std::uint64_t>(), '\0');
  ReadBytes(text.data(), text.size());
  return text;
}

}  // namespace printing
