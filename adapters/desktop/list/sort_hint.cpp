#include "desktop/list/sort_hint.h"

#include "platform/values/text.h"

namespace desktop {

namespace {

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '[')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == ';' || text.back() == ']')) text.remove_suffix(1);
  return text;
}

bool IsPlainField(std::string_view text) { return !text.empty() && text.find_first_of("+-*/()'\"") == std::string_view::npos; }

}  // namespace

std::optional<SortHint> SortHintOf(std::string_view statement) {
  constexpr std::string_view kWords = "order by ";
  const std::string lower = platform::ToLowerAscii(statement);
  const auto at = lower.rfind(kWords);
  if (at == std::string::npos) return {};
  constexpr std::string_view kDown = " desc";
  const std::string_view order = statement.substr(at + kWords.size());
  std::string_view term = Trimmed(order.substr(0, order.find(',')));
  const bool descending = platform::ToLowerAscii(term).ends_with(kDown);
  if (descending) term = Trimmed(term.substr(0, term.size() - kDown.size()));
  if (const auto dot = term.rfind('.'); dot != std::string_view::npos) term = Trimmed(term.substr(dot + 1));
  if (!IsPlainField(term)) return {};
  return SortHint{std::string(term), descending};
}

}  // namespace desktop
