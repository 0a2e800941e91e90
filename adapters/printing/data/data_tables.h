#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/row_stream.h"
#include "printing/definition/report_definition.h"
#include "printing/expressions/text_rules.h"

namespace printing {

/// What a data file is to the reports of this session.
enum class DataFileKind {
  Refused,    ///< none of theirs
  Kept,       ///< a company's: it stays for a report in the state that it had
  Temporary,  ///< its tables are emptied by the next run, so that rows are taken at once
};

/// What the rows of reports need of the program around them.
struct DataServices {
  /// A new connection for each report.
  std::function<std::unique_ptr<platform::SnapshotReader>()> openReader;
  /// Of files that the report file alone names; with a separator at its end.
  std::string dataFolder;
  std::function<DataFileKind(const std::string& path)> kindOf;
  TextRules text;
  platform::Date today;
  /// Asked every few milliseconds while rows are looked for, put in order and read, with how many were read so far; false stops the
  /// run. It may let windows paint, and must not end the rows that ask it. May be empty.
  std::function<bool(std::int64_t rows)> goOn{};
};

/// A field of one of the report's tables as the file has it.
struct StoredField {
  int table = 0;
  std::string name;  ///< as the file spells it
  platform::FieldType type = platform::FieldType::Long;
};
ValueType TypeOf(platform::FieldType type);

/// The tables of a report, found in their files.
class DataTables {
 public:
  /// `files`: by the tables' numbers, an empty or a missing one keeps the report's own. Raises ReportFailure.
  DataTables(const ReportDefinition& report, const std::map<int, std::string>& files, const DataServices& services,
             platform::SnapshotReader& reader);

  /// Nothing for a name that no table has.
  std::optional<StoredField> Find(std::string_view alias, std::string_view field) const;
  const std::string& Path(int table) const { return tables_[static_cast<std::size_t>(table)].path; }
  bool SomeAreTemporary() const { return someAreTemporary_; }

 private:
  struct Table {
    std::string path;
    platform::TableDefinition definition;
  };
  const ReportDefinition& report_;
  std::vector<Table> tables_;
  bool someAreTemporary_ = false;
};

}  // namespace printing
