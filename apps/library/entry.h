#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <string_view>
#include <thread>

#include "library/default_application.h"
#include "library/orcussch.h"
#include "platform/host/application.h"
#include "session/CustSearch.h"

namespace library {

/// What a live handle stands for.
struct Session {
  Session() = default;
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  std::unique_ptr<platform::Application> application;
  std::unique_ptr<orcussch::CustSearch> object;
  bool makeTemporaryFile = false;
};

}  // namespace library

/// What a host holds. It is kept after its release, so that its address never comes back and a late use is recognised.
struct orcussch_handle {
  std::thread::id thread;
  std::unique_ptr<library::Session> session;
};

namespace library {

/// A call's refusal or failure: keeps the text for orcussch_last_error (cut to its room, made UTF-8).
orcussch_result Refuse(orcussch_result result, std::string_view why) noexcept;
const char* LastError() noexcept;
void ForgetError() noexcept;

/// Adds a handle for this thread. Before it the caller has asked HasLiveHandle.
orcussch_handle* AddHandle(std::unique_ptr<Session> session);
bool HasLiveHandle();

/// The way in: no call runs inside another one, and none on a handle that is unknown or another thread's.
class Entry {
 public:
  Entry() noexcept;
  explicit Entry(const orcussch_handle* handle) noexcept;
  ~Entry();
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  /// ORCUSSCH_OK, or why the call must not go on.
  orcussch_result Refusal() const noexcept { return refusal_; }

 private:
  void Occupy() noexcept;
  orcussch_result refusal_ = ORCUSSCH_OK;
  bool entered_ = false;
};

/// The code and the text of the exception that is being handled.
orcussch_result RefuseForException() noexcept;

/// Runs a call's body behind an entry. Nothing that it raises reaches the host's frames.
template <class Body>
orcussch_result Enter(const Entry& entry, Body&& body) noexcept {
  if (entry.Refusal() != ORCUSSCH_OK) return entry.Refusal();
  orcussch_result result = ORCUSSCH_OK;
  try {
    result = body();
  } catch (...) {
    result = RefuseForException();
  }
  // A call that was refused inside this one has left its text.
  if (result == ORCUSSCH_OK) ForgetError();
  return result;
}

/// Tests put another application together instead of the default one; an empty maker gives it back.
using ApplicationMaker = std::function<std::unique_ptr<platform::Application>(const DefaultApplicationOptions&)>;
void MakeApplicationsBy(ApplicationMaker maker);
std::unique_ptr<platform::Application> MakeApplication(const DefaultApplicationOptions& options);

}  // namespace library
