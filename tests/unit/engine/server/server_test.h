#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/store/postgres/open_file.h"
#include "engine/store/postgres/postgres_store.h"
#include "engine/store/query.h"
#include "support/test_server.h"
#include "unit/engine/support/engine_fixture.h"

/// An empty database of its own for each test, and connections to it.
class ServerTest : public testing::Test {
 protected:
  ServerTest() : server_(TestServer::Shared()) {
    static int number = 0;
    database_ = "test" + std::to_string(++number);
    server_.CreateDatabase(database_);
    // The client library's own way to name a user.
    ::setenv("PGUSER", "office", 1);
  }
  ~ServerTest() override { server_.DropDatabase(database_); }

  std::string Path(const std::string& file) const { return server_.PathOf(database_) + "orv1/" + file; }
  engine::postgres::Target TargetOf(const std::string& file) const { return engine::postgres::ParseTarget(Path(file)); }
  static engine::postgres::Patience Short() { return {.lock = 150, .connect = 5'000, .silence = 5'000}; }

  /// For a desk that must see at once what programs do that tell nobody of it.
  static engine::postgres::Patience Asking() { return {.lock = 150, .connect = 5'000, .silence = 5'000, .asks = true}; }

  /// What another program does or sees.
  std::string Other(const std::string& sql) const { return server_.Run(database_, sql); }

  /// Makes a file as the tools do.
  void Create(const std::string& file, const std::vector<platform::TableDefinition>& tables) {
    engine::postgres::ServerConnection connection(TargetOf(file), Short());
    const std::string schema = TargetOf(file).schema;
    connection.NameSchema(schema, Path(file));
    engine::postgres::CreateServerFile(connection, schema, tables);
  }

  /// The first column of all rows, "Null" for Null.
  static std::vector<std::string> Ask(engine::Channel& channel, const std::string& sql) {
    std::vector<std::string> texts;
    engine::Query query(channel, std::string_view(sql));
    while (query.Step()) texts.emplace_back(query.TextOrNull(0).value_or("Null"));
    return texts;
  }
  static void Run(engine::Channel& channel, const std::string& sql) { engine::Query(channel, std::string_view(sql)).Run(); }

  TestServer& server_;
  std::string database_;
};
