#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/host/application.h"
#include "platform/host/no_windows.h"

namespace hostile {

/// The place of a yield: by which calls the program came to it. A loop comes to the same place again.
using Place = std::uintptr_t;

/// A front end without windows that counts the yields of one procedure and does something at one of them. Like a window it
/// reads the visible lists anew at each yield.
class InterruptingFrontEnd final : public platform::NoWindows {
 public:
  void RunModal(platform::Form& form, const std::function<bool()>& done) override;
  void DoEvents() override;
  int MessageBox(const std::string& text, int style, const std::string& title) override;

  /// Counts from here on; at the yield with the number `at` (0: at none) `act` is called.
  void Arm(int at, std::function<void()> act);
  void Disarm() { armed_ = false; }
  /// Where the yields since Arm came, one each; filled while `keepPlaces`.
  const std::vector<Place>& Places() const { return places_; }
  int Yields() const { return yields_; }

  std::function<void(platform::Form&)> serve;               ///< the user while a screen is up
  std::function<void(const std::string& text)> onQuestion;  ///< before a question is answered
  std::function<void()> paint;
  bool keepPlaces = false;
  bool answerYes = true;
  bool asked = false;       ///< a question came since Arm
  bool wouldNotGo = false;  ///< a screen that the user closed stayed up

 private:
  bool armed_ = false;
  bool inside_ = false;
  int at_ = 0;
  int yields_ = 0;
  std::vector<Place> places_;
  std::function<void()> act_;
};

}  // namespace hostile
