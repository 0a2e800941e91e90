#pragma once

#include <string>

#include "printing/data/data_tables.h"

namespace bench {

/// What a report's run takes from the program: the company of a folder, whose data files may all be read, on a fixed day.
printing::DataServices ReportServices(const std::string& folder);

}  // namespace bench
