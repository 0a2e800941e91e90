#pragma once

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>

#include "printing/preview/page_view.h"
#include "printing/preview/preview_dialogs.h"
#include "printing/preview/preview_run.h"
#include "printing/preview/text_search.h"
#include "printing/preview/thumbnails.h"

namespace printing {

/// A report on the screen. Its first page is there when it is made; the others are laid out while nothing else is to be done.
class PreviewWindow final : public QMainWindow {
  Q_OBJECT

 public:
  /// `busy` tells whether some other work is under way in which this must not go on: a call of the data engine, a procedure of a screen.
  PreviewWindow(std::unique_ptr<PreviewRun> run, std::shared_ptr<const FontSet> fonts, PreviewSettings settings, std::function<bool()> busy,
                PreviewDialogs dialogs);
  ~PreviewWindow() override;

  /// Shows it, maximised where that is asked for, in front.
  void Open();
  /// Gives the run and what it holds back, and goes; from inside of a long output of its own as soon as that has stopped.
  void CloseForGood();
  bool Complete() const { return complete_; }
  /// Lays out what is left, without a pause; what can't be finished stays as it is.
  const PageSpool& AllPages();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  using Work = std::function<void(const Progress& progress)>;

  void MakeActions();
  void MakeToolBar();
  void MakeStatusBar();
  QAction* Add(QMenu& menu, const QString& name, const QString& text, const QList<QKeySequence>& keys, std::function<void()> act);
  QAction& Action(const char* name) const;

  void Slice();
  void LayOutFor(std::int64_t milliseconds);
  void LayOutRest(const Progress& progress);
  void ShowPlace();
  void ShowZoom();
  void ShowEnabled();
  void GoToTyped();
  void ZoomTo(const QString& text);
  void StepZoom(bool larger);

  void Find(bool forward);
  void ShowSearch();
  void CopySelection();

  void PrintPages();
  void ExportTo(const QString& kind);
  /// Runs `work` with a box that shows how far it is and can stop it; tells what fails.
  void RunLong(const QString& what, const Work& work);
  QString Suggestion() const;

  std::unique_ptr<PreviewRun> run_;
  std::shared_ptr<const FontSet> fonts_;
  PreviewSettings settings_;
  std::function<bool()> busy_;
  PreviewDialogs dialogs_;
  TextSearch search_;
  QTimer idle_;
  QElapsedTimer opened_;
  PageView* view_ = nullptr;
  Thumbnails* thumbnails_ = nullptr;
  QLineEdit* pageEdit_ = nullptr;
  QLabel* pageCount_ = nullptr;
  QComboBox* zoom_ = nullptr;
  QLineEdit* findEdit_ = nullptr;
  QLabel* place_ = nullptr;
  QLabel* progress_ = nullptr;
  QString failure_;
  bool complete_ = false;
  bool working_ = false;
  bool closing_ = false;
};

}  // namespace printing
