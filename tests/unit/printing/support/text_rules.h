#pragma once

#include <memory>

#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "printing/expressions/text_rules.h"

/// The data engine's order and patterns, as the program hands them in.
inline const printing::TextRules& EngineTextRules() {
  static const printing::TextRules rules{engine::CompareText, [](const std::string& pattern) {
                                           auto like = std::make_shared<engine::LikePattern>(pattern);
                                           return [like](std::string_view text) { return like->Matches(text); };
                                         }};
  return rules;
}
