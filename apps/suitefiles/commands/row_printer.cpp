#include "suitefiles/commands/row_printer.h"

#include <ostream>

#include "platform/values/convert.h"

namespace suitefiles {

namespace {

std::string WithBackslashes(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '\\':
        escaped += "\\\\";
        break;
      case '\t':
        escaped += "\\t";
        break;
      case '\r':
        escaped += "\\r";
        break;
      case '\n':
        escaped += "\\n";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string WithQuotes(const std::string& text) {
  if (!text.empty() && text.find_first_of(",\"\r\n") == std::string::npos && text.front() != ' ' && text.back() != ' ') return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

std::string RowPrinter::Escaped(const std::string& text) const { return form_ == Form::Tabs ? WithBackslashes(text) : WithQuotes(text); }

void RowPrinter::Header(const std::vector<std::string>& names) {
  const char separator = form_ == Form::Tabs ? '\t' : ',';
  for (std::size_t i = 0; i < names.size(); ++i) out_ << (i > 0 ? std::string(1, separator) : "") << Escaped(names[i]);
  out_ << '\n';
}

void RowPrinter::Row(const std::vector<platform::Value>& values) {
  const char separator = form_ == Form::Tabs ? '\t' : ',';
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) out_ << separator;
    if (!values[i].IsNull() && !values[i].IsEmpty()) out_ << Escaped(platform::CStr(values[i]));
  }
  out_ << '\n';
}

}  // namespace suitefiles
