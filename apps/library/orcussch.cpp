#include "library/orcussch.h"

#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <thread>

#include "library/default_application.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"

struct orcussch_handle {
  std::unique_ptr<platform::Application> application;
  std::unique_ptr<orcussch::CustSearch> session;
  std::thread::id thread;
};

namespace {

thread_local std::string lastError;
bool open = false;

orcussch_result Refuse(orcussch_result result, const std::string& why) {
  lastError = why;
  return result;
}

/// Nothing that a call raises reaches the host's frames.
template <class Body>
orcussch_result Guarded(Body&& body) {
  try {
    lastError.clear();
    return body();
  } catch (const platform::Error& error) {
    return Refuse(ORCUSSCH_FAILED, error.Description());
  } catch (const std::exception& error) {
    return Refuse(ORCUSSCH_FAILED, error.what());
  } catch (...) {
    return Refuse(ORCUSSCH_FAILED, "unknown failure");
  }
}

template <class Body>
orcussch_result WithHandle(orcussch_handle* handle, Body&& body) {
  return Guarded([&]() -> orcussch_result {
    if (!handle) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the handle is NULL");
    if (handle->thread != std::this_thread::get_id()) return Refuse(ORCUSSCH_WRONG_THREAD, "another thread made the handle");
    return body();
  });
}

template <class Body>
orcussch_result WithProperty(orcussch_handle* handle, const char* property, Body&& body) {
  return WithHandle(handle, [&]() -> orcussch_result {
    if (!property) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the property's name is NULL");
    if (!orcussch::CustSearch::IsProperty(property))
      return Refuse(ORCUSSCH_UNKNOWN_PROPERTY, std::string("there is no property ") + property);
    return body();
  });
}

/// Numbers and yes/no values come in as texts too; one that does not convert is refused here, without a box.
bool Fits(std::string_view property, const platform::Value& value) {
  try {
    if (platform::EqualsNoCase(property, "UserID") || platform::EqualsNoCase(property, "CompanyID") ||
        platform::EqualsNoCase(property, "Customer"))
      platform::CLng(value);
    if (platform::EqualsNoCase(property, "NonSelection")) platform::CBool(value);
    return true;
  } catch (const platform::Error&) {
    return false;
  }
}

orcussch_result Let(orcussch_handle* handle, const char* property, const platform::Value& value) {
  if (orcussch::CustSearch::Running()) return Refuse(ORCUSSCH_BUSY, "a ShowUser is running");
  if (!Fits(property, value)) return Refuse(ORCUSSCH_INVALID_ARGUMENT, std::string("the value does not fit ") + property);
  handle->session->Let(property, value);
  return ORCUSSCH_OK;
}

std::string TextOr(const char* text, const char* otherwise) { return text ? text : otherwise; }

}  // namespace

const char* orcussch_version(void) { return ORCUSSCH_VERSION; }

const char* orcussch_last_error(void) { return lastError.c_str(); }

orcussch_result orcussch_create(const orcussch_options* options, orcussch_handle** handle) {
  return Guarded([&]() -> orcussch_result {
    if (!options || !handle || options->size != sizeof(orcussch_options) || !options->library_folder)
      return Refuse(ORCUSSCH_INVALID_ARGUMENT, "options, their size, the library's folder and the handle are required");
    *handle = nullptr;
    if (open) return Refuse(ORCUSSCH_ALREADY_OPEN, "there is one session a process");
    orcussch::DefaultApplicationOptions wiring;
    wiring.libraryFolder = options->library_folder;
    wiring.localFolder = TextOr(options->local_folder, "");
    wiring.settingsFolder = TextOr(options->settings_folder, "");
    wiring.keepSettings = !options->settings_folder || *options->settings_folder;
    wiring.title = TextOr(options->title, "");
    wiring.logFile = TextOr(options->log_file, "");
    auto made = std::make_unique<orcussch_handle>();
    made->application = orcussch::MakeDefaultApplication(wiring);
    made->session = std::make_unique<orcussch::CustSearch>(*made->application);
    made->thread = std::this_thread::get_id();
    open = true;
    *handle = made.release();
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_set_text(orcussch_handle* handle, const char* property, const char* value) {
  return WithProperty(handle, property, [&]() -> orcussch_result {
    if (!value) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the value is NULL");
    const auto text = platform::Normalise(value);
    if (!text) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the value is no UTF-8 text");
    return Let(handle, property, *text);
  });
}

orcussch_result orcussch_set_number(orcussch_handle* handle, const char* property, int32_t value) {
  return WithProperty(handle, property, [&] { return Let(handle, property, platform::Value(value)); });
}

orcussch_result orcussch_get_text(orcussch_handle* handle, const char* property, char* buffer, size_t size, size_t* needed) {
  return WithProperty(handle, property, [&]() -> orcussch_result {
    const platform::Value value = handle->session->Get(property);
    const std::string text = value.IsEmpty() ? std::string() : platform::CStr(value);
    if (needed) *needed = text.size() + 1;
    if (!buffer || size < text.size() + 1) return Refuse(ORCUSSCH_BUFFER_TOO_SMALL, "the buffer is too small");
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_get_number(orcussch_handle* handle, const char* property, int32_t* value) {
  return WithProperty(handle, property, [&]() -> orcussch_result {
    if (!value) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the value is NULL");
    const platform::Value held = handle->session->Get(property);
    *value = held.IsEmpty() ? 0 : platform::CLng(held);
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_show_user(orcussch_handle* handle) {
  return WithHandle(handle, [&]() -> orcussch_result {
    if (orcussch::CustSearch::Running()) return Refuse(ORCUSSCH_BUSY, "a ShowUser is running");
    handle->session->ShowUser();
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_release(orcussch_handle* handle) {
  if (!handle) return ORCUSSCH_OK;
  return WithHandle(handle, [&]() -> orcussch_result {
    if (orcussch::CustSearch::Running()) return Refuse(ORCUSSCH_BUSY, "a ShowUser is running");
    const std::unique_ptr<orcussch_handle> released(handle);
    released->session.reset();
    orcussch::AttachApplication(nullptr);
    released->application.reset();
    open = false;
    return ORCUSSCH_OK;
  });
}
