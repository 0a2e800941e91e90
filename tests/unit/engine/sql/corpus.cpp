#include "unit/engine/sql/corpus.h"

#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include "engine/sql/date_literal.h"

namespace corpus {
namespace {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

[[noreturn]] void Fail(const std::string& what, const std::string& text) { throw std::runtime_error(what + ": " + text); }

std::vector<std::string> ReadLines(const std::string& name) {
  std::ifstream file(std::string(ORCUSSCH_TEST_DIR) + "/engine/" + name);
  if (!file) Fail("can't read", name);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

// "word the rest" in its two parts.
std::pair<std::string, std::string> SplitWord(const std::string& line) {
  const std::size_t blank = line.find(' ');
  if (blank == std::string::npos) return {line, ""};
  return {line.substr(0, blank), line.substr(blank + 1)};
}

std::vector<std::string> SplitWords(const std::string& text) {
  std::vector<std::string> words;
  for (std::pair<std::string, std::string> split = SplitWord(text); !split.first.empty(); split = SplitWord(split.second)) {
    words.push_back(split.first);
  }
  return words;
}

// Cells parted by " | " outside quotes.
std::vector<std::string> SplitCells(const std::string& text) {
  std::vector<std::string> cells{""};
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (!quoted && text.compare(i, 3, " | ") == 0) {
      cells.emplace_back();
      i += 2;
    } else {
      cells.back() += text[i];
    }
  }
  return cells;
}

double Number(const std::string& text) {
  double number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ptr != text.data() + text.size()) Fail("no number", text);
  return number;
}

Value Cell(const std::string& text, FieldType type) {
  if (text == "Null") return platform::Null;
  if (text == "True" || text == "False") return text == "True";
  switch (text.front()) {
    case '\'': {
      std::string content;
      for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        content += text[i];
        if (text[i] == '\'') ++i;
      }
      return content;
    }
    case '#':
      return *engine::sql::ReadDateLiteral(text.substr(1, text.size() - 2));
    case '$':
      return platform::Currency{std::llround(Number(text.substr(1)) * 10'000)};
    default:
      break;
  }
  const double number = Number(text);
  switch (type) {
    case FieldType::Byte:
      return static_cast<std::uint8_t>(number);
    case FieldType::Short:
      return static_cast<std::int16_t>(number);
    case FieldType::Double:
      return number;
    default:
      return static_cast<std::int32_t>(number);
  }
}

platform::FieldDefinition FieldOf(const std::string& name, const std::string& type) {
  platform::FieldDefinition field{.name = name};
  const std::map<std::string, FieldType> types{
      {"BOOLEAN", FieldType::Boolean}, {"BYTE", FieldType::Byte},       {"SHORT", FieldType::Short},
      {"LONG", FieldType::Long},       {"COUNTER", FieldType::Counter}, {"CURRENCY", FieldType::Currency},
      {"DOUBLE", FieldType::Double},   {"DATE", FieldType::Date},       {"MEMO", FieldType::Memo}};
  if (type.starts_with("TEXT(")) {
    field.type = FieldType::Text;
    field.size = static_cast<int>(Number(type.substr(5, type.size() - 6)));
  } else if (const auto found = types.find(type); found != types.end()) {
    field.type = found->second;
  } else {
    Fail("unknown type", type);
  }
  return field;
}

platform::IndexDefinition IndexOf(const std::string& text) {
  const std::vector<std::string> words = SplitWords(text);
  platform::IndexDefinition index{.name = words.at(0), .fields = {""}};
  for (const char c : words.at(1)) {
    if (c == ',') {
      index.fields.emplace_back();
    } else {
      index.fields.back() += c;
    }
  }
  const std::string kind = words.size() > 2 ? words[2] : "";
  index.unique = kind == "unique" || kind == "primary";
  index.primary = kind == "primary";
  return index;
}

std::vector<Value> RowOf(const std::string& text, const platform::TableDefinition& definition) {
  const std::vector<std::string> cells = SplitCells(text);
  if (cells.size() != definition.fields.size()) Fail("row of another width", text);
  std::vector<Value> row;
  for (std::size_t i = 0; i < cells.size(); ++i) row.push_back(Cell(cells[i], definition.fields[i].type));
  return row;
}

Failure FailureOf(const std::string& text) {
  const auto [number, rest] = SplitWord(text);
  return {static_cast<int>(Number(number)), rest};
}

Find FindOf(const std::string& text) {
  const std::size_t arrow = text.rfind(" => ");
  if (arrow == std::string::npos) Fail("no result", text);
  Find find{.criterion = text.substr(0, arrow), .error = {}};
  const std::string result = text.substr(arrow + 4);
  if (result.starts_with("error ")) {
    find.error = FailureOf(result.substr(6));
  } else if (result != "none") {
    find.place = static_cast<int>(Number(result));
  }
  return find;
}

void AddLine(Case& test, const std::string& word, const std::string& rest) {
  if (word == "on") {
    test.file = rest;
  } else if (word == "sql") {
    test.sql += rest;
  } else if (word == "print") {
    test.print = rest;
  } else if (word == "columns") {
    test.columns = SplitCells(rest);
  } else if (word == "row") {
    if (!test.rows) test.rows.emplace();
    test.rows->push_back(rest);
  } else if (word == "no" && rest == "rows") {
    test.rows.emplace();
  } else if (word == "error") {
    test.error = FailureOf(rest);
  } else if (word == "affected") {
    test.affected = static_cast<int>(Number(rest));
  } else if (word == "find") {
    test.finds.push_back(FindOf(rest));
  } else if (word == "then") {
    test.then = rest;
  } else if (word == "in") {
    test.thenFile = rest;
  } else {
    Fail("unknown line", word + ' ' + rest);
  }
}

std::string ShowReal(double number) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  std::string text(buffer.data(), end);
  return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

std::string ShowAmount(std::int64_t tenThousandths) {
  std::string digits = std::to_string(tenThousandths < 0 ? -tenThousandths : tenThousandths);
  if (digits.size() < 5) digits.insert(0, 5 - digits.size(), '0');
  digits.insert(digits.size() - 4, ".");
  while (digits.back() == '0') digits.pop_back();
  if (digits.back() == '.') digits.pop_back();
  return (tenThousandths < 0 ? "$-" : "$") + digits;
}

}  // namespace

Fixture ReadFixture() {
  Fixture fixture;
  for (const std::string& line : ReadLines("fixture.sqltest")) {
    if (line.empty() || line.front() == '#') continue;
    const auto [word, rest] = SplitWord(line);
    if (word == "file") {
      fixture.files.push_back({.name = rest, .tables = {}});
    } else if (word == "table") {
      fixture.files.back().tables.push_back({.definition = {.name = rest, .fields = {}, .indexes = {}}, .rows = {}});
    } else if (word == "field") {
      const auto [name, type] = SplitWord(rest);
      fixture.files.back().tables.back().definition.fields.push_back(FieldOf(name, type));
    } else if (word == "index") {
      fixture.files.back().tables.back().definition.indexes.push_back(IndexOf(rest));
    } else if (word == "row") {
      Table& table = fixture.files.back().tables.back();
      table.rows.push_back(RowOf(rest, table.definition));
    } else if (word == "link") {
      const std::vector<std::string> words = SplitWords(rest);
      fixture.links.push_back({.name = words.at(0), .file = words.at(1), .table = words.at(2)});
    } else {
      Fail("unknown line", line);
    }
  }
  return fixture;
}

std::vector<Case> ReadCases() {
  std::vector<Case> cases;
  int number = 0;
  for (const std::string& line : ReadLines("statements.sqltest")) {
    ++number;
    if (line.empty() || line.front() == '#') continue;
    const auto [word, rest] = SplitWord(line);
    if (word == "==") {
      Case test;
      test.name = rest;
      test.line = number;
      cases.push_back(std::move(test));
    } else {
      AddLine(cases.back(), word, rest);
    }
  }
  return cases;
}

std::string WithPaths(std::string text, const std::map<std::string, std::string>& paths) {
  for (const auto& [name, path] : paths) {
    const std::string mark = '{' + name + '}';
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + path.size())) {
      text.replace(at, mark.size(), path);
    }
  }
  return text;
}

std::string Show(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Boolean:
      return value.As<bool>() ? "True" : "False";
    case ValueKind::Byte:
      return std::to_string(value.As<std::uint8_t>());
    case ValueKind::Short:
      return std::to_string(value.As<std::int16_t>());
    case ValueKind::Long:
      return std::to_string(value.As<std::int32_t>());
    case ValueKind::Currency:
      return ShowAmount(value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return ShowReal(value.As<double>());
    case ValueKind::Date:
      return '#' + engine::sql::PrintDateLiteral(value.As<platform::Date>()) + '#';
    case ValueKind::Text: {
      std::string text = "'";
      for (const char c : value.As<std::string>()) text += c == '\'' ? std::string("''") : std::string(1, c);
      return text + '\'';
    }
    default:
      return "Null";
  }
}

std::string ShowRow(const std::vector<Value>& cells) {
  std::string text;
  for (const Value& cell : cells) text += (text.empty() ? "" : " | ") + Show(cell);
  return text;
}

}  // namespace corpus
