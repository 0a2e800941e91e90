#include <iostream>
#include <iterator>

#include "engine/engine.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "suitefiles/commands/row_printer.h"
#include "suitefiles/company/data_access.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"

namespace suitefiles {

namespace {

std::string FirstWord(const std::string& statement) {
  const auto begin = statement.find_first_not_of(" \t\r\n");
  if (begin == std::string::npos) return "";
  std::size_t end = begin;
  while (end < statement.size() && ((statement[end] | 0x20) >= 'a' && (statement[end] | 0x20) <= 'z')) ++end;
  return platform::ToLowerAscii(statement.substr(begin, end - begin));
}

bool IsAction(const std::string& statement) {
  const std::string word = FirstWord(statement);
  return word == "insert" || word == "update" || word == "delete";
}

void PrintRows(platform::Recordset& rows, const CommandLine& line, const Console& console) {
  RowPrinter printer(console.out, line.Has("--csv") ? RowPrinter::Form::Commas : RowPrinter::Form::Tabs);
  const auto& fields = rows.Fields();
  if (!line.Has("--no-header")) {
    std::vector<std::string> names;
    names.reserve(fields.size());
    for (const auto& field : fields) names.push_back(field.name);
    printer.Header(names);
  }
  for (; !rows.Eof(); rows.MoveNext()) {
    std::vector<platform::Value> values;
    values.reserve(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) values.push_back(rows.Field(static_cast<int>(i)));
    printer.Row(values);
  }
}

}  // namespace

int RunSql(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--csv", false}, {"--no-header", false}, {"--skip", false}});
  line.ExpectOperands({"FILE", "STATEMENT"});
  std::string text = line.Operands()[1];
  if (text == "-") text.assign(std::istreambuf_iterator<char>(console.in), {});
  const auto statement = platform::Normalise(text);
  if (!statement) throw UsageError("STATEMENT is not valid UTF-8");

  DataAccess data;
  const auto database = data.Open(line.Operands()[0]);
  if (IsAction(*statement)) {
    database->Execute(*statement, line.Has("--skip") ? engine::kExecuteWholeRows : platform::dbFailOnError);
    console.out << database->RecordsAffected() << (database->RecordsAffected() == 1 ? " row\n" : " rows\n");
    return kDone;
  }
  const auto rows = database->OpenRecordset(platform::Trim(*statement));
  PrintRows(*rows, line, console);
  return kDone;
}

}  // namespace suitefiles
