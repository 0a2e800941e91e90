#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "engine/sql/parser.h"
#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "platform/values/text.h"
#include "printing/data/conditions.h"
#include "printing/data/report_names.h"
#include "printing/definition/report_file.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/parser.h"

// Any text as a selection: only its own error comes out; it is true or false for a row of values and for one of Nulls; what is written
// for the store can be read there; negated it takes the other rows.

namespace {

using platform::FieldType;
using platform::Value;

[[noreturn]] void Die(std::string_view what, std::string_view text) {
  std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(what.size()), what.data(), static_cast<int>(text.size()), text.data());
  std::abort();
}

platform::FieldDefinition Field(const char* name, FieldType type) {
  platform::FieldDefinition field;
  field.name = name;
  field.type = type;
  return field;
}

class OneTable final : public platform::SnapshotReader {
 public:
  OneTable() {
    table_.name = "C";
    table_.fields = {Field("N", FieldType::Long),  Field("T", FieldType::Text),    Field("M", FieldType::Memo),
                     Field("D", FieldType::Date),  Field("B", FieldType::Boolean), Field("A", FieldType::Currency),
                     Field("R", FieldType::Double)};
  }
  std::optional<platform::TableDefinition> FindTable(std::string_view, std::string_view) override { return table_; }
  std::unique_ptr<platform::RowStream> OpenRows(std::string_view, std::string_view) override { return nullptr; }
  void OnWait(std::function<bool()>) override {}

 private:
  platform::TableDefinition table_;
};

class Fuzzer {
 public:
  Fuzzer()
      : report_(printing::ReadReportFile(
            "report 1\ntable C file \"c\"\nformula F text \"f\"\nformula G number {C.N} + 1\nband detail height 1\n",
            [](const std::string&) { return std::string(); })) {
    services_.kindOf = [](const std::string&) { return printing::DataFileKind::Kept; };
    services_.text = {engine::CompareText, [](const std::string& pattern) {
                        auto like = std::make_shared<engine::LikePattern>(pattern);
                        return [like](std::string_view text) { return like->Matches(text); };
                      }};
    tables_ = std::make_unique<printing::DataTables>(report_, std::map<int, std::string>{}, services_, reader_);
    for (const char* name : {"N", "T", "M", "D", "B", "A", "R"}) {
      const auto field = tables_->Find("C", name);
      fields_.push_back({0, field->name, printing::TypeOf(field->type)});
    }
    values_ = {Value(7),  Value("text"), Value("memo"), Value(platform::Date{36191.5}), Value(true), Value(platform::Currency{123'400}),
               Value(2.5)};
    nulls_.assign(fields_.size(), platform::Null);
    system_.fill(Value("system"));
    At(system_, printing::SystemValue::Today) = platform::Date{36191};
    At(system_, printing::SystemValue::PageNumber) = At(system_, printing::SystemValue::RecordNumber) = 1.0;
  }

  void Run(std::string_view text) {
    if (!platform::IsValidUtf8(text)) return;
    try {
      const printing::Expression selection = printing::ParseExpression(text);
      printing::ReportNames names(report_, fields_, services_.text, printing::ReportNames::Totals::None);
      const auto ready = printing::MakeReadyCondition(selection, names, services_.text);
      const bool ofValues = ready.IsTrue({values_, {}, &system_});
      ready.IsTrue({nulls_, {}, &system_});
      CheckNegated(text, names, ofValues);
      CheckCondition(selection);
    } catch (const printing::ExpressionError&) {
    }
  }

 private:
  void CheckNegated(std::string_view text, printing::Names& names, bool before) {
    try {
      const auto negated =
          printing::MakeReadyCondition(printing::ParseExpression("Not (" + std::string(text) + ")"), names, services_.text);
      if (negated.IsTrue({values_, {}, &system_}) == before) Die("true with its opposite", text);
    } catch (const printing::ExpressionError& error) {
      if (error.Fault() != printing::ExpressionFault::TooLarge) Die("not to be negated", text);
    }
  }
  void CheckCondition(const printing::Expression& selection) {
    const auto condition = printing::Conditions(report_, *tables_, platform::Date{36191}).ConditionOf(selection);
    if (!condition) return;
    try {
      engine::sql::ParseCriterion(*condition);
    } catch (const platform::Error& error) {
      constexpr int kTooComplex = 3360;
      if (error.Number() != kTooComplex) Die(error.Description(), *condition);
    }
  }

  printing::ReportDefinition report_;
  printing::DataServices services_;
  OneTable reader_;
  std::unique_ptr<printing::DataTables> tables_;
  std::vector<printing::RowField> fields_;
  std::vector<Value> values_, nulls_;
  printing::SystemValues system_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Fuzzer fuzzer;
  fuzzer.Run(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
