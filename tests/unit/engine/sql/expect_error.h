#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "platform/values/error.h"

/// Runs `act` and expects the engine's error of that number; with a text, exactly that description.
template <class Act>
void ExpectError(int number, std::string_view text, const Act& act) {
  try {
    act();
    ADD_FAILURE() << "no error, " << number << " expected";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), number) << error.Description();
    if (!text.empty()) {
      EXPECT_EQ(error.Description(), text);
    }
  }
}
