#pragma once

#include <vector>

#include "setup/setup_screen.h"

namespace orcussch {

/// What the design of a code table's screen fixes, and under what its failures are reported.
struct CodeTableDesign {
  const char* screen;
  const char* caption;
  SetupListDesign list;
  const char* select;  ///< the list's statement without its order
  const char* card;    ///< name of the card's frame
  const char* cardCaption;
  RecordLiterals literals;
  const char* loadLiteral;
  const char* openLiteral;  ///< of the list's opening
  SetupTexts texts;
};

/// A setup screen with one table of codes: the list and, in its place, the card. The screen is its record.
class CodeTableScreen : public SetupScreen, public SetupRecord {
 public:
  void Form_Load() override;

  platform::Frame fraCard;

 protected:
  CodeTableScreen(platform::Application& application, CodeTableDesign design, std::vector<platform::Toolbar::Key> firstKeys = {});

  /// The tables through which the screen writes and tests.
  virtual void OpenTables() = 0;
  /// The keys have their first states.
  virtual void Loading() {}

  SetupRecord& CurrentRecord() override { return *this; }
  RecordLiterals Literals() const override { return mDesign.literals; }
  const SetupTexts& Texts() const override { return mDesign.texts; }
  std::string SearchTitle() const override { return " Credit Card Search"; }
  int DeleteStyle() const override { return platform::box::Question + platform::box::YesNo; }
  void OpenList(SetupRecord& record) override;
  void ShowCard(bool editing) override;
  platform::CommandButton& CloseButton() override { return cmdClose; }
  platform::StatusBar& Hints() override { return StatusBar1; }
  /// Puts the card's entries into its frame.
  void PutOnCard(std::initializer_list<platform::Control*> entries);

 private:
  CodeTableDesign mDesign;

 public:
  platform::CommandButton cmdClose;
  platform::StatusBar StatusBar1;
};

}  // namespace orcussch
