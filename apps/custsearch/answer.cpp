#include "custsearch/answer.h"

#include <string>

#include "platform/convert.h"

namespace custsearch {
namespace {

constexpr const char* kProperties[] = {"Customer",      "CustomerLastName", "CustomerFirstName", "CustomerTitle", "CustomerAddr1",
                                       "CustomerAddr2", "CustomerCity",     "CustomerState",     "CustomerZip"};

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

std::string OneLine(std::string text) {
  for (char& c : text)
    if (IsControl(c)) c = ' ';
  return text;
}

std::string JsonText(const std::string& text) {
  constexpr const char* digits = "0123456789abcdef";
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (IsControl(c)) {
      json += "\\u00";
      json += digits[static_cast<unsigned char>(c) >> 4U];
      json += digits[static_cast<unsigned char>(c) & 15U];
    } else {
      json += c;
    }
  }
  return json + '"';
}

}  // namespace

void PrintAnswer(const orcussch::CustSearch& host, std::ostream& out) {
  for (const char* property : kProperties) out << property << '=' << OneLine(platform::CStr(host.Get(property))) << '\n';
}

void PrintAnswerAsJson(const orcussch::CustSearch& host, std::ostream& out) {
  out << '{';
  bool first = true;
  for (const char* property : kProperties) {
    const platform::Value value = host.Get(property);
    out << (first ? "" : ",") << JsonText(property) << ':' << (value.IsText() ? JsonText(platform::CStr(value)) : platform::CStr(value));
    first = false;
  }
  out << "}\n";
}

}  // namespace custsearch
