#include "unit/engine/support/memory_store/tables.h"

namespace memory_store {

File& Disk::Create(const std::string& path, const std::vector<platform::TableDefinition>& tables) {
  auto file = std::make_shared<File>();
  file->path = path;
  file->qualifier = "company " + std::to_string(files_.size() + 1);
  for (const auto& definition : tables) {
    file->tables.push_back(std::make_unique<Table>());
    file->tables.back()->definition = definition;
  }
  files_.push_back(file);
  return *file;
}

std::shared_ptr<File> Disk::Find(const std::string& path) const {
  for (const auto& file : files_)
    if (file->path == path) return file;
  return nullptr;
}

std::shared_ptr<File> Disk::WithQualifier(const std::string& qualifier) const {
  for (const auto& file : files_)
    if (file->qualifier == qualifier) return file;
  return nullptr;
}

const engine::Dialect& OwnDialect() {
  static const engine::Dialect dialect{
      .nameQuote = '`',
      .textQuote = '\'',
      .parameterSign = "$",
      .endless = "ENDLESS",
      .realType = "DECIMAL",
      .alongIndex = "",  // takes no hints
      .withoutIndex = "",
      .collation = "OFFICE",
      .like = "matches",
      .functionPrefix = "fn_",
      .cellPrefix = "cell_",
      .cellBegin = "start",
      .cell = "end",
      .joinInOrder = " JOIN IN ORDER ",
      .least = "LEAST",
      .greatest = "GREATEST",
      .nullsAscending = " NULLS FIRST",  // without these words they come last
      .nullsDescending = " NULLS LAST",
      .insertLenient = "INSERT WHERE POSSIBLE INTO",
      .updateLenient = "UPDATE WHERE POSSIBLE",
      .nesting = 40,
  };
  return dialect;
}

}  // namespace memory_store
