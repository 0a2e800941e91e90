#pragma once

#include <string>
#include <vector>

namespace suitefiles {

/// A file of the library's folder as it is delivered.
struct ReportFile {
  std::string name;
  std::string text;
};

/// All of them (data/reports), by name.
const std::vector<ReportFile>& DeliveredReports();

/// The same with the pin's picture of the map: all that lies in the library's folder.
std::vector<ReportFile> LibraryFiles();

/// What became of the files of a library's folder.
struct PutReports {
  std::vector<std::string> added;    ///< were not there
  std::vector<std::string> renewed;  ///< stood as an earlier version had put them
  std::vector<std::string> left;     ///< an office has changed them; they stay as they are
};

/// Puts the delivered files into the library's folder. A file that somebody has changed since it was put there, or that
/// somebody else put there, is never written over; "reports.delivered" keeps what was put, by name and checksum.
PutReports PutReportFiles(const std::string& folder);

/// Names of all files of that kind in a folder: report files, the office's own too, what else is delivered, and the record of it. Links
/// are none: no report is read through one.
std::vector<std::string> LibraryFilesIn(const std::string& folder);

/// "25 files of the library added" and so on, a line each, nothing when all stood there as delivered.
std::string Told(const PutReports& put);

}  // namespace suitefiles
