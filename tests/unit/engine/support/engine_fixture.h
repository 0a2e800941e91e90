#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "engine/data_file.h"
#include "platform/data/table_definition.h"
#include "platform/values/error.h"

/// An empty folder of its own for each test, gone afterwards, and short ways to
/// define tables.
class EngineFolderTest : public testing::Test {
 protected:
  EngineFolderTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "engine-test-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
  }
  ~EngineFolderTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  std::string Path(const std::string& name) const { return folder_ + "/" + name; }

  std::string folder_;
};

inline platform::FieldDefinition TextField(std::string name, int size) {
  return {std::move(name), platform::FieldType::Text, size, platform::Null};
}
inline platform::FieldDefinition Field(std::string name, platform::FieldType type, platform::Value value = platform::Null) {
  return {std::move(name), type, 0, std::move(value)};
}

/// The number of the error that `act` raises, 0 for none.
template <class Act>
int ErrorOf(Act&& act) {
  try {
    act();
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

template <class Act>
std::string DescriptionOf(Act&& act) {
  try {
    act();
  } catch (const platform::Error& error) {
    return error.Description();
  }
  return "";
}
