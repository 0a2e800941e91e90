#pragma once

#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// The statement corpus and its small company: the files tests/engine/*.sqltest, whose heads say how they are written.
namespace corpus {

struct Table {
  platform::TableDefinition definition;
  std::vector<std::vector<platform::Value>> rows;
};

struct Link {
  std::string name;
  std::string file;
  std::string table;
};

struct DataFile {
  std::string name;
  std::vector<Table> tables;
};

struct Fixture {
  std::vector<DataFile> files;  ///< the first is the one that is opened
  std::vector<Link> links;
};

struct Failure {
  int number = 0;
  std::string text;  ///< "" when only the number counts
};

struct Find {
  std::string criterion;
  int place = 0;  ///< 0: none
  std::optional<Failure> error;
};

struct Case {
  std::string name;
  int line = 0;
  std::string file;  ///< "" for the first
  std::string sql;
  std::string print;
  std::optional<Failure> error;
  std::optional<int> affected;
  std::vector<Find> finds;
  std::string then;
  std::string thenFile;
  std::optional<std::vector<std::string>> columns;
  std::optional<std::vector<std::string>> rows;  ///< each as ShowRow writes it
};

inline std::ostream& operator<<(std::ostream& stream, const Case& test) { return stream << "line " << test.line; }

Fixture ReadFixture();
std::vector<Case> ReadCases();

/// The text with each {name} replaced by what `pathOf` gives for it.
std::string WithPaths(std::string text, const std::map<std::string, std::string>& paths);

std::string Show(const platform::Value& value);
std::string ShowRow(const std::vector<platform::Value>& cells);

}  // namespace corpus
