#pragma once

#include <map>
#include <string>
#include <vector>

#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/store.h"

namespace engine::postgres {

/// One file of a company on a server: a schema.
class ServerFile final : public StoreFile {
 public:
  ServerFile(ServerConnection& connection, std::string schema, std::string path, bool readOnly);

  const std::string& Path() const override { return path_; }
  const std::string& Qualifier() const override { return schema_; }
  bool ReadOnly() const override { return readOnly_; }

  std::int64_t OthersVersion() override { return connection_.OthersVersion(); }
  std::uint64_t OwnVersion() const override { return connection_.Writes(schema_); }
  std::int64_t SchemaVersion() override;

  std::vector<std::string> TableNames() override;
  std::string StoredName(std::string_view table) override;
  platform::TableDefinition ReadTable(const std::string& storedName) override;
  std::string RowKeyOf(const platform::TableDefinition& table) const override { return postgres::RowKeyOf(table); }
  std::int64_t TakeNumber(const platform::TableDefinition& table) override;
  void NumbersGiven(const platform::TableDefinition& table) override;

  std::vector<StoredLink> Links() override;
  void AddLink(const StoredLink& link) override;

 private:
  const std::vector<StoredTable>& Tables();
  std::string Own(std::string_view name) const;
  std::string HighestNumber(const platform::TableDefinition& table) const;

  ServerConnection& connection_;
  std::string schema_;
  std::string path_;
  bool readOnly_;
  std::int64_t version_ = 0;  ///< of the definitions; asked for at the two states below
  bool versionKnown_ = false;
  std::int64_t versionOthers_ = 0;
  std::uint64_t versionWrites_ = 0;
  std::vector<StoredTable> tables_;  ///< of that version
  std::int64_t tablesVersion_ = 0;
  bool tablesKnown_ = false;
};

}  // namespace engine::postgres
