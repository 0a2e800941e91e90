#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "engine/data_file.h"
#include "entry/screens.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "session/modAppShutdown.h"
#include "support/company.h"
#include "support/hosted_test.h"

/// The session's side of an application without windows.
class SessionTest : public HostedTest {
 protected:
  SessionTest() : SessionTest(nullptr) {}
  explicit SessionTest(std::unique_ptr<platform::DataEngine> engine) : HostedTest(std::move(engine)) {
    orcussch::AttachApplication(app.get());
    orcussch::ConnectScreens();
  }
  ~SessionTest() override { orcussch::AttachApplication(nullptr); }

  /// The files of company 1, dat.zdb and the temporary file of user 1.
  void MakeCompany() const { std::filesystem::copy(Pattern(), folder.Path(), std::filesystem::copy_options::recursive); }

 private:
  /// Made once and copied by every test.
  static std::string Pattern() {
    static const TemporaryFolder pattern;
    if (!std::filesystem::exists(pattern / "dat.zdb")) test_support::MakeCompany(pattern.Path());
    return pattern.Path();
  }
};
