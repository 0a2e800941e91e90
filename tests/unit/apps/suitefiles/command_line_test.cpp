#include "suitefiles/program/command_line.h"

#include <gtest/gtest.h>

namespace {

using suitefiles::CommandLine;
using suitefiles::UsageError;

TEST(CommandLine, TakesOptionsInBothForms) {
  const CommandLine line({"a", "--one", "1", "--two=2", "--flag", "b"}, {{"--one", true}, {"--two", true}, {"--flag", false}});
  EXPECT_EQ(line.Operands(), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(line.Number("--one", 0, 9), 1);
  EXPECT_EQ(line.Value("--two"), "2");
  EXPECT_TRUE(line.Has("--flag"));
  EXPECT_FALSE(line.Has("--other"));
  EXPECT_EQ(line.Number("--other", 0, 9), std::nullopt);
}

TEST(CommandLine, TwoDashesEndTheOptions) {
  const CommandLine line({"--", "--one", "-"}, {{"--one", true}});
  EXPECT_EQ(line.Operands(), (std::vector<std::string>{"--one", "-"}));
}

TEST(CommandLine, RefusesWhatItDoesNotKnow) {
  EXPECT_THROW(CommandLine({"--what"}, {{"--one", true}}), UsageError);
  EXPECT_THROW(CommandLine({"--one"}, {{"--one", true}}), UsageError);
  EXPECT_THROW(CommandLine({"--one", "1", "--one", "2"}, {{"--one", true}}), UsageError);
  EXPECT_THROW(CommandLine({"--flag=1"}, {{"--flag", false}}), UsageError);
}

TEST(CommandLine, NumbersMustBeWholeAndInRange) {
  for (const char* wrong : {"", "x", "1x", "1.5", "-1", "10", "99999999999999999999"}) {
    const CommandLine line({"--one", wrong}, {{"--one", true}});
    EXPECT_THROW(line.Number("--one", 0, 9), UsageError) << wrong;
  }
  EXPECT_THROW(CommandLine({}, {{"--one", true}}).RequiredNumber("--one", 0, 9), UsageError);
}

TEST(CommandLine, CountsOperands) {
  EXPECT_THROW(CommandLine({}, {}).ExpectOperands({"DIR"}), UsageError);
  EXPECT_THROW(CommandLine({"a", "b"}, {}).ExpectOperands({"DIR"}), UsageError);
  EXPECT_NO_THROW(CommandLine({"a"}, {}).ExpectOperands({"DIR"}));
}

}  // namespace
