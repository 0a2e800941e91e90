#pragma once

#include "platform/host/front_end.h"

namespace platform {

/// Shows nothing and answers every box with OK: what a program without windows puts in their place, and the ground for front
/// ends that only listen.
class NoWindows : public FrontEnd {
 public:
  void Loaded(Form&) override {}
  void Shown(Form&) override {}
  void Hidden(Form&) override {}
  void Unloaded(Form&) override {}
  void RunModal(Form&, const std::function<bool()>&) override {}
  void DoEvents() override {}
  void ServePainting() override {}
  int MessageBox(const std::string&, int, const std::string&) override { return box::Ok; }
  void Pointer(int) override {}
  std::optional<PrinterChoice> PrinterDialog(Form&) override { return std::nullopt; }
  std::string DefaultPrinter() override { return ""; }
  void Changed(Form&, Control*, Aspect) override {}
};

}  // namespace platform
