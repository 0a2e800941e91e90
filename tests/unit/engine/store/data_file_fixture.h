#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/data_file.h"
#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "unit/engine/support/engine_fixture.h"

namespace engine {

inline bool noNetwork(const std::string&) { return false; }

inline platform::TableDefinition People() {
  return {"People",
          {Field("ID", platform::FieldType::Counter), TextField("Name", 10), Field("Notes", platform::FieldType::Memo),
           Field("Limit", platform::FieldType::Currency, platform::Currency{15000}), Field("Active", platform::FieldType::Boolean, platform::Value(true)),
           Field("Since", platform::FieldType::Date), Field("Rate", platform::FieldType::Double, platform::Value(0.5)),
           Field("Age", platform::FieldType::Short, platform::Value(std::int16_t{0})), Field("Kind", platform::FieldType::Byte), Field("Boss", platform::FieldType::Long)},
          {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}, {"Pair", {"Boss", "Age"}, true, false}}};
}
inline platform::TableDefinition Codes() { return {"Codes", {TextField("Code", 1), TextField("Text", 20)}, {{"PrimaryKey", {"Code"}, true, true}}}; }

class DataFileTest : public EngineFolderTest {
 protected:
  std::string Make(const std::string& name = "a.zdb", bool workFile = false) {
    const std::vector<platform::TableDefinition> tables{People(), Codes()};
    CreateDataFile(Path(name), tables, workFile);
    return Path(name);
  }
  // What opening the file says.
  int OpenError(const std::string& path, NetworkTest network = noNetwork) {
    return ErrorOf([&] { Open(path, network); });
  }
  std::string OpenDescription(const std::string& path, NetworkTest network = noNetwork) {
    return DescriptionOf([&] { Open(path, network); });
  }
  void Open(const std::string& path, NetworkTest network) {
    Connection connection(100);
    DataFiles files(connection, network);
    files.Open(path);
  }
  void Write(const std::string& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }
};

}  // namespace engine
