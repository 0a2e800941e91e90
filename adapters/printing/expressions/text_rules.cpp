#include "printing/expressions/text_rules.h"

namespace printing {
namespace {

std::string Quoted(std::string_view text, std::string_view special) {
  std::string quoted;
  for (const char c : text) {
    if (special.find(c) == std::string_view::npos) {
      quoted += c;
    } else {
      quoted += {'[', c, ']'};
    }
  }
  return quoted;
}

}  // namespace

std::string EnginePattern(std::string_view pattern) { return Quoted(pattern, "#["); }
std::string EnginePatternOfStart(std::string_view start) { return Quoted(start, "#[*?") + '*'; }

}  // namespace printing
