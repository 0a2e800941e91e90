#include "custsearch/answer.h"

namespace custsearch {
namespace {

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

std::string OneLine(std::string text) {
  for (char& c : text)
    if (IsControl(c)) c = ' ';
  return text;
}

std::string JsonText(const std::string& text) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (IsControl(c)) {
      json += "\\u00";
      json += kDigits[static_cast<unsigned char>(c) >> 4U];
      json += kDigits[static_cast<unsigned char>(c) & 15U];
    } else {
      json += c;
    }
  }
  return json + '"';
}

}  // namespace

const std::vector<std::string>& AnswerTexts() {
  static const std::vector<std::string> properties = {"CustomerLastName", "CustomerFirstName", "CustomerTitle", "CustomerAddr1",
                                                      "CustomerAddr2",    "CustomerCity",      "CustomerState", "CustomerZip"};
  return properties;
}

void PrintAnswer(const Answer& answer, std::ostream& out) {
  out << "Customer=" << answer.customer << '\n';
  for (const auto& [property, text] : answer.texts) out << property << '=' << OneLine(text) << '\n';
}

void PrintAnswerAsJson(const Answer& answer, std::ostream& out) {
  out << "{\"Customer\":" << answer.customer;
  for (const auto& [property, text] : answer.texts) out << ',' << JsonText(property) << ':' << JsonText(text);
  out << "}\n";
}

}  // namespace custsearch
