#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "main_screen.h"
#include "server/branch.h"

namespace bench::branch {

/// The main screen on a company of a server, beside the bare program.
class Desk {
 public:
  Desk(Company& company, std::string folder, orcussch::frmCustMain& screen, std::function<std::uint64_t()> trips)
      : company_(company), folder_(std::move(folder)), screen_(screen), trips_(std::move(trips)), backend_(company.YoungestBackend()) {}

  Company& Data() { return company_; }
  orcussch::frmCustMain& Screen() { return screen_; }
  /// Where its settings and its temporary file lie.
  const std::string& Folder() const { return folder_; }
  /// A job whose own side is the screen's.
  Job Begin(const std::string& name, double mostRatio) {
    Job job = company_.Begin(name, mostRatio);
    job.trips = trips_;
    job.elsewhereOurs = [backend = backend_] { return bare::ProcessorOf(backend); };
    return job;
  }

 private:
  Company& company_;
  std::string folder_;
  orcussch::frmCustMain& screen_;
  std::function<std::uint64_t()> trips_;
  int backend_;
};

/// Shows the main screen for this work.
void AtDesk(Company& company, const std::function<void(Desk&)>& work);

}  // namespace bench::branch
