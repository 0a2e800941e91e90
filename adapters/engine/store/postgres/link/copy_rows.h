#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/store/postgres/link/failure.h"

struct pg_conn;

namespace engine::postgres {

/// Rows on their way into a table by COPY. It has the connection for itself, which is in no pipeline for that long, and waits for the
/// server without serving anybody: for tools.
class CopyRows {
 public:
  /// `copy` is the whole statement.
  CopyRows(pg_conn* connection, const std::string& copy);
  ~CopyRows();
  CopyRows(const CopyRows&) = delete;
  CopyRows& operator=(const CopyRows&) = delete;

  /// Lines of the server's text form.
  void Put(std::string_view lines);
  /// Ends it; what was wrong with the statement or a row, nothing when all rows are there.
  std::optional<Failure> End();

 private:
  pg_conn* connection_;
  std::optional<Failure> failure_;
  bool open_ = false;
};

}  // namespace engine::postgres
