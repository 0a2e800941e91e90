#include <cstring>

#include "platform/values/convert.h"
#include "unit/apps/library/library_fixture.h"

// The look-up of accounts: the library's own, or the host's in its place.
namespace {

using platform::AccountsLookupInput;
using platform::ChosenAccount;

const AccountsLookupInput kAsked = {std::string("Müller") + std::string(34, ' '), 12, 3, 2025, 2, false, false, 0, 0, 0, 0, false};

/// What a host's picker was asked, and what it answers.
struct Picker {
  std::string companyName;
  orcussch_accounts_request request{};
  orcussch_account answer{};
  std::int32_t result = 1;

  static std::int32_t Call(void* data, const orcussch_accounts_request* request, orcussch_account* account) {
    auto& picker = *static_cast<Picker*>(data);
    picker.request = *request;
    picker.companyName = request->company_name;
    *account = picker.answer;
    return picker.result;
  }
};

class AccountsTest : public LibraryTest {
 protected:
  AccountsTest() {
    std::strcpy(picker.answer.account, "22000");
    std::strcpy(picker.answer.department, "100");
    std::strcpy(picker.answer.account_text, "Zölle");
    std::strcpy(picker.answer.department_text, "Plumbing");
  }
  /// The look-up of a library that was made with the host's picker.
  std::unique_ptr<platform::AccountsLookup> WithPicker() {
    orcussch_options options = Options();
    options.accounts_lookup = Picker::Call;
    options.accounts_data = &picker;
    EXPECT_EQ(orcussch_create(&options, &handle), ORCUSSCH_OK) << orcussch_last_error();
    return library::MakeAccounts(given);
  }
  Picker picker;
};

TEST_F(AccountsTest, TheHostsPickerIsAskedAndItsChoiceTaken) {
  const ChosenAccount chosen = WithPicker()->Run(kAsked);
  EXPECT_EQ(picker.companyName, "Müller" + std::string(34, ' '));
  EXPECT_EQ(picker.request.user, 12);
  EXPECT_EQ(picker.request.company, 3);
  EXPECT_EQ(picker.request.year, 2025);
  EXPECT_EQ(picker.request.kind, 2);
  for (const std::int32_t more : picker.request.more) EXPECT_EQ(more, 0);
  EXPECT_TRUE(chosen.chosen);
  EXPECT_EQ(chosen.account, "22000");
  EXPECT_EQ(chosen.department, "100");
  EXPECT_EQ(chosen.accountText, "Zölle");
  EXPECT_EQ(chosen.departmentText, "Plumbing");
}

TEST_F(AccountsTest, APickerThatWasLeftChoosesNothing) {
  picker.result = 0;
  const ChosenAccount chosen = WithPicker()->Run(kAsked);
  EXPECT_FALSE(chosen.chosen);
  EXPECT_EQ(chosen.account, "");
}

TEST_F(AccountsTest, TextsThatAreNoneRaise) {
  const auto lookup = WithPicker();
  std::strcpy(picker.answer.account_text, "Z\xF6lle");
  EXPECT_THROW(lookup->Run(kAsked), platform::Error);
  std::memset(picker.answer.account_text, 'x', sizeof picker.answer.account_text);
  EXPECT_THROW(lookup->Run(kAsked), platform::Error);
}

TEST_F(AccountsTest, WithoutOneTheLibraryShowsItsOwnList) {
  MakeCompany();
  ASSERT_EQ(Create(), ORCUSSCH_OK) << orcussch_last_error();
  EXPECT_FALSE(given.accounts);
  ASSERT_EQ(orcussch_set_number(handle, "UserID", 1), ORCUSSCH_OK);
  ASSERT_EQ(orcussch_set_number(handle, "CompanyID", 1), ORCUSSCH_OK);
  int shown = 0;
  at = [&](const std::string& place) { shown += place == "modal" ? 1 : 0; };
  EXPECT_FALSE(library::MakeAccounts(given)->Run({"Company 1", 1, 1, 2025, 2, false, false, 0, 0, 0, 0, false}).chosen);
  EXPECT_EQ(shown, 1);
}

}  // namespace
