#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "custsearch/answer.h"
#include "custsearch/tasks.h"
#include "library/orcussch.h"

namespace custsearch {
namespace {

/// A call that did not end with ORCUSSCH_OK, with the library's own text. What the command line named wrongly is wrong usage.
void Check(orcussch_result result) {
  if (result == ORCUSSCH_OK) return;
  if (result == ORCUSSCH_INVALID_ARGUMENT || result == ORCUSSCH_NO_FOLDER) throw UsageError(orcussch_last_error());
  throw std::runtime_error(orcussch_last_error());
}

/// The library's handle, as any host holds it.
class Search {
 public:
  explicit Search(const Options& options) {
    std::vector<const char*> drives;
    for (const std::string& drive : options.drives) drives.push_back(drive.c_str());
    drives.push_back(nullptr);

    orcussch_options host{};
    host.size = sizeof host;
    host.library_folder = options.data.c_str();
    host.local_folder = options.local ? options.local->c_str() : nullptr;
    host.title = "Customer Search";
    host.drives = drives.data();
    host.make_temporary_file = 1;
    Check(orcussch_create(&host, &handle_));
  }
  ~Search() { orcussch_release(handle_); }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  void Set(const char* property, std::int32_t number) { Check(orcussch_set_number(handle_, property, number)); }
  void Set(const char* property, const std::string& text) { Check(orcussch_set_text(handle_, property, text.c_str())); }
  void ShowUser() { Check(orcussch_show_user(handle_)); }

  std::int32_t Number(const char* property) const {
    std::int32_t number = 0;
    Check(orcussch_get_number(handle_, property, &number));
    return number;
  }
  std::string Text(const std::string& property) const {
    std::size_t needed = 0;
    if (orcussch_get_text(handle_, property.c_str(), nullptr, 0, &needed) != ORCUSSCH_BUFFER_TOO_SMALL)
      throw std::runtime_error(orcussch_last_error());
    std::string text(needed, '\0');
    Check(orcussch_get_text(handle_, property.c_str(), text.data(), text.size(), nullptr));
    text.pop_back();
    return text;
  }

 private:
  orcussch_handle* handle_ = nullptr;
};

}  // namespace

int Work(const Options& options) {
  Search search(options);
  search.Set("UserID", options.user);
  search.Set("CompanyID", options.company);
  if (options.customer) search.Set("Customer", *options.customer);
  if (!options.billing.empty()) search.Set("BillingStatus", options.billing);
  if (options.maintenanceOnly) search.Set("NonSelection", 1);
  search.ShowUser();

  Answer answer;
  answer.customer = search.Number("Customer");
  for (const std::string& property : AnswerTexts()) answer.texts.emplace_back(property, search.Text(property));
  options.json ? PrintAnswerAsJson(answer, std::cout) : PrintAnswer(answer, std::cout);
  return answer.customer != 0 ? kDone : kNoneSelected;
}

}  // namespace custsearch
