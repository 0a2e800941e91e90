#include <random>
#include <regex>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "support/every_control.h"

// What people type, correct and paste into edits of figures, and what is read from them.
namespace {

using platform::Currency;

constexpr char32_t kBackspace = 8;

class Figures : public ScreenTest {
 protected:
  platform::NumberEdit& number = screen->txtNumber;
  platform::CurrencyEdit& money = screen->txtMoney;

  static void Replace(platform::TextBox& edit, const char* with) {
    edit.Select(0, edit.Text().size());
    edit.UserPaste(with);
  }
  std::string Pasted(const char* text) {
    Replace(money, text);
    return money.Text();
  }
};

TEST_F(Figures, ASecondPointIsPassedOver) {
  number.UserType("7.5.");
  EXPECT_EQ(number.Text(), "7.5");
  number.Select(1, 0);
  number.UserType(".");
  EXPECT_EQ(number.Text(), "7.5") << "nor in front of the first";
  number.Select(0, 0);
  number.UserType(".");
  EXPECT_EQ(number.Text(), "7.5");
  number.Select(0, 3);
  number.UserType(".25");
  EXPECT_EQ(number.Text(), ".25") << "typed over the first one";
  EXPECT_EQ(number.Value(), 0.25);
}

TEST_F(Figures, TheMinusStandsInFront) {
  number.UserType("5-");
  EXPECT_EQ(number.Text(), "5");
  number.UserType("0-1");
  EXPECT_EQ(number.Text(), "501");
  number.Select(0, 0);
  number.UserType("-");
  EXPECT_EQ(number.Text(), "-501");
  number.Select(0, 0);
  number.UserType("-");
  EXPECT_EQ(number.Text(), "-501");
  number.Select(0, 0);
  number.UserType("3");
  EXPECT_EQ(number.Text(), "-501") << "a digit in front of the minus would make it an inner one";
  number.Select(0, 1);
  number.UserType("3");
  EXPECT_EQ(number.Text(), "3501");
  EXPECT_EQ(number.Value(), 3501);
}

TEST_F(Figures, APasteKeepsWhatMakesAFigure) {
  EXPECT_EQ(Pasted("$1,234.50"), "$1,234.50");
  EXPECT_EQ(money.Value(), (Currency{12'345'000}));
  EXPECT_EQ(Pasted("2.500.00"), "2.50000");
  EXPECT_EQ(money.Value(), (Currency{25'000}));
  EXPECT_EQ(Pasted("--5"), "-5");
  EXPECT_EQ(money.Value(), (Currency{-50'000}));
  EXPECT_EQ(Pasted(" 1 000\t"), "1000");
  EXPECT_EQ(Pasted("2,500.00"), "2,500.00");
  EXPECT_EQ(money.Value(), (Currency{25'000'000}));
  EXPECT_EQ(Pasted("2.500,00"), "2.50000") << "no thousands mark behind the point";
  EXPECT_EQ(Pasted("USD"), "2.50000") << "nothing of it is a figure: text and selection stay";
}

TEST_F(Figures, AnAmountBelowZeroIsPastedAsOne) {
  EXPECT_EQ(Pasted("($1,234.50)"), "-$1,234.50") << "as a list or a report shows it";
  EXPECT_EQ(money.Value(), (Currency{-12'345'000}));
  EXPECT_EQ(Pasted("-$3.00"), "-$3.00");
  EXPECT_EQ(money.Value(), (Currency{-30'000}));
  EXPECT_EQ(Pasted("$-4"), "$-4");
  EXPECT_EQ(money.Value(), (Currency{-40'000}));
  EXPECT_EQ(Pasted("12.50-"), "-12.50") << "as some programs write it";
  EXPECT_EQ(money.Value(), (Currency{-125'000}));
  money.Text("");
  money.UserType("(5)");
  EXPECT_EQ(money.Value(), (Currency{-50'000}));
}

TEST_F(Figures, APasteIntoTheMiddle) {
  number.Text("1.5");
  number.Select(1, 0);
  number.UserPaste("2.75");
  EXPECT_EQ(number.Text(), "1275.5");
  number.Select(4, 2);
  number.UserPaste("-.25");
  EXPECT_EQ(number.Text(), "1275.25");
  EXPECT_EQ(number.Value(), 1275.25);
}

TEST_F(Figures, DeletingAroundThePoint) {
  number.Text("7.5");
  number.Select(1, 0);
  number.UserKey(kBackspace);
  EXPECT_EQ(number.Text(), ".5");
  EXPECT_EQ(number.Value(), 0.5);
  number.UserType("8");
  EXPECT_EQ(number.Text(), "8.5");
  number.Select(1, 0);
  number.UserDelete();
  EXPECT_EQ(number.Text(), "85");
  number.UserType(".");
  EXPECT_EQ(number.Text(), "8.5");
  number.Select(2, 0);
  number.UserDelete();
  EXPECT_EQ(number.Text(), "8.");
  EXPECT_EQ(number.Value(), 8);
}

TEST_F(Figures, WhatCodePutsIsReadFromItsStart) {
  const std::pair<const char*, double> texts[] = {{"7.5.", 7.5},
                                                  {"2,500.00", 2500},
                                                  {"2.500.00", 2.5},
                                                  {"$1,234.50", 1234.5},
                                                  {"(1,234.5)", -1234.5},
                                                  {"--5", 0},
                                                  {"5-3", 5},
                                                  {" 12 ", 12},
                                                  {"ten", 0},
                                                  {"", 0},
                                                  {"-", 0},
                                                  {".", 0},
                                                  {"1e3", 1000},
                                                  {"12abc", 12}};
  for (const auto& [text, value] : texts) {
    number.Text(text);
    EXPECT_EQ(number.Value(), value) << text;
    money.Text(text);
    EXPECT_EQ(money.Value(), (Currency{static_cast<std::int64_t>(value * 10'000)})) << text;
  }
}

TEST_F(Figures, AnAmountIsExact) {
  money.Text("922,337,203,685,477.5807");
  EXPECT_EQ(money.Value(), (Currency{9'223'372'036'854'775'807}));
  money.Text("0.00005");
  EXPECT_EQ(money.Value(), Currency{}) << "halves go to the even neighbour";
  money.Text("0.00015");
  EXPECT_EQ(money.Value(), (Currency{2}));
}

TEST_F(Figures, AnAmountBeyondAllFieldsIsAnErrorAndNoZero) {
  money.Text("922337203685477.5808");
  EXPECT_THROW(money.Value(), platform::Error);
  EXPECT_EQ(money.DisplayText(), "922337203685477.5808");
  number.Text(std::string(400, '9'));
  EXPECT_THROW(number.Value(), platform::Error);
  EXPECT_EQ(number.DisplayText(), number.Text());
}

TEST_F(Figures, WhatIsShownIsWhatIsRead) {
  money.Text("2.500.00");
  EXPECT_EQ(money.DisplayText(), "$2.50");
  money.Text("-$1,000");
  EXPECT_EQ(money.DisplayText(), "($1,000.00)");
  number.Text("7.5.");
  EXPECT_EQ(number.DisplayText(), "7.5000");
  number.Text("ten");
  EXPECT_EQ(number.DisplayText(), "ten");
  number.Text("-");
  EXPECT_EQ(number.DisplayText(), "-");
}

// Whatever is done with keys and the clipboard, the text stays a figure and is read whole.
TEST_F(Figures, AnyRunOfActsLeavesAFigure) {
  std::mt19937 random(20260);
  const auto upTo = [&](std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(random); };
  const std::u32string keys = U"0123456789.,-$()x ";
  const char* const pastes[] = {"$1,234.50", "2.500.00", "--5", "-7", "(3.25)", "12.50-", ".", "-.5", "9,9", "abc"};
  const std::regex figure("(-?\\$?|\\$-)[0-9,]*(\\.[0-9]*)?");
  for (int act = 0; act < 20'000; ++act) {
    const std::size_t length = money.Text().size();
    const std::size_t start = upTo(length);
    money.Select(start, upTo(3) == 0 ? upTo(length - start) : 0);
    switch (upTo(9)) {
      case 0:
        money.UserPaste(pastes[upTo(std::size(pastes) - 1)]);
        break;
      case 1:
        money.UserDelete();
        break;
      case 2:
      case 3:
        money.UserKey(kBackspace);
        break;
      default:
        money.UserKey(keys[upTo(keys.size() - 1)]);
        break;
    }
    if (money.Text().size() > 14) money.Text("");
    ASSERT_TRUE(std::regex_match(money.Text(), figure)) << money.Text();
    std::string plain;
    for (const char c : money.Text())
      if (c != '$' && c != ',') plain += c;
    if (platform::IsNumeric(plain)) {
      ASSERT_EQ(money.Value(), platform::CCur(plain)) << money.Text();
    }
  }
}

}  // namespace
