#pragma once

#include <string>

namespace platform {

/// A screen whose list can be narrowed to the answer of a question, as its window needs to know it.
class FilteredScreen {
 public:
  virtual ~FilteredScreen() = default;
  /// What the list is narrowed to, in words for the user ("Query: state is MN"); "" while it shows all there is.
  virtual std::string FilterText() const = 0;
};

}  // namespace platform
