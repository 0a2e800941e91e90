#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "printing/data/row_source.h"

namespace printing {

/// Rows that were all read at once and lie in a nameless file of the system's temporary folder, so that nothing that happens to
/// their tables later changes them.
class SpooledRows final : public RowSource {
 public:
  /// Reads the rows to their end. Raises ReportFailure, also when there is no room for the file.
  explicit SpooledRows(RowSource& rows);

  const std::vector<RowField>& Fields() const override { return fields_; }
  bool Next() override;
  const std::vector<platform::Value>& Row() const override { return row_; }
  std::int64_t Count() override { return count_; }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  void Write(const platform::Value& value);
  void WriteBytes(const void* bytes, std::size_t size);
  platform::Value Read();
  void ReadBytes(void* bytes, std::size_t size);
  template <class T>
  void WriteOf(const T& value) {
    WriteBytes(&value, sizeof value);
  }
  template <class T>
  T ReadOf() {
    T value{};
    ReadBytes(&value, sizeof value);
    return value;
  }

  std::unique_ptr<std::FILE, Close> file_;
  std::vector<RowField> fields_;
  std::vector<platform::Value> row_;
  std::int64_t count_ = 0;
  std::int64_t given_ = 0;
};

}  // namespace printing
