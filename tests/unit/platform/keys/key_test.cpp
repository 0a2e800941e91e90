#include "platform/keys/key.h"

#include <gtest/gtest.h>

namespace {

using platform::KeyNamed;
using platform::NameOf;
using platform::TypedBy;
using platform::WithoutShift;

TEST(KeyNames, ModifiersComeInOneOrderAndNamesInTheirOwnLetters) {
  EXPECT_EQ(NameOf(*KeyNamed("shift+CTRL+alt+enter")), "Ctrl+Alt+Shift+Enter");
  EXPECT_EQ(NameOf(*KeyNamed("ctrl+s")), "Ctrl+S");
  EXPECT_EQ(NameOf(*KeyNamed("alt+f4")), "Alt+F4");
  EXPECT_EQ(NameOf(*KeyNamed("pagedown")), "PageDown");
}

TEST(KeyNames, CharactersStayAsTheyAre) {
  EXPECT_EQ(NameOf(*KeyNamed("a")), "a");
  EXPECT_EQ(NameOf(*KeyNamed("Shift+a")), "Shift+a");
  EXPECT_EQ(NameOf(*KeyNamed("\xC3\xA9")), "\xC3\xA9");
}

TEST(KeyNames, WhatNoKeyboardHasIsNoKey) {
  for (const char* name : {"", "Hyper", "F13", "Ctrl+", "ab", "Ctrl+Alt"}) EXPECT_FALSE(KeyNamed(name)) << name;
}

TEST(KeyNames, WhatAKeyTypes) {
  EXPECT_EQ(TypedBy("a"), "a");
  EXPECT_EQ(TypedBy("Shift+a"), "A");
  EXPECT_EQ(TypedBy("Space"), " ");
  EXPECT_EQ(TypedBy("Plus") + TypedBy("Minus") + TypedBy("Comma"), "+-,");
  EXPECT_EQ(TypedBy("\xC3\xA9"), "\xC3\xA9");
  for (const char* key : {"Enter", "Ctrl+A", "Alt+A", "F3", "Shift+Enter", ""}) EXPECT_EQ(TypedBy(key), "") << key;
}

TEST(KeyNames, WithoutShift) {
  EXPECT_EQ(WithoutShift("Shift+Up"), "Up");
  EXPECT_EQ(WithoutShift("Ctrl+Shift+Home"), "Ctrl+Home");
  EXPECT_EQ(WithoutShift("Ctrl+Home"), "Ctrl+Home");
}

}  // namespace
