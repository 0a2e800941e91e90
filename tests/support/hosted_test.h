#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "platform/host/application.h"
#include "platform/host/no_windows.h"
#include "suite/operating_system.h"
#include "support/temporary_folder.h"

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
class PlainFrontEnd final : public platform::NoWindows {
 public:
  explicit PlainFrontEnd(Events& events) : events_(events) {}
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
  int MessageBox(const std::string& text, int style, const std::string& title) override {
    events_.Add("box");
    boxes.push_back({text, style, title});
    if (onBox) onBox();
    return (style & 0xf) == platform::box::OkOnly ? platform::box::Ok : answer;
  }
  std::optional<platform::PrinterChoice> PrinterDialog(platform::Form&) override {
    if (!printer) return {};
    return printer();
  }

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
class HostedTest : public testing::Test {
 protected:
  HostedTest() : HostedTest(nullptr) {}
  /// An engine of the test's own instead of the real one.
  explicit HostedTest(std::unique_ptr<platform::DataEngine> engine) {
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
  }

  /// The literals of the reports so far.
  std::vector<std::string> Reports() const {
    std::vector<std::string> modules;
    for (const auto& record : log->records) modules.push_back(record.module);
    return modules;
  }
  /// The texts of the boxes so far.
  std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (const auto& box : frontEnd->boxes) texts.push_back(box.text);
    return texts;
  }

  TemporaryFolder folder;
  Events events;
  PlainFrontEnd* frontEnd = nullptr;
  KeptErrorLog* log = nullptr;
  std::unique_ptr<platform::Application> app;
};
