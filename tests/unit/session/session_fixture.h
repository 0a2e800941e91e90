#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "entry/screens.h"
#include "platform/host/application.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "session/modAppShutdown.h"
#include "suite/company_schema.h"
#include "suite/operating_system.h"
#include "suitefiles/company/company_maker.h"
#include "unit/suite/temporary_folder.h"

/// What the application asked of the outside, in its order.
struct Events {
  std::vector<std::string> all;
  void Add(std::string event) { all.push_back(std::move(event)); }
};

struct ShownBox {
  std::string text;
  int style = 0;
  std::string title;
};

/// A front end without windows. `serve` is the user while a screen is up.
class PlainFrontEnd final : public platform::FrontEnd {
 public:
  explicit PlainFrontEnd(Events& events) : events_(events) {}
  void Loaded(platform::Form&) override {}
  void Shown(platform::Form&) override {}
  void Hidden(platform::Form&) override {}
  void Unloaded(platform::Form& form) override { events_.Add("unloaded " + form.Name()); }
  void RunModal(platform::Form& form, const std::function<bool()>& done) override {
    if (serve) serve(form);
    if (!done()) form.Host().Unload(form);
  }
  void DoEvents() override {
    ++yields;
    const auto act = onYield;  // it may replace itself
    if (act) act();
  }
  void ServePainting() override {}
  int MessageBox(const std::string& text, int style, const std::string& title) override {
    events_.Add("box");
    boxes.push_back({text, style, title});
    if (onBox) onBox();
    return (style & 0xf) == platform::box::OkOnly ? platform::box::Ok : answer;
  }
  void Pointer(int) override {}
  std::optional<platform::PrinterChoice> PrinterDialog(platform::Form&) override {
    if (!printer) return {};
    return printer();
  }
  void Changed(platform::Form&, platform::Control*, platform::Aspect) override {}

  std::function<void(platform::Form&)> serve;
  std::function<void()> onBox;
  std::function<void()> onYield;
  int answer = platform::box::Ok;  ///< to every question
  std::function<platform::PrinterChoice()> printer;
  std::vector<ShownBox> boxes;
  int yields = 0;

 private:
  Events& events_;
};

class KeptErrorLog final : public platform::ErrorLog {
 public:
  explicit KeptErrorLog(Events& events) : events_(events) {}
  void Write(const platform::ErrorRecord& record) noexcept override {
    events_.Add("log");
    records.push_back(record);
  }
  std::vector<platform::ErrorRecord> records;

 private:
  Events& events_;
};

/// An application over an engine, an empty folder as library folder and local root, and no windows.
class SessionTest : public testing::Test {
 protected:
  SessionTest() : SessionTest(nullptr) {}
  /// An engine of the test's own instead of the real one.
  explicit SessionTest(std::unique_ptr<platform::DataEngine> engine) {
    platform::ApplicationParts parts;
    auto frontEndPart = std::make_unique<PlainFrontEnd>(events);
    auto logPart = std::make_unique<KeptErrorLog>(events);
    frontEnd = frontEndPart.get();
    log = logPart.get();
    parts.engine = engine ? std::move(engine) : engine::MakeEngine();
    parts.system = suite::MakeNativeSystem(folder.Path());
    parts.errorLog = std::move(logPart);
    parts.frontEnd = std::move(frontEndPart);
    parts.path = folder.Path();
    parts.title = "The host";
    parts.threadId = 4711;
    app = std::make_unique<platform::Application>(std::move(parts));
    orcussch::AttachApplication(app.get());
    orcussch::ConnectScreens();
  }
  ~SessionTest() override { orcussch::AttachApplication(nullptr); }

  /// The files of company 1, dat.zdb and the temporary file of user 1.
  void MakeCompany() const { std::filesystem::copy(Pattern(), folder.Path(), std::filesystem::copy_options::recursive); }

  /// The literals of the reports so far.
  std::vector<std::string> Reports() const {
    std::vector<std::string> modules;
    for (const auto& record : log->records) modules.push_back(record.module);
    return modules;
  }

  TemporaryFolder folder;
  Events events;
  PlainFrontEnd* frontEnd = nullptr;
  KeptErrorLog* log = nullptr;
  std::unique_ptr<platform::Application> app;

 private:
  /// Made once and copied by every test.
  static std::string Pattern() {
    static const TemporaryFolder pattern;
    if (std::filesystem::exists(pattern / "dat.zdb")) return pattern.Path();
    std::filesystem::create_directories(pattern / "data/orv1");
    suitefiles::MakeCompanyFiles(pattern / "data/orv1", 2025);
    std::filesystem::create_directories(pattern / "orvTEMP");
    engine::CreateDataFile(pattern / "orvTEMP/orvTemp1.zdb", suite::TablesOf(suite::DataFile::Temporary), true);
    suitefiles::CompanyRecord company;
    company.name = "Company 1";
    suitefiles::AddCompanyRow(pattern / "dat.zdb", company);
    return pattern.Path();
  }
};
