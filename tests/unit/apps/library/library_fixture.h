#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "library/entry.h"
#include "library/orcussch.h"
#include "library/places.h"
#include "session/ModCustSch.h"
#include "support/company.h"
#include "support/hosted_test.h"

/// The C functions over an application without windows. `at` is told of each place where the library gives control away, and may
/// call the library or raise anything there.
class StagedFrontEnd final : public platform::NoWindows {
 public:
  explicit StagedFrontEnd(std::function<void(const std::string&)>& at) : at_(at) {}
  void Loaded(platform::Form&) override { at_("loaded"); }
  void Shown(platform::Form&) override { at_("shown"); }
  void Hidden(platform::Form&) override { at_("hidden"); }
  void Unloaded(platform::Form&) override { at_("unloaded"); }
  void RunModal(platform::Form& form, const std::function<bool()>& done) override {
    at_("modal");
    if (!done()) form.Host().Unload(form);
  }
  void DoEvents() override { at_("yield"); }
  int MessageBox(const std::string&, int, const std::string&) override {
    at_("box");
    return platform::box::Ok;
  }
  void Pointer(int) override { at_("pointer"); }

 private:
  std::function<void(const std::string&)>& at_;
};

class LibraryTest : public testing::Test {
 protected:
  LibraryTest() {
    library::MakeApplicationsBy([this](const library::DefaultApplicationOptions& options) {
      given = options;
      if (creating) creating();
      library::Places places = library::FindPlaces(options.places);
      platform::ApplicationParts parts;
      parts.frontEnd = std::make_unique<StagedFrontEnd>(tell_);
      parts.engine = library::MakeEngine(*places.system);
      parts.system = std::move(places.system);
      parts.errorLog = std::make_unique<KeptErrorLog>(events_);
      parts.path = places.libraryFolder;
      parts.title = options.title;
      return std::make_unique<platform::Application>(std::move(parts));
    });
  }
  ~LibraryTest() override {
    at = nullptr;
    orcussch_release(handle);
    library::MakeApplicationsBy({});
  }

  /// Company 1 and the temporary file of user 1 in the folder.
  void MakeCompany() const { test_support::MakeCompany(folder.Path()); }
  orcussch_options Options() const {
    orcussch_options options{};
    options.size = sizeof options;
    options.library_folder = path_.c_str();
    options.local_folder = path_.c_str();
    options.settings_folder = "";
    return options;
  }
  orcussch_result Create() {
    const orcussch_options options = Options();
    return orcussch_create(&options, &handle);
  }
  std::int32_t Number(const char* property) {
    std::int32_t number = -1;
    EXPECT_EQ(orcussch_get_number(handle, property, &number), ORCUSSCH_OK) << orcussch_last_error();
    return number;
  }

  TemporaryFolder folder;
  std::function<void(const std::string& place)> at;
  std::function<void()> creating;
  library::DefaultApplicationOptions given;
  orcussch_handle* handle = nullptr;

 private:
  std::string path_ = folder.Path();
  std::function<void(const std::string&)> tell_ = [this](const std::string& place) {
    if (at) at(place);
  };
  Events events_;
};
