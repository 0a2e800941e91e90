// The memory of a program whose user saves one customer after the other on the card. A process of its own, since memory
// that was once taken stays counted.
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "main_screen.h"
#include "platform/values/convert.h"

namespace {

constexpr int warmUp = 1000;

double ResidentMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmRSS:") continue;
    double kilobytes = 0;
    status >> kilobytes;
    return kilobytes / 1024;
  }
  return 0;
}

void Save(orcussch::frmCustMain& screen, int number) {
  screen.Toolbar1.Button("tb_EditRec").UserClick();
  dynamic_cast<platform::TextBox&>(*screen.Find("txtAddr2")).Text("Suite " + std::to_string(number));
  screen.Toolbar1.Button("tb_SaveRec").UserClick();
  if (screen.SSIndexTab1.Page() != 0) throw std::runtime_error("the card was not saved");
  screen.data[0].Window()->RowsAfter(screen.data[0].Recordset()->Bookmark(), 50);
}

void SaveMany(orcussch::frmCustMain& screen, int saves) {
  const std::int64_t rows = screen.data[0].Window()->Count();
  std::cout << "saves, resident MiB:";
  double before = 0;
  for (int i = 1; i <= saves; ++i) {
    bench::StandOnCustomer(screen, 1 + std::int64_t{i} * 7919 % (rows * 9 / 10));
    Save(screen, i);
    if (i == warmUp) before = ResidentMegabytes();
    if (i % (saves / 10) == 0) std::cout << " " << i << " " << ResidentMegabytes() << std::flush;
  }
  if (saves > warmUp) std::cout << "; more since the first " << warmUp << ": " << ResidentMegabytes() - before << " MiB";
  std::cout << "\n";
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_saves DIR [SAVES]: saves customers of the folder's company 1 on the card, 10,000 unless told\n";
    return 2;
  }
  try {
    const int saves = count > 2 ? std::stoi(words[2]) : 10'000;
    if (saves < 10) throw std::runtime_error("at least 10 saves");
    bench::AtMainScreen(words[1], [&](orcussch::frmCustMain& screen, bench::WatchedFrontEnd&) { SaveMany(screen, saves); });
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_saves: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
