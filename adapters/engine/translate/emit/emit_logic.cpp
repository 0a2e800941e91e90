#include <algorithm>

#include "engine/translate/emit/emitter.h"

namespace engine {
namespace {

// So many operands stand in one row of the store's; more are grouped, as the store takes a row for a deep tree.
constexpr std::size_t kLongestRow = 100;

std::string JoinRow(const std::vector<std::string>& parts, std::string_view word) {
  std::string row;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) row += word;
    row += parts[i];
  }
  return row;
}

}  // namespace

Emitted Emitter::Not(const sql::Expression& operand) {
  return ConditionText("NOT " + Wrap(ConditionOf(operand), Tightness::Compare), Tightness::Not);
}

Emitted Emitter::LogicChain(std::string_view word, Tightness own, const std::vector<sql::Expression>& operands) {
  const auto tighter = static_cast<Tightness>(static_cast<int>(own) - 1);
  std::vector<std::string> parts;
  parts.reserve(operands.size());
  for (const sql::Expression& operand : operands) parts.push_back(Wrap(ConditionOf(operand), tighter));
  while (parts.size() > kLongestRow) {
    std::vector<std::string> groups;
    for (std::size_t at = 0; at < parts.size(); at += kLongestRow) {
      const std::size_t end = std::min(at + kLongestRow, parts.size());
      const std::vector<std::string> group(parts.begin() + static_cast<std::ptrdiff_t>(at),
                                           parts.begin() + static_cast<std::ptrdiff_t>(end));
      groups.push_back('(' + JoinRow(group, word) + ')');
    }
    parts = std::move(groups);
  }
  return ConditionText(JoinRow(parts, word), own);
}

Emitted Emitter::Logic(const sql::Binary& binary) {
  if (binary.op == sql::BinaryOperator::Imp) {
    const std::string left = Wrap(ConditionOf(*binary.left), Tightness::Compare);
    return ConditionText("NOT " + left + " OR " + Wrap(ConditionOf(*binary.right), Tightness::And), Tightness::Or);
  }
  const std::string_view sign = binary.op == sql::BinaryOperator::Xor ? " <> " : " = ";
  const std::string left = Wrap(forms_.OneOrZero(Emit(*binary.left)), Tightness::Sum);
  const std::string right = Wrap(forms_.OneOrZero(Emit(*binary.right)), Tightness::Sum);
  return ConditionText(left + std::string(sign) + right, Tightness::Compare);
}

}  // namespace engine
