#pragma once

#include "platform/data/data.h"
#include "session/failures.h"

namespace orcussch {

/// A recordset that a procedure opens for its own use. It is closed when the procedure is left, whichever way: at its end, at a
/// refusal, or by a failure. One that is closed already, as when the session ended at a yield, is closed enough.
class Opened {
 public:
  Opened() = default;
  explicit Opened(platform::RecordsetRef rows) : rows_(std::move(rows)) {}
  ~Opened() { Close(); }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  Opened& operator=(platform::RecordsetRef rows) {
    Close();
    rows_ = std::move(rows);
    return *this;
  }
  auto operator->() const { return rows_.operator->(); }
  operator const platform::RecordsetRef&() const noexcept { return rows_; }
  /// Nothing was opened.
  bool IsNothing() const noexcept { return rows_.IsNothing(); }

 private:
  void Close() noexcept {
    if (!rows_.IsNothing()) Ignore()([this] { rows_->Close(); });
    rows_.Reset();
  }
  platform::RecordsetRef rows_;
};

}  // namespace orcussch
