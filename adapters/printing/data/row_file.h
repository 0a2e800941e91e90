#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

#include "platform/values/value.h"

namespace printing {

/// Rows in a nameless file of the system's temporary folder: all are written, then read from the first on. A full disk is
/// ReportError::NoRoom.
class RowFile {
 public:
  RowFile();
  void Write(const std::vector<platform::Value>& row);
  /// The next Read gives the first row.
  void Rewind();
  /// The next row of so many cells; false behind the last.
  bool Read(std::vector<platform::Value>& row, std::size_t cells);
  std::int64_t Count() const noexcept { return count_; }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  void WriteValue(const platform::Value& value);
  void WriteBytes(const void* bytes, std::size_t size);
  platform::Value ReadValue();
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
  std::int64_t count_ = 0;
  std::int64_t given_ = 0;
};

}  // namespace printing
