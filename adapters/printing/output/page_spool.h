#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "printing/layout/page.h"

namespace printing {

/// Pages in a temporary file that goes with the object: any of them can be read again at any time. A full disk is
/// ReportError::OutputFailed.
class PageSpool final : public PageSink {
 public:
  PageSpool();
  ~PageSpool() override;
  PageSpool(const PageSpool&) = delete;
  PageSpool& operator=(const PageSpool&) = delete;

  void Add(const Page& page) override;
  std::int64_t Count() const noexcept { return static_cast<std::int64_t>(starts_.size()) - 1; }
  /// Pages count from 0.
  Page Read(std::int64_t page) const;

 private:
  int file_ = -1;
  std::vector<std::int64_t> starts_{0};  ///< where each page begins, and where the next one will
  std::string buffer_;
};

}  // namespace printing
