#include "library/orcussch.h"

#include <cstring>
#include <string>

#include "entry/screens.h"
#include "library/entry.h"
#include "library/options.h"
#include "library/windows.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "session/failures.h"

using library::Enter;
using library::Entry;
using library::Refuse;

namespace {

/// A call about one property.
template <class Body>
orcussch_result WithProperty(orcussch_handle* handle, const char* property, Body&& body) noexcept {
  const Entry entry(handle);
  return Enter(entry, [&]() -> orcussch_result {
    if (!property) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the property's name is NULL");
    if (!platform::IsValidUtf8(property)) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the property's name is no UTF-8 text");
    if (!orcussch::CustSearch::IsProperty(property))
      return Refuse(ORCUSSCH_UNKNOWN_PROPERTY, std::string("there is no property ") + property);
    return body(*handle->session);
  });
}

bool CanShow(const library::Session& session) { return library::CanShow(session.application->FrontEnd()); }

orcussch_result RefuseWithoutWindows() {
  return Refuse(ORCUSSCH_FAILED, "the application object with which the library showed its windows has gone");
}

std::int32_t User(const library::Session& session) { return platform::CLng(session.object->UserID()); }

orcussch_result Let(library::Session& session, const char* property, const platform::Value& value) {
  if (!CanShow(session)) return RefuseWithoutWindows();
  // Numbers and yes/no values come in as texts too; one that does not convert is refused here, without a box.
  if (!orcussch::CustSearch::Fits(property, value))
    return Refuse(ORCUSSCH_INVALID_ARGUMENT, std::string("the value does not fit ") + property);
  if (session.makeTemporaryFile && platform::EqualsNoCase(property, "CompanyID"))
    library::MakeTemporaryFile(session.application->System(), User(session));
  const int lackedBefore = orcussch::gMemoryLacked;
  session.object->Let(property, value);
  if (orcussch::gMemoryLacked != lackedBefore) return Refuse(ORCUSSCH_FAILED, "out of memory");
  return ORCUSSCH_OK;
}

}  // namespace

const char* orcussch_version(void) { return ORCUSSCH_VERSION; }

const char* orcussch_last_error(void) { return library::LastError(); }

orcussch_result orcussch_create(const orcussch_options* options, orcussch_handle** handle) {
  if (handle) *handle = nullptr;
  const Entry entry;
  return Enter(entry, [&]() -> orcussch_result {
    if (!options || !handle) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the options and the place of the handle are required");
    const library::DefaultApplicationOptions read = library::ReadOptions(*options);
    if (library::HasLiveHandle()) return Refuse(ORCUSSCH_ALREADY_OPEN, "there is one session a process");
    auto session = std::make_unique<library::Session>();
    session->makeTemporaryFile = read.makeTemporaryFile;
    session->application = library::MakeApplication(read);
    orcussch::ConnectScreens();
    session->object = std::make_unique<orcussch::CustSearch>(*session->application);
    *handle = library::AddHandle(std::move(session));
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_set_text(orcussch_handle* handle, const char* property, const char* value) {
  return WithProperty(handle, property, [&](library::Session& session) -> orcussch_result {
    if (!value) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the value is NULL");
    const auto text = platform::Normalise(value);
    if (!text) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the value is no UTF-8 text");
    return Let(session, property, *text);
  });
}

orcussch_result orcussch_set_number(orcussch_handle* handle, const char* property, int32_t value) {
  return WithProperty(handle, property, [&](library::Session& session) { return Let(session, property, platform::Value(value)); });
}

orcussch_result orcussch_get_text(orcussch_handle* handle, const char* property, char* buffer, size_t size, size_t* needed) {
  return WithProperty(handle, property, [&](const library::Session& session) -> orcussch_result {
    const platform::Value value = session.object->Get(property);
    const std::string text = value.IsEmpty() ? std::string() : platform::CStr(value);
    if (needed) *needed = text.size() + 1;
    if (!buffer || size < text.size() + 1) return Refuse(ORCUSSCH_BUFFER_TOO_SMALL, "the buffer is too small");
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_get_number(orcussch_handle* handle, const char* property, int32_t* value) {
  return WithProperty(handle, property, [&](const library::Session& session) -> orcussch_result {
    if (!value) return Refuse(ORCUSSCH_INVALID_ARGUMENT, "the value is NULL");
    const platform::Value held = session.object->Get(property);
    *value = held.IsEmpty() ? 0 : platform::CLng(held);
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_show_user(orcussch_handle* handle) {
  const Entry entry(handle);
  return Enter(entry, [&]() -> orcussch_result {
    library::Session& session = *handle->session;
    if (!CanShow(session)) return RefuseWithoutWindows();
    library::KeepSettingsOf(session.application->FrontEnd(), std::to_string(User(session)));
    session.object->ShowUser();
    return ORCUSSCH_OK;
  });
}

orcussch_result orcussch_release(orcussch_handle* handle) {
  if (!handle) return ORCUSSCH_OK;
  const Entry entry(handle);
  return Enter(entry, [&]() -> orcussch_result {
    handle->session.reset();
    return ORCUSSCH_OK;
  });
}
