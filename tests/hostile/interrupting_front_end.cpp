#include "hostile/interrupting_front_end.h"

#include <execinfo.h>

#include <array>

#include "platform/controls/form/form.h"

namespace hostile {
namespace {

constexpr int kFrames = 64;
constexpr int kButtons = 0xf;

/// The callers' addresses as one number.
Place PlaceOfCaller() {
  std::array<void*, kFrames> frames{};
  const int count = ::backtrace(frames.data(), kFrames);
  Place place = 14695981039346656037U;
  for (int i = 1; i < count; ++i) place = (place ^ reinterpret_cast<Place>(frames[static_cast<std::size_t>(i)])) * 1099511628211U;
  return place;
}

}  // namespace

void InterruptingFrontEnd::RunModal(platform::Form& form, const std::function<bool()>& done) {
  if (serve) serve(form);
  if (!done()) form.UserClose();
  if (done()) return;
  wouldNotGo = true;
  form.Host().Unload(form);
}

void InterruptingFrontEnd::Arm(int at, std::function<void()> act) {
  armed_ = true;
  at_ = at;
  act_ = std::move(act);
  yields_ = 0;
  asked = false;
  places_.clear();
}

void InterruptingFrontEnd::DoEvents() {
  if (!armed_ || inside_) return;
  ++yields_;
  if (keepPlaces) places_.push_back(PlaceOfCaller());
  if (paint) paint();
  if (yields_ != at_) return;
  inside_ = true;
  act_();
  inside_ = false;
  if (paint) paint();
}

int InterruptingFrontEnd::MessageBox(const std::string& text, int style, const std::string&) {
  if ((style & kButtons) == platform::box::OkOnly) return platform::box::Ok;
  asked = true;
  if (onQuestion) onQuestion(text);
  return answerYes ? platform::box::Yes : platform::box::No;
}

}  // namespace hostile
