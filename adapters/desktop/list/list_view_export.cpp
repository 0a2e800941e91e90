#include <QFileDialog>

#include "desktop/list/list_act.h"
#include "desktop/list/list_export.h"
#include "platform/controls/form/filtered_screen.h"
#include "platform/host/long_run.h"

// What leaves a list into a file.
namespace desktop {

namespace {

/// By the ending of the name that was chosen, whatever the dialog's own choice says.
QStringList Kinds() {
  return {QObject::tr("Workbook (*.xlsx)"), QObject::tr("Comma separated values (*.csv)"), QObject::tr("Pages (*.pdf)")};
}

QString EndingOf(const QString& kind) {
  const qsizetype dot = kind.lastIndexOf("*.");
  return kind.mid(dot + 2, kind.lastIndexOf(')') - dot - 2);
}

}  // namespace

bool ListView::CanExport() const { return grid_ && grid_->Data() && Host().Exports() != nullptr; }

void ListView::ExportList() {
  if (!CanExport()) return;
  auto* dialog = NewWidget<QFileDialog>(static_cast<QWidget*>(window()));
  dialog->setWindowTitle(tr("Export List"));
  dialog->setObjectName("exportDialog");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QFileDialog::DontUseNativeDialog);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setNameFilters(Kinds());
  dialog->setDefaultSuffix(EndingOf(dialog->selectedNameFilter()));
  connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& kind) { dialog->setDefaultSuffix(EndingOf(kind)); });
  connect(dialog, &QFileDialog::fileSelected, this,
          [this](const QString& path) { Later([this, path](platform::Grid& grid) { ExportTo(grid, path); }); });
  dialog->open();
}

platform::ExportedList ListView::Exported(const platform::Grid& grid) const {
  platform::ExportedList list;
  list.title = grid.Owner().Caption();
  if (const auto* filtered = dynamic_cast<const platform::FilteredScreen*>(&grid.Owner()))
    if (const std::string text = filtered->FilterText(); !text.empty()) list.notes.push_back(text);
  for (const int column : ShownColumns()) {
    const platform::GridColumn& design = grid.Column(column);
    list.columns.push_back({design.caption, design.numberFormat, design.percent, columns_.Width(column)});
    if (sorted_ && sorted_->field == design.dataField)
      list.notes.push_back((sorted_->descending ? tr("Descending by ") : tr("Ascending by ")).toStdString() + design.caption);
  }
  return list;
}

void ListView::ExportTo(const platform::Grid& grid, const QString& path) {
  platform::LongRun run(Host().Watcher(), tr("Exporting").toStdString(), 0);
  ExportedRows rows(grid, ShownColumns(), [&](std::int64_t done) { return run.Reached(done) && grid_ == &grid; });
  Host().Exports()->Export(Exported(grid), rows, path.toStdString());
}

}  // namespace desktop
