#pragma once

#include <string>
#include <vector>

#include "platform/services/report_engine.h"

namespace platform {

/// A page as its texts, in the order in which they are drawn; each is one line of a field.
using PageTexts = std::vector<std::string>;

/// A report engine whose pages can be read: for a scripted user, who sees no paper.
class ReadableReports : public ReportEngine {
 public:
  /// Previews that are open.
  virtual int OpenPreviews() const = 0;
  /// All pages of an open preview (from 1, the oldest first), laid out to the last one; with 0 those of the last run, in its preview or
  /// as it was printed. No pages where there is no such preview or run.
  virtual std::vector<PageTexts> Pages(int preview) = 0;
};

}  // namespace platform
