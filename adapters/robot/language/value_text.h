#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/values/value.h"
#include "robot/language/words.h"

namespace robot {

/// A value as scenarios write it: Boolean "True"/"False", numbers as CStr, dates as short dates, Null "Null", Empty "".
std::string TextOf(const platform::Value& value);

/// A whole text against a pattern of "*" (any run) and "?" (one character); case counts.
bool MatchesPattern(std::string_view text, std::string_view pattern);

/// Whether a value is what a word of an expectation says: a pattern matches its text; a number and a text that is a plain
/// number compare as numbers; everything else by its text.
bool Meets(const platform::Value& actual, const Word& expected);
bool MeetsText(const std::string& actual, const Word& expected);

/// A plain number ("-12.5") of a text; false for anything else.
bool PlainNumber(const std::string& text, double& number);

/// "like "Sm*"", or the text in quotes.
std::string Wanted(const Word& expected);
/// The value for a message: texts in quotes, everything else bare.
std::string Shown(const platform::Value& actual);
/// A list of texts for a message.
std::string ShownList(const std::vector<std::string>& texts);
std::string WantedList(const std::vector<Word>& words);

}  // namespace robot
