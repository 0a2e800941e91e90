#include "printing/data/data_tables.h"

#include "platform/values/error.h"
#include "platform/values/text.h"
#include "printing/data/report_errors.h"
#include "printing/data/report_names.h"

namespace printing {

ValueType TypeOf(platform::FieldType type) {
  switch (type) {
    case platform::FieldType::Boolean:
      return ValueType::Boolean;
    case platform::FieldType::Date:
      return ValueType::Date;
    case platform::FieldType::Text:
    case platform::FieldType::Memo:
      return ValueType::Text;
    default:
      return ValueType::Number;
  }
}

DataTables::DataTables(const ReportDefinition& report, const std::map<int, std::string>& files, const DataServices& services,
                       platform::SnapshotReader& reader)
    : report_(report) {
  for (std::size_t i = 0; i < report.tables.size(); ++i) {
    const ReportTable& table = report.tables[i];
    const auto given = files.find(static_cast<int>(i));
    std::string path = given == files.end() || given->second.empty() ? services.dataFolder + table.file : given->second;
    const DataFileKind kind = services.kindOf(path);
    if (kind == DataFileKind::Refused)
      throw ReportFailure(ReportError::DataFileRefused, platform::NormaliseLossy(path) + ": reports may not read this file.");
    someAreTemporary_ = someAreTemporary_ || kind == DataFileKind::Temporary;
    std::optional<platform::TableDefinition> definition;
    try {
      definition = reader.FindTable(path, table.name);
    } catch (const platform::Error& error) {
      throw ReportFailure(ReportError::DataFileNotOpened, path + ": " + error.Description());
    }
    if (!definition) throw ReportFailure(ReportError::TableMissing, path + ": there is no table " + table.name + '.');
    tables_.push_back({std::move(path), *std::move(definition)});
  }
}

std::optional<StoredField> DataTables::Find(std::string_view alias, std::string_view field) const {
  const int table = TableNamed(report_, alias);
  if (table < 0) return std::nullopt;
  for (const platform::FieldDefinition& each : tables_[static_cast<std::size_t>(table)].definition.fields)
    if (platform::EqualsNoCase(each.name, field)) return StoredField{table, each.name, each.type};
  return std::nullopt;
}

}  // namespace printing
