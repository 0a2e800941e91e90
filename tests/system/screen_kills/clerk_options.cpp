#include <iterator>

#include "system/screen_kills/clerk.h"

// The user's own options.
namespace system_test {
namespace {

struct Field {
  const char* name;
  const char* tab;
  const char* field;
};

constexpr Field kFields[] = {{"Last Name", "0", "0"},         {"Phone", "0", "7"},
                             {"Customer Types", "1", "4"},    {"Min Current Balance", "2", "0"},
                             {"Max Paid To Date", "2", "11"}, {"Max Last Payment Date", "3", "9"}};

/// The table has no key of its own: its rows are told apart by all their fields.
std::string KeyOf(const Row& row) {
  std::string key;
  for (const char* field : {"UserNum", "StartGrid", "QueryTab", "QueryField", "AddPhone"}) key += (key.empty() ? "" : "|") + row.at(field);
  return key;
}

}  // namespace

/// The first save adds the user's row, the others change it.
std::optional<Operation> Clerk::SaveOptions() {
  const Field& field = kFields[static_cast<std::size_t>(Roll(0, static_cast<int>(std::size(kFields)) - 1))];
  const std::string before = Choose("UserStartup");
  const Row row{{"UserNum", "1"}, {"StartGrid", "True"}, {"QueryTab", field.tab}, {"QueryField", field.field}, {"AddPhone", "True"}};
  Operation act;
  act.before = {"click mnuUserStartup", "pick cboQuery " + Quoted(field.name)};
  act.write = {"click cmdSave"};
  act.steps.push_back({[before, row](Books& books) {
                         books.tables["UserStartup"].erase(before);
                         books.tables["UserStartup"].emplace(KeyOf(row), row);
                       },
                       "UserStartup", KeyOf(row)});
  return act;
}

}  // namespace system_test
