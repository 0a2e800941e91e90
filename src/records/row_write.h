#pragma once

#include <utility>

#include "session/failures.h"

namespace orcussch {

/// The writing of one row, statement by statement. Once its AddNew, Edit or Update has failed there is nothing to write to,
/// to read from or to point a default at: whatever else the row was to get is passed over, and the one report stands alone.
class RowWrite {
 public:
  explicit RowWrite(ResumeNext& on) : on_(on) {}

  /// A statement without which the others have no meaning: AddNew, Edit, Update, standing on the stored row.
  template <class Statement>
  bool Must(Statement&& statement) {
    going_ = going_ && on_(std::forward<Statement>(statement));
    return going_;
  }
  /// One of the others, a field: when it fails it is reported, and the rest is still written.
  template <class Statement>
  bool operator()(Statement&& statement) {
    return going_ && on_(std::forward<Statement>(statement));
  }
  bool Going() const noexcept { return going_; }
  ResumeNext& Reports() const noexcept { return on_; }

 private:
  ResumeNext& on_;
  bool going_ = true;
};

}  // namespace orcussch
