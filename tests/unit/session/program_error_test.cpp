#include "support/session_test.h"

namespace orcussch {
namespace {

using testing::ElementsAre;

class ProgramErrorTest : public SessionTest {};

TEST_F(ProgramErrorTest, OneLogRecordWithSevenValues) {
  gCompanyID = 3;
  gUserID = 12;
  app->SetErr(platform::Error(3021, "No current record."));
  ProgramError("frmCustMain.SQLData", false);
  ASSERT_EQ(log->records.size(), 1U);
  const platform::ErrorRecord& record = log->records[0];
  EXPECT_EQ(record.company, 3);
  EXPECT_FALSE(record.terminate);
  EXPECT_EQ(record.applicationTitle, "The host");
  EXPECT_EQ(record.module, "frmCustMain.SQLData");
  EXPECT_EQ(record.user, 12);
  EXPECT_EQ(record.number, 3021);
  EXPECT_EQ(record.description, "No current record.");
}

TEST_F(ProgramErrorTest, TheRecordIsWrittenBeforeTheUserIsTold) {
  app->SetErr(platform::Error(3021, "No current record."));
  ProgramError("x", false);
  EXPECT_THAT(events.all, ElementsAre("log", "box"));
}

TEST_F(ProgramErrorTest, TheMessageLineByLine) {
  app->SetErr(platform::Error(3024, "Couldn't find file 'x'."));
  ProgramError("modCustSch.OpenFiles", false);
  ASSERT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(frontEnd->boxes[0].text,
            "An error occurred in module: modCustSch.OpenFiles\r"
            "\r"
            "Error: 3024\r"
            "Couldn't find file 'x'.\r"
            "\r"
            "This program will now attempt to resume.");
  EXPECT_EQ(frontEnd->boxes[0].style, 48);
  EXPECT_EQ(frontEnd->boxes[0].title, "Program Execution Error");
}

TEST_F(ProgramErrorTest, TheFlagChangesTheLastSentenceAndTheRecordOnly) {
  app->SetErr(platform::Error(94, "Invalid use of Null"));
  ProgramError("modCustSch.GetCompanyRecord", true);
  EXPECT_EQ(
      frontEnd->boxes[0].text,
      "An error occurred in module: modCustSch.GetCompanyRecord\r\rError: 94\rInvalid use of Null\r\rThis program will now terminate.");
  EXPECT_EQ(frontEnd->boxes[0].style, 48);
  EXPECT_TRUE(log->records[0].terminate);
  EXPECT_EQ(events.all.size(), 2U) << "nothing else happens";
}

TEST_F(ProgramErrorTest, TheValuesAreThoseBeforeTheBox) {
  app->SetErr(platform::Error(94, "Invalid use of Null"));
  frontEnd->onBox = [this] { app->SetErr(platform::Error(5, "later")); };
  ProgramError("x", false);
  EXPECT_EQ(log->records[0].number, 94);
  EXPECT_THAT(frontEnd->boxes[0].text, testing::HasSubstr("Error: 94\rInvalid use of Null\r"));
}

// ---- the shapes of a procedure

class FailuresTest : public SessionTest {};

void Fail(int number) { throw platform::Error(number, "failure " + std::to_string(number)); }

TEST_F(FailuresTest, TrapReportsAndLeaves) {
  bool reached = false;
  EXPECT_FALSE(Trap("a.b", [&] {
    Fail(5);
    reached = true;
  }));
  EXPECT_FALSE(reached);
  EXPECT_THAT(Reports(), ElementsAre("a.b"));
  EXPECT_FALSE(log->records[0].terminate);
  EXPECT_TRUE(Trap("a.b", [&] { reached = true; }));
  EXPECT_TRUE(reached);
  EXPECT_EQ(log->records.size(), 1U);
}

TEST_F(FailuresTest, TrapCanAskForTheOtherWording) {
  Trap(
      "a.b", [] { Fail(5); }, true);
  EXPECT_TRUE(log->records[0].terminate);
}

TEST_F(FailuresTest, TrapWithTakesTheLiteralOfTheMomentOfFailure) {
  std::string name = "before";
  TrapWith([&] { return "literal " + name; },
           [&] {
             name = "after";
             Fail(5);
           });
  EXPECT_THAT(Reports(), ElementsAre("literal after"));
  int asked = 0;
  EXPECT_TRUE(TrapWith(
      [&] {
        ++asked;
        return std::string();
      },
      [] {}));
  EXPECT_EQ(asked, 0);
}

TEST_F(FailuresTest, LackOfMemoryIsAFailureLikeAnyOther) {
  const auto lack = [] { throw std::bad_alloc(); };
  EXPECT_FALSE(Trap("trap", lack));
  EXPECT_FALSE(TrapWith([] { return std::string("trap with"); }, lack));
  int flagged = 0;
  ResumeNext on("resume", [&] { ++flagged; });
  EXPECT_FALSE(on(lack));
  EXPECT_EQ(flagged, 1);
  EXPECT_FALSE(Ignore()(lack));
  EXPECT_THAT(Reports(), testing::ElementsAre("trap", "trap with", "resume"));
  for (const auto& record : log->records) {
    EXPECT_EQ(record.number, 7);
    EXPECT_EQ(record.description, "Out of memory");
  }
}

TEST_F(FailuresTest, ResumeNextGoesOnAfterEachFailure) {
  int flagged = 0;
  ResumeNext on("a.b", [&] { ++flagged; });
  int value = 7;
  EXPECT_FALSE(on([&] {
    Fail(5);
    value = 8;
  }));
  EXPECT_EQ(value, 7) << "what a failed statement should have set keeps what it held";
  EXPECT_TRUE(on([&] { value = 9; }));
  EXPECT_FALSE(on([] { Fail(6); }));
  EXPECT_EQ(value, 9);
  EXPECT_EQ(flagged, 2);
  EXPECT_THAT(Reports(), ElementsAre("a.b", "a.b"));
  EXPECT_EQ(log->records[1].number, 6);
}

TEST_F(FailuresTest, IgnoreSaysNothing) {
  const Ignore on;
  EXPECT_FALSE(on([] { Fail(5); }));
  EXPECT_TRUE(on([] {}));
  EXPECT_TRUE(events.all.empty());
}

TEST_F(FailuresTest, ATrapInsideATrapTakesTheFailureItself) {
  bool wentOn = false;
  Trap("outer", [&] {
    Trap("inner", [] { Fail(5); });
    wentOn = true;
  });
  EXPECT_TRUE(wentOn);
  EXPECT_THAT(Reports(), ElementsAre("inner"));
}

}  // namespace
}  // namespace orcussch
