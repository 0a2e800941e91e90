#pragma once

#include <memory>
#include <string>

#include "printing/layout/detail_rows.h"

namespace printing {

/// A text as a cell that no program takes for a formula: one that begins with = + - @, a tab or a line end gets an apostrophe in front.
std::string HarmlessText(std::string_view text);

/// Details as comma-separated values: UTF-8, RFC 4180, the headings first. Amounts and numbers have no thousands marks, dates are
/// year-month-day. As PdfFile it leaves nothing half done behind.
class CsvFile final : public DetailSink {
 public:
  explicit CsvFile(const std::string& path);
  ~CsvFile() override;

  void Begin(const std::vector<DetailColumn>& columns) override;
  void Add(const std::vector<platform::Value>& cells) override;
  void Finish();

 private:
  void Flush();
  struct Making;
  std::unique_ptr<Making> making_;
  std::string buffer_;
};

}  // namespace printing
