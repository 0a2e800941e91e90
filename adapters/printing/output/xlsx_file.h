#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "printing/layout/detail_rows.h"

namespace printing {

/// Details as a workbook: typed cells, headings in the first row of each sheet, a further sheet where one is full. Rows are not kept in
/// memory. A text is never a formula there. As PdfFile it leaves nothing half done behind.
class XlsxFile final : public DetailSink {
 public:
  /// `rowsOfSheet`: how many a sheet takes, its headings with them; what the format allows, and no more.
  XlsxFile(const std::string& path, const std::string& title, std::uint32_t rowsOfSheet = 1048576);
  ~XlsxFile() override;

  void Begin(const std::vector<DetailColumn>& columns) override;
  void Add(const std::vector<platform::Value>& cells) override;
  void Finish();

 private:
  struct Making;
  void NewSheet();
  void PutCell(std::uint16_t column, const platform::Value& value);

  std::unique_ptr<Making> making_;
  std::vector<DetailColumn> columns_;
};

}  // namespace printing
