#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "platform/values/value.h"

namespace suitefiles {

/// Writes rows as text, separated by tabs or as comma separated values. Null is an empty field; an empty text is one too,
/// but "" between quotes in the comma form.
class RowPrinter {
 public:
  enum class Form { Tabs, Commas };
  RowPrinter(std::ostream& out, Form form) : out_(out), form_(form) {}

  void Header(const std::vector<std::string>& names);
  void Row(const std::vector<platform::Value>& values);

 private:
  std::string Escaped(const std::string& text) const;
  std::ostream& out_;
  Form form_;
};

}  // namespace suitefiles
