#include "engine/store/postgres/link/copy_rows.h"

#include <libpq-fe.h>

#include "engine/store/postgres/link/run.h"

namespace engine::postgres {

CopyRows::CopyRows(pg_conn* connection, const std::string& copy) : connection_(connection) {
  PQexitPipelineMode(connection_);
  PQsetnonblocking(connection_, 0);
  const Result result(PQexec(connection_, copy.c_str()));
  open_ = PQresultStatus(result.get()) == PGRES_COPY_IN;
  if (!open_) failure_ = FailureOf(result.get(), PQstatus(connection_) != CONNECTION_OK);
}

CopyRows::~CopyRows() {
  if (open_) {
    PQputCopyEnd(connection_, "given up");
    while (PGresult* result = PQgetResult(connection_)) PQclear(result);
  }
  PQsetnonblocking(connection_, 1);
  PQenterPipelineMode(connection_);
}

void CopyRows::Put(std::string_view lines) {
  if (open_ && PQputCopyData(connection_, lines.data(), static_cast<int>(lines.size())) != 1) failure_.emplace().lost = true;
}

std::optional<Failure> CopyRows::End() {
  if (!open_) return failure_;
  PQputCopyEnd(connection_, nullptr);
  open_ = false;
  while (PGresult* const one = PQgetResult(connection_)) {
    const Result result(one);
    if (PQresultStatus(one) != PGRES_COMMAND_OK && !failure_) failure_ = FailureOf(one, PQstatus(connection_) != CONNECTION_OK);
  }
  return failure_;
}

}  // namespace engine::postgres
