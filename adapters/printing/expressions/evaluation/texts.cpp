#include "printing/expressions/evaluation/texts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "platform/values/text.h"
#include "printing/expressions/evaluation/numbers.h"

namespace printing {
namespace {

using platform::Null;
using platform::Value;

// Far beyond what a page can show; a formula that doubles its text again and again ends here.
constexpr std::size_t kLongestText = std::size_t{1} << 20;

// Cut at a character's begin.
void CutToLongest(std::string& text) {
  if (text.size() <= kLongestText) return;
  std::size_t end = kLongestText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  text.resize(end);
}

class Join final : public Node {
 public:
  explicit Join(std::vector<NodePtr> operands) : Node(ValueType::Text), operands_(std::move(operands)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    std::string text;
    for (const NodePtr& operand : operands_) {
      Value operandRoom;
      const Value& value = operand->Get(state, operandRoom);
      if (value.IsText())
        text += value.As<std::string>();
      else
        text += PlainText(value);
      CutToLongest(text);
    }
    return room = std::move(text);
  }

 private:
  std::vector<NodePtr> operands_;
};

class TextChange final : public Node {
 public:
  TextChange(Function function, NodePtr text) : Node(ValueType::Text), function_(function), text_(std::move(text)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    const Value& value = text_->Get(state, room);
    if (!value.IsText()) return room = Null;
    const std::string& text = value.As<std::string>();
    std::string changed = function_ == Function::Trim ? platform::Trim(text) : platform::UCase(text);
    return room = std::move(changed);
  }

 private:
  Function function_;
  NodePtr text_;
};

class TextPart final : public Node {
 public:
  TextPart(Function function, NodePtr text, NodePtr count)
      : Node(ValueType::Text), function_(function), text_(std::move(text)), count_(std::move(count)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    constexpr double kMost = 1e9;
    Value countRoom;
    const Value& value = text_->Get(state, room);
    const Value& count = count_->Get(state, countRoom);
    if (!value.IsText() || !count.IsNumber()) return room = Null;
    const int characters = static_cast<int>(std::clamp(NumberOf(count), 0.0, kMost));
    const std::string& text = value.As<std::string>();
    std::string part = function_ == Function::Left ? platform::Left(text, characters) : platform::Right(text, characters);
    return room = std::move(part);
  }

 private:
  Function function_;
  NodePtr text_, count_;
};

class Length final : public Node {
 public:
  explicit Length(NodePtr text) : Node(ValueType::Number), text_(std::move(text)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    const Value& value = text_->Get(state, room);
    if (!value.IsText()) return room = Null;
    return room = static_cast<double>(platform::CharacterCount(value.As<std::string>()));
  }

 private:
  NodePtr text_;
};

class ToText final : public Node {
 public:
  ToText(NodePtr value, NodePtr format) : Node(ValueType::Text), value_(std::move(value)), format_(std::move(format)) {}

  const Value& Get(const EvaluationState& state, Value& room) const override {
    const Value& value = value_->Get(state, room);
    std::string text = Of(state, value);
    return room = std::move(text);
  }

 private:
  std::string Of(const EvaluationState& state, const Value& value) const {
    if (format_ == nullptr) return PlainText(value);
    Value formatRoom;
    const Value& format = format_->Get(state, formatRoom);
    if (!format.IsText()) return PlainText(value);
    try {
      return platform::Format(value, format.As<std::string>());
    } catch (const platform::Error&) {
      return PlainText(value);
    }
  }

  NodePtr value_, format_;
};

}  // namespace

std::string PlainText(const Value& value) {
  if (value.IsNull() || value.IsEmpty()) return {};
  if (value.IsText()) return value.As<std::string>();
  return platform::CStr(value);
}

NodePtr MakeJoin(std::vector<NodePtr> operands) { return std::make_unique<Join>(std::move(operands)); }
NodePtr MakeTextChange(Function function, NodePtr text) { return std::make_unique<TextChange>(function, std::move(text)); }
NodePtr MakeTextPart(Function function, NodePtr text, NodePtr count) {
  return std::make_unique<TextPart>(function, std::move(text), std::move(count));
}
NodePtr MakeLength(NodePtr text) { return std::make_unique<Length>(std::move(text)); }
NodePtr MakeToText(NodePtr value, NodePtr format) { return std::make_unique<ToText>(std::move(value), std::move(format)); }

}  // namespace printing
