#pragma once

#include <map>
#include <memory>
#include <string>

#include "printing/data/data_tables.h"
#include "printing/data/row_source.h"
#include "printing/definition/report_definition.h"

namespace printing {

/// What a job says about the rows.
struct RowRequest {
  std::map<int, std::string> dataFiles;
  std::map<int, std::string> sortFields;
  std::string selection;  ///< "" takes every row that the report takes
  /// All of the selection is asked row by row, none of it by the store: slower, the same rows.
  bool askRowByRow = false;
};

/// Opens the rows of a report whose formulas have their values: one statement on a connection of its own. Rows with a part in a
/// temporary file are all read here and kept in a file of their own. Raises ReportFailure, as does each later reading.
std::unique_ptr<RowSource> OpenReportRows(const ReportDefinition& report, const RowRequest& request, const DataServices& services);

}  // namespace printing
