// `quarvel view` and the user in front of its real windows.
#pragma once

#include <QTableView>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/qt/user.h"
#include "tests/support/test_paths.h"

namespace quarvel {

class ViewerJourney : public ::testing::Test, protected platform::User {
 protected:
  ViewerJourney();
  void TearDown() override;

  // What a run of the program gives and prints.
  struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
  };
  static Outcome Run(const std::vector<std::string>& words);

  // --- the user's doings, in order ---
  // Accepts the default bounds and does not simplify after the read.
  void Open();
  // Chooses a command by clicking through the menus, "mnuFile", "mnuFileSave".
  void Choose(std::initializer_list<std::string> items);
  void TurnTo(int page);
  // Clicks on the line of that first cell.
  void ClickLine(const std::string& window, const std::string& grid, const std::string& text);
  void Press(const std::string& window, const std::string& button);
  // Puts the text in the place of what a box holds.
  void Fill(const std::string& window, const std::string& box, const QString& text);
  // Fills in the input box and presses OK.
  void Answer(const QString& text);
  // Types a path into the file dialog.
  void TypePath(const std::string& path);
  // Closes the viewer without saving.
  void Leave();

  // --- what is seen ---
  static QWidget& Viewer();
  static std::vector<std::string> Column(std::string_view grid, int column);
  // The model in a file as the program prints its rows.
  static std::string Rows(const std::string& path);

  TemporaryFolder folder_;
  // transport.mps of the examples.
  std::string path_ = folder_.File("transport.mps");
};

}  // namespace quarvel
