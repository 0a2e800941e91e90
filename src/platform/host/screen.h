#pragma once

#include <string>
#include <utility>

#include "platform/controls/form/form.h"
#include "platform/host/application.h"

namespace platform {

/// A form of a program's own, which reaches the whole application.
class Screen : public Form {
 public:
  Screen(Application& application, std::string name, std::string caption)
      : Form(application, std::move(name), std::move(caption)), application_(application) {}
  Application& App() const noexcept { return application_; }

 private:
  Application& application_;
};

}  // namespace platform
