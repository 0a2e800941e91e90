#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "support/session_test.h"

/// A company with the main screen up: `Serve` is what the user does with it.
class MainScreenTest : public SessionTest {
 protected:
  MainScreenTest() { MakeCompany(); }

  std::string CustomerFile() const { return folder / "data/orv1/customer.zdb"; }

  /// Adds rows past the screens.
  static void AddRows(const std::string& file, const std::string& table, const std::vector<std::string>& fields,
                      const std::vector<std::vector<platform::Value>>& rows) {
    const auto writer = engine::OpenBulkWriter(file, table, fields);
    for (const auto& row : rows) writer->Add(row);
    writer->Finish();
  }

  /// First field of a statement's first row in the customer file, over a session of its own.
  std::string Stored(const std::string& statement) const {
    const auto engine = engine::MakeEngine();
    const auto rows = engine->OpenControlDatabase(CustomerFile())->OpenRecordset(statement);
    return platform::CStr(platform::Concat("", rows->Field(0)));
  }

  /// Opens the company, shows the main screen, and takes it down when the user has done his part.
  void Serve(const std::function<void(orcussch::frmCustMain&)>& user) {
    orcussch::CustSearch host(*app);
    host.Let("UserID", 1);
    host.Let("CompanyID", 1);
    bool served = false;
    frontEnd->serve = [&](platform::Form& form) {
      auto* screen = dynamic_cast<orcussch::frmCustMain*>(&form);
      if (screen == nullptr) {
        ++otherScreens;
        return;
      }
      served = true;
      user(*screen);
    };
    host.ShowUser();
    frontEnd->serve = nullptr;
    EXPECT_TRUE(served) << "the main screen never came up";
  }

  int otherScreens = 0;  ///< screens that came up above the main screen; they are taken down at once
};
