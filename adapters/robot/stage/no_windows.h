#pragma once

#include "platform/host/front_end.h"

namespace robot {

/// Shows nothing at all.
class NoWindows final : public platform::FrontEnd {
 public:
  void Loaded(platform::Form&) override {}
  void Shown(platform::Form&) override {}
  void Hidden(platform::Form&) override {}
  void Unloaded(platform::Form&) override {}
  void RunModal(platform::Form&, const std::function<bool()>&) override {}
  void DoEvents() override {}
  void ServePainting() override {}
  int MessageBox(const std::string&, int, const std::string&) override { return platform::box::Ok; }
  void Pointer(int) override {}
  std::optional<platform::PrinterChoice> PrinterDialog(platform::Form&) override { return std::nullopt; }
  void Changed(platform::Form&, platform::Control*, platform::Aspect) override {}
};

}  // namespace robot
