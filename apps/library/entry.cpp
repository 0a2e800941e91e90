#include "library/entry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <mutex>
#include <utility>

#include "platform/values/error.h"
#include "platform/values/text.h"
#include "session/ModCustSch.h"

namespace library {
namespace {

constexpr std::size_t kErrorRoom = 1024;
/// Room of its own, so that even the lack of memory can be told.
thread_local std::array<char, kErrorRoom> lastError{};

/// What all threads of the host see; other threads come here only to be refused.
struct Border {
  std::mutex mutex;
  std::deque<orcussch_handle> handles;
  std::thread::id inside;  ///< the thread whose call runs, none between calls
};

/// Never destroyed: a host that ends without a release must not meet windows and files that are torn down at the program's end.
Border& TheBorder() {
  static Border& border = *std::make_unique<Border>().release();
  return border;
}

ApplicationMaker& Maker() {
  static ApplicationMaker maker;
  return maker;
}

}  // namespace

Session::~Session() {
  object.reset();
  orcussch::AttachApplication(nullptr);
}

orcussch_result Refuse(orcussch_result result, std::string_view why) noexcept {
  std::size_t length = std::min(why.size(), kErrorRoom - 1);
  while (length > 0 && length < why.size() && (static_cast<unsigned char>(why[length]) & 0xC0U) == 0x80U) --length;
  std::memmove(lastError.data(), why.data(), length);
  lastError[length] = '\0';
  if (!platform::IsValidUtf8({lastError.data(), length}))
    std::replace_if(
        lastError.begin(), lastError.begin() + static_cast<std::ptrdiff_t>(length),
        [](char c) { return static_cast<unsigned char>(c) >= 0x80; }, '?');
  return result;
}

const char* LastError() noexcept { return lastError.data(); }

void ForgetError() noexcept { lastError[0] = '\0'; }

orcussch_handle* AddHandle(std::unique_ptr<Session> session) {
  Border& border = TheBorder();
  const std::lock_guard lock(border.mutex);
  orcussch_handle& handle = border.handles.emplace_back();
  handle.thread = std::this_thread::get_id();
  handle.session = std::move(session);
  return &handle;
}

bool HasLiveHandle() {
  Border& border = TheBorder();
  const std::lock_guard lock(border.mutex);
  return std::any_of(border.handles.begin(), border.handles.end(), [](const orcussch_handle& handle) { return handle.session != nullptr; });
}

Entry::Entry() noexcept {
  const std::lock_guard lock(TheBorder().mutex);
  Occupy();
}

Entry::Entry(const orcussch_handle* handle) noexcept {
  Border& border = TheBorder();
  const std::lock_guard lock(border.mutex);
  if (border.inside == std::this_thread::get_id()) {
    Occupy();
    return;
  }
  const auto known = std::find_if(border.handles.begin(), border.handles.end(), [&](const orcussch_handle& one) { return &one == handle; });
  if (!handle) {
    refusal_ = Refuse(ORCUSSCH_INVALID_ARGUMENT, "the handle is NULL");
  } else if (known == border.handles.end()) {
    refusal_ = Refuse(ORCUSSCH_INVALID_HANDLE, "there is no such handle");
  } else if (known->thread != std::this_thread::get_id()) {
    refusal_ = Refuse(ORCUSSCH_WRONG_THREAD, "another thread made the handle");
  } else if (!known->session) {
    refusal_ = Refuse(ORCUSSCH_INVALID_HANDLE, "the handle was released");
  } else {
    Occupy();
  }
}

void Entry::Occupy() noexcept {
  std::thread::id& inside = TheBorder().inside;
  if (inside != std::thread::id()) {
    refusal_ = Refuse(ORCUSSCH_BUSY, "another call is running");
    return;
  }
  inside = std::this_thread::get_id();
  entered_ = true;
}

Entry::~Entry() {
  if (!entered_) return;
  Border& border = TheBorder();
  const std::lock_guard lock(border.mutex);
  border.inside = std::thread::id();
}

orcussch_result RefuseForException() noexcept {
  try {
    throw;
  } catch (const FolderError& error) {
    return Refuse(ORCUSSCH_NO_FOLDER, error.what());
  } catch (const OptionError& error) {
    return Refuse(ORCUSSCH_INVALID_ARGUMENT, error.what());
  } catch (const std::bad_alloc&) {
    return Refuse(ORCUSSCH_FAILED, "out of memory");
  } catch (const std::exception& error) {
    return Refuse(ORCUSSCH_FAILED, error.what());
  } catch (...) {
    return Refuse(ORCUSSCH_FAILED, "unknown failure");
  }
}

void MakeApplicationsBy(ApplicationMaker maker) { Maker() = std::move(maker); }

std::unique_ptr<platform::Application> MakeApplication(const DefaultApplicationOptions& options) {
  return Maker() ? Maker()(options) : MakeDefaultApplication(options);
}

}  // namespace library
