#pragma once

#include <new>
#include <string>
#include <utility>

#include "printing/data/report_errors.h"
#include "printing/entry/report_engine.h"

namespace printing {

/// Runs `work`; a report that can't be run is a number for the caller and a line for the log.
template <class Work>
int Numbered(const EngineServices& services, const platform::ReportJob& job, Work&& work) {
  const auto told = [&](int number, const std::string& what) {
    if (services.log)
      services.log("report " + static_cast<const std::string&>(job.ReportFileName) + ": " + std::to_string(number) + ", " + what);
    return number;
  };
  try {
    std::forward<Work>(work)();
    return 0;
  } catch (const ReportFailure& failure) {
    return failure.Error() == ReportError::Stopped ? 0 : told(failure.Number(), failure.what());
  } catch (const platform::Error& error) {
    return told(static_cast<int>(ReportError::ReadingFailed), error.Description());
  } catch (const std::bad_alloc&) {
    return told(static_cast<int>(ReportError::NoRoom), "out of memory");
  }
}

}  // namespace printing
