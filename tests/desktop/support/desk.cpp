#include "desktop/support/desk.h"

#include <QApplication>
#include <algorithm>

#include "desktop/desktop.h"
#include "desktop/window/form_designs.h"
#include "suite/operating_system.h"
#include "ui_sample_screen.h"

namespace desktop_test {

desktop::FormDesign SampleDesign() { return desktop::DesignFrom<Ui::frmSample>("frmSample"); }

Desk::Desk() = default;

Desk::~Desk() {
  CloseScreen();
  hands.reset();
  app.reset();
}

void Desk::Start(const desktop::DesktopOptions& options) {
  platform::ApplicationParts parts;
  auto madeEngine = std::make_unique<FakeEngine>(table);
  engine = madeEngine.get();
  parts.engine = std::move(madeEngine);
  auto made = desktop::MakeFrontEnd(options);
  front = dynamic_cast<desktop::DesktopFrontEnd*>(made.get());
  front->AddDesign(SampleDesign());
  hands = desktop::MakeHands(*made);
  parts.frontEnd = std::move(made);
  parts.title = "Sample Host";
  parts.listExport = std::move(exporter);
  parts.system = suite::MakeNativeSystem("/tmp");
  app = std::make_unique<platform::Application>(std::move(parts));
  app->OnUnhandled = [this](const platform::Error& error) { unhandled.push_back(error); };
  screen = std::make_unique<frmSample>(*app);
}

void Desk::Open() {
  if (!app) Start();
  app->Load(*screen);
  front->Shown(*screen);
  window = front->WindowOf(*screen);
  Process();
}

void Desk::OpenList(std::int64_t rows) {
  table.rows = rows;
  Open();
  screen->data.RecordSource("SELECT * FROM T ORDER BY Name;");
  screen->data.Refresh();
  Process();
}

void Desk::CloseScreen() {
  if (screen && screen->Loaded()) app->Unload(*screen);
  window = nullptr;
  screen.reset();
}

void Desk::Process() { hands->Settle(); }

bool Desk::Saw(const std::string& event) const { return std::find(screen->seen.begin(), screen->seen.end(), event) != screen->seen.end(); }

}  // namespace desktop_test
