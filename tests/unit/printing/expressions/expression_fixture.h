#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "printing/expressions/evaluation/ready_expression.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/parser.h"
#include "unit/printing/support/text_rules.h"

/// A row of a few fields, formulas and a total to evaluate expressions over.
class ExpressionTest : public testing::Test, protected printing::Names {
 protected:
  ExpressionTest() {
    using printing::ValueType;
    AddField("C", "Name", ValueType::Text, "Smith");
    AddField("C", "None", ValueType::Text, platform::Null);
    AddField("C", "Count", ValueType::Number, std::int32_t{7});
    AddField("C", "Balance", ValueType::Number, platform::Currency{123'400});
    AddField("C", "NoNumber", ValueType::Number, platform::Null);
    AddField("C", "Active", ValueType::Boolean, true);
    AddField("C", "NoBoolean", ValueType::Boolean, platform::Null);
    AddField("C", "Since", ValueType::Date, platform::Date{36191});  // 31 January 1999
    AddField("C", "NoDate", ValueType::Date, platform::Null);
    totals_.push_back(12.5);
    printing::At(system_, printing::SystemValue::PageNumber) = 3.0;
    printing::At(system_, printing::SystemValue::PageCount) = "\x01";
    printing::At(system_, printing::SystemValue::RecordNumber) = 1.0;
    printing::At(system_, printing::SystemValue::Today) = platform::Date{36200};
    printing::At(system_, printing::SystemValue::Selection) = "all";
    printing::At(system_, printing::SystemValue::ReportTitle) = "Phones";
  }

  void AddField(const std::string& table, const std::string& name, printing::ValueType type, platform::Value value) {
    fields_.push_back({table + '.' + name, type});
    row_.push_back(std::move(value));
  }
  void AddFormula(const std::string& name, printing::ValueType type, std::string_view text) {
    formulas_[name] = {printing::ParseExpression(text), type};
  }

  platform::Value Of(std::string_view text) {
    const auto ready = printing::MakeReady(printing::ParseExpression(text), *this, EngineTextRules());
    return ready.Evaluate({row_, totals_, &system_});
  }
  std::string TextOf(std::string_view text) {
    const platform::Value value = Of(text);
    if (value.IsNull()) return "Null";
    return value.IsText() ? value.As<std::string>() : platform::CStr(value);
  }
  bool IsTrue(std::string_view text) {
    const auto ready = printing::MakeReadyCondition(printing::ParseExpression(text), *this, EngineTextRules());
    return ready.IsTrue({row_, totals_, &system_});
  }
  /// "fault@place", "" where there is none.
  std::string FaultOf(std::string_view text) {
    try {
      Of(text);
    } catch (const printing::ExpressionError& error) {
      constexpr const char* kFaults[] = {"syntax", "name", "types", "large", "circle"};
      return std::string(kFaults[static_cast<int>(error.Fault())]) + '@' + std::to_string(error.Place());
    }
    return {};
  }

  std::optional<Place> Field(std::string_view table, std::string_view name) override {
    for (std::size_t i = 0; i < fields_.size(); ++i)
      if (platform::EqualsNoCase(fields_[i].first, std::string(table) + '.' + std::string(name))) return Place{i, fields_[i].second};
    return std::nullopt;
  }
  std::optional<Place> Total(std::string_view name) override {
    if (platform::EqualsNoCase(name, "All")) return Place{0, printing::ValueType::Number};
    return std::nullopt;
  }
  FormulaOf Formula(std::string_view name) override {
    const auto found = formulas_.find(std::string(name));
    if (found == formulas_.end()) return {};
    return {&found->second.first, found->second.second};
  }

  std::vector<std::pair<std::string, printing::ValueType>> fields_;
  std::map<std::string, std::pair<printing::Expression, printing::ValueType>> formulas_;
  std::vector<platform::Value> row_;
  std::vector<platform::Value> totals_;
  printing::SystemValues system_;
};
