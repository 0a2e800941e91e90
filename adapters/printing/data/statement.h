#pragma once

#include <map>
#include <string>
#include <vector>

#include "printing/data/data_tables.h"
#include "printing/data/row_source.h"
#include "printing/definition/report_definition.h"

namespace printing {

/// The fields by which a run's rows are sorted: the groups', then the job's, or where it has none the report's own. A job's field is
/// "+" or "-" and a name in braces. Raises ReportFailure for what is no field of the tables.
struct SortKey {
  StoredField field;
  bool descending = false;
};
std::vector<SortKey> SortKeysOf(const ReportDefinition& report, const std::map<int, std::string>& sortFields, const DataTables& tables);

/// The one statement of a run, for the file of the first table.
std::string StatementOf(const ReportDefinition& report, const DataTables& tables, const std::vector<RowField>& fields,
                        const std::vector<std::string>& conditions, const std::vector<SortKey>& sort);

}  // namespace printing
