#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>

#include "engine/errors.h"
#include "engine/store/sqlite/dialect.h"
#include "engine/translate/names/catalogue.h"
#include "platform/values/text.h"
#include "unit/engine/sql/corpus.h"

/// The corpus' small company without any file behind it. Files are known by their bare names: IN 'temp.zdb'.
class FakeCatalogue final : public engine::Catalogue {
 public:
  explicit FakeCatalogue(const corpus::Fixture& fixture = corpus::ReadFixture()) {
    int number = 0;
    for (const corpus::DataFile& file : fixture.files) {
      ++number;
      for (const corpus::Table& table : file.tables) Add(file.name, number, table.definition);
    }
    first_ = fixture.files.front().name;
    for (const corpus::Link& link : fixture.links) {
      tables_.push_back(*FindTable(link.table, link.file));
      tables_.back().linked = true;
      names_[Key(first_, link.name)] = &tables_.back();
    }
  }

  /// Statements run on that file from now on.
  void OpenFile(const std::string& name) { first_ = name; }

  const engine::ResolvedTable* FindTable(std::string_view name) override { return FindTable(name, first_); }

  const engine::ResolvedTable* FindTable(std::string_view name, std::string_view inFile) override {
    if (!files_.contains(std::string(inFile))) throw engine::errors::FileNotFound(inFile);
    const auto found = names_.find(Key(inFile, name));
    return found == names_.end() ? nullptr : found->second;
  }

 private:
  static std::string Key(std::string_view file, std::string_view name) { return std::string(file) + '/' + platform::ToLowerAscii(name); }

  void Add(const std::string& file, int number, const platform::TableDefinition& definition) {
    std::string key = "~key";
    for (const platform::FieldDefinition& field : definition.fields) {
      if (field.type == platform::FieldType::Counter) key = field.name;
    }
    tables_.push_back({.definition = definition,
                       .storeName = "\"f" + std::to_string(number) + "\"." + engine::QuoteName(definition.name),
                       .rowKey = engine::QuoteName(key),
                       .linked = false});
    names_[Key(file, definition.name)] = &tables_.back();
    files_[file] = number;
  }

  std::deque<engine::ResolvedTable> tables_;
  std::map<std::string, const engine::ResolvedTable*> names_;
  std::map<std::string, int> files_;
  std::string first_;
};
