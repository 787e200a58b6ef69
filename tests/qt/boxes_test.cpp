// Message boxes, input boxes and file dialogs, and what else the desktop does.
#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <fstream>

#include "platform/file_dialog.h"
#include "platform/files.h"
#include "tests/qt/qt_fixture.h"
#include "tests/support/any_box.h"
#include "tests/support/form_fixture.h"

namespace quarvel::platform {
namespace {

using QtBoxes = QtTest;

struct BoxCase {
  MsgBoxStyle style;
  QMessageBox::StandardButton button;
  MsgBoxResult result;
};

constexpr BoxCase kPressed[] = {
    {MsgBoxStyle::kOk, QMessageBox::Ok, MsgBoxResult::kOk},
    {MsgBoxStyle::kYesNo, QMessageBox::Yes, MsgBoxResult::kYes},
    {MsgBoxStyle::kYesNo, QMessageBox::No, MsgBoxResult::kNo},
    {MsgBoxStyle::kYesNoExclamation, QMessageBox::Yes, MsgBoxResult::kYes},
    {MsgBoxStyle::kYesNoCancelExclamation, QMessageBox::No, MsgBoxResult::kNo},
    {MsgBoxStyle::kYesNoCancelExclamation, QMessageBox::Cancel, MsgBoxResult::kCancel},
};

TEST_F(QtBoxes, AnswerWhatIsPressed) {
  for (const BoxCase& c : kPressed) {
    AnswerBox(c.button);
    EXPECT_EQ(desktop_->MsgBox(AnyBox("text", c.style)), c.result) << c.button;
  }
}

TEST_F(QtBoxes, ShowTextsAsTheyAre) {
  AnswerBox(QMessageBox::Ok);
  desktop_->MsgBox(AnyBox("<b>a & b</b>\r\nsecond  line", MsgBoxStyle::kOk, "Confirm"));
  AnswerBox(QMessageBox::Ok);
  desktop_->MsgBox(AnyBox("plain", MsgBoxStyle::kOk));
  EXPECT_EQ(boxes(), (std::vector<SeenBox>{{"Confirm", "<b>a & b</b>\nsecond  line"},
                                           {"Quarvel", "plain"}}));
}

TEST_F(QtBoxes, ClosedByOtherMeansGiveTheCautiousAnswer) {
  const std::pair<MsgBoxStyle, MsgBoxResult> cases[] = {
      {MsgBoxStyle::kOk, MsgBoxResult::kOk},
      {MsgBoxStyle::kYesNo, MsgBoxResult::kNo},
      {MsgBoxStyle::kYesNoExclamation, MsgBoxResult::kNo},
      {MsgBoxStyle::kYesNoCancelExclamation, MsgBoxResult::kCancel},
  };
  for (const auto& [style, result] : cases) {
    In("msgbox", [](QWidget& box) { PressKey(box, Qt::Key_Escape); });
    EXPECT_EQ(desktop_->MsgBox(AnyBox("text", style)), result);
    In("msgbox", [](QWidget& box) { box.close(); });
    EXPECT_EQ(desktop_->MsgBox(AnyBox("text", style)), result);
  }
}

TEST_F(QtBoxes, HaveTheExclamationWhereTheStyleHasIt) {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  In("msgbox", [&](QWidget& box) {
    icon = static_cast<QMessageBox&>(box).icon();
    box.close();
  });
  desktop_->MsgBox(AnyBox("text", MsgBoxStyle::kYesNoCancelExclamation));
  EXPECT_EQ(icon, QMessageBox::Warning);
}

class frmOwner : public Form {
 public:
  explicit frmOwner(Desktop& desktop) : Form(desktop, "frmOwner") { SetSize(200, 150, true); }
};

// From the middle of the box to the middle of what it stands over.
QPoint OffCentre(const QWidget& box, const QRect& around) {
  return QRect(box.pos(), box.size()).center() - around.center();
}

TEST_F(QtBoxes, StandInTheMiddleAlsoWhenTheirTextIsBrokenIntoLines) {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "words of a long question ";
  frmOwner form(*desktop_);
  for (const bool owned : {false, true}) {
    if (owned) form.Show();
    if (owned) WindowNamed("frmOwner")->move(340, 400);
    QPoint message;
    QPoint input;
    const auto look = [&](QPoint& off) {
      return [&](QWidget& box) {
        const QRect around =
            owned ? WindowNamed("frmOwner")->frameGeometry() : box.screen()->availableGeometry();
        off = OffCentre(box, around);
        box.close();
      };
    };
    In("msgbox", look(message));
    desktop_->MsgBox(AnyBox(text, MsgBoxStyle::kYesNo));
    In("frmInputBox", look(input));
    desktop_->InputBox(text, "title", "");
    for (const QPoint& off : {message, input}) EXPECT_LE(off.manhattanLength(), 4) << owned;
  }
}

TEST_F(QtBoxes, SurviveTheFormThatTheyBelongTo) {
  auto form = std::make_unique<frmTest>(*desktop_);
  form->Show();
  In("msgbox", [&](QWidget&) { form.reset(); });
  AnswerBox(QMessageBox::Yes);
  EXPECT_EQ(desktop_->MsgBox(AnyBox("text", MsgBoxStyle::kYesNo)), MsgBoxResult::kYes);
}

TEST_F(QtBoxes, InputBoxGivesTheLineAndOffersTheDefaultSelected) {
  In("frmInputBox", [](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), "Change Element Value");
    auto& line = *Part<QLineEdit>(&box, "txtInput");
    EXPECT_EQ(line.selectedText(), "3.5");
    TypeInto(line, "7");
    PressKey(line, Qt::Key_Return);
  });
  EXPECT_EQ(desktop_->InputBox("New value?", "Change Element Value", "3.5"), "7");
}

TEST_F(QtBoxes, InputBoxIsEmptyWhenCancelled) {
  In("frmInputBox", [](QWidget& box) { PressKey(box, Qt::Key_Escape); });
  EXPECT_EQ(desktop_->InputBox("New value?", "", "3.5"), "");
  In("frmInputBox", [](QWidget& box) { ClickIn(*Part<QPushButton>(&box, "cmdCancel")); });
  EXPECT_EQ(desktop_->InputBox("New value?", "", "3.5"), "");
}

// From its top, the last line of the widget that is not of its ground's colour.
int LowestInk(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  const QRgb ground = picture.pixel(picture.width() - 1, picture.height() - 1);
  for (int y = picture.height() - 1; y >= 0; --y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != ground) return y;
    }
  }
  return -1;
}

TEST_F(QtBoxes, InputBoxIsAsLargeAsItsQuestionWants) {
  std::string lines;
  for (int i = 0; i < 12; ++i) lines += "line " + std::to_string(i) + "\r\n";
  lines += "the last line";
  const struct {
    std::string question;
    bool higher;
    bool wider;
  } cases[] = {{"New value?", false, false},
               {lines, true, false},
               {"Enter a value for column " + std::string(600, 'N'), true, false},
               {"Enter a value for column " + std::string(4000, 'N'), true, true}};
  QSize least;
  for (const auto& c : cases) {
    In("frmInputBox", [&](QWidget& box) {
      auto& question = *Part<QLabel>(&box, "lblPrompt");
      const QRect text = Part<QLineEdit>(&box, "txtInput")->geometry();
      if (!least.isValid()) least = box.size();
      EXPECT_EQ(box.height() > least.height(), c.higher) << c.question;
      EXPECT_EQ(box.width() > least.width(), c.wider) << c.question;
      EXPECT_LT(question.geometry().bottom(), text.top()) << c.question;
      EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry())) << c.question;
      // All of it is painted, down to the last line, and nothing is cut there.
      const int lowest = LowestInk(question);
      EXPECT_LT(lowest, question.height() - 1) << c.question;
      const int line = question.fontMetrics().lineSpacing();
      EXPECT_TRUE(!c.higher || lowest > question.height() - line) << c.question;
      box.close();
    });
    desktop_->InputBox(c.question, "Value", "");
  }
}

TEST_F(QtBoxes, InputBoxStaysOnTheScreenWithAQuestionOfAnyLength) {
  In("frmInputBox", [](QWidget& box) {
    EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
    box.close();
  });
  desktop_->InputBox(std::string(100000, 'N'), "Value", "");
}

TEST_F(QtBoxes, InputBoxBelongsToTheActiveWindowOfTheHost) {
  QWidget host;
  host.setGeometry(60, 80, 300, 200);
  host.show();
  host.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
  In("frmInputBox", [&](QWidget& box) {
    EXPECT_EQ(box.windowHandle()->transientParent(), host.windowHandle());
    EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
    box.close();
  });
  desktop_->InputBox("New value?", "Value", "");
}

class QtFiles : public QtTest {
 protected:
  std::string Path(const std::string& name) const {
    return folder_.filePath(QString::fromStdString(name)).toStdString();
  }
  void Make(const std::string& name) { std::ofstream(Path(name)) << "x"; }

  FileDialog OpenRequest() const {
    FileDialog request;
    request.title = "Identify the MPS file to open";
    request.filter = "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*";
    return request;
  }
  FileDialog SaveRequest() const {
    FileDialog request = OpenRequest();
    request.kind = FileDialog::Kind::kSave;
    request.default_extension = ".mps";
    return request;
  }
  // The user types a name and confirms it.
  void Type(const std::string& path) {
    In("filedialog", [path](QWidget& box) {
      auto& line = *Part<QLineEdit>(&box, "fileNameEdit");
      line.setText(QString::fromStdString(path));
      PressKey(line, Qt::Key_Return);
    });
  }

  QTemporaryDir folder_;
};

TEST_F(QtFiles, OpenGivesTheChosenPathAndLeavesTheFolderAlone) {
  const std::string here = QDir::currentPath().toStdString();
  Make("a \xC3\xA4.mps");
  Type(Path("a \xC3\xA4.mps"));
  EXPECT_EQ(desktop_->ShowFileDialog(OpenRequest()), Path("a \xC3\xA4.mps"));
  EXPECT_EQ(QDir::currentPath().toStdString(), here);
}

TEST_F(QtFiles, OpenIsEmptyWhenCancelled) {
  FileDialog request = OpenRequest();
  request.file_name = "offered.mps";
  In("filedialog", [](QWidget& box) { PressKey(box, Qt::Key_Escape); });
  EXPECT_EQ(desktop_->ShowFileDialog(request), "");
}

TEST_F(QtFiles, BeginsInTheFolderThatIsAskedFor) {
  FileDialog request = OpenRequest();
  request.folder = folder_.path().toStdString();
  In("filedialog", [&](QWidget& box) {
    EXPECT_EQ(static_cast<QFileDialog&>(box).directory().path(), folder_.path());
    PressKey(box, Qt::Key_Escape);
  });
  desktop_->ShowFileDialog(request);
}

TEST_F(QtFiles, OpenShowsFilesInEitherLetterCase) {
  Make("small.mps");
  Make("LARGE.MPS");
  Make("other.txt");
  QStringList shown;
  In("filedialog", [&](QWidget& box) {
    auto& dialog = static_cast<QFileDialog&>(box);
    EXPECT_EQ(dialog.windowTitle(), "Identify the MPS file to open");
    dialog.setDirectory(folder_.path());
    QAbstractItemView& list = *Part<QAbstractItemView>(&box, "listView");
    const auto count = [&list] { return list.model()->rowCount(list.rootIndex()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == 2; }));
    for (int i = 0; i < count(); ++i) {
      shown.append(list.model()->index(i, 0, list.rootIndex()).data().toString());
    }
    dialog.reject();
  });
  desktop_->ShowFileDialog(OpenRequest());
  shown.sort(Qt::CaseInsensitive);
  EXPECT_EQ(shown, (QStringList{"LARGE.MPS", "small.mps"}));
}

TEST_F(QtFiles, SaveAddsTheExtensionOnceAndOnlyWhereThereIsNone) {
  const std::pair<std::string, std::string> cases[] = {
      {"new", "new.mps"}, {"new.mps", "new.mps"}, {"new.dat", "new.dat"}};
  for (const auto& [typed, saved] : cases) {
    Type(Path(typed));
    EXPECT_EQ(desktop_->ShowFileDialog(SaveRequest()), Path(saved));
  }
}

TEST_F(QtFiles, SaveAsksBeforeItGoesOverAFile) {
  Make("old.mps");
  Type(Path("old"));
  const auto question = [] {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  };
  When([question] { return question() != nullptr; },
       [question] { ClickIn(*question()->button(QMessageBox::Yes)); });
  EXPECT_EQ(desktop_->ShowFileDialog(SaveRequest()), Path("old.mps"));
}

TEST_F(QtBoxes, PointerOfWaitingIsBalanced) {
  desktop_->SetMousePointer(MousePointer::kWait);
  desktop_->SetMousePointer(MousePointer::kWait);
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  desktop_->SetMousePointer(MousePointer::kDefault);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  desktop_->SetMousePointer(MousePointer::kWait);
  desktop_.reset();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// The folder of a program "xdg-open" that writes down what it is told to open.
class OpenerFolder {
 public:
  OpenerFolder() {
    const QString program = folder_.filePath("xdg-open");
    {
      std::ofstream script(program.toStdString());
      script << "#!/bin/sh\nprintf %s \"$1\" > '" << told().toStdString() << ".new'\n"
             << "mv '" << told().toStdString() << ".new' '" << told().toStdString() << "'\n";
    }
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", folder_.path().toUtf8() + ':' + path_);
  }
  ~OpenerFolder() { qputenv("PATH", path_); }

  QString told() const { return folder_.filePath("told"); }

 private:
  QTemporaryDir folder_;
  QByteArray path_ = qgetenv("PATH");
};

TEST_F(QtFiles, EditorIsStartedWithoutWaiting) {
  Make("log.txt");
  const OpenerFolder opener;
  EXPECT_TRUE(desktop_->OpenInEditor(Path("log.txt")));
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(opener.told()); }));
  std::ifstream told(opener.told().toStdString());
  std::string path;
  std::getline(told, path);
  EXPECT_EQ(path, Path("log.txt"));
}

TEST_F(QtFiles, EditorThatIsNotThereIsTold) {
  Make("log.txt");
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder_.path().toUtf8());
  EXPECT_FALSE(desktop_->OpenInEditor(Path("log.txt")));
  qputenv("PATH", path);
  const OpenerFolder opener;
  EXPECT_FALSE(desktop_->OpenInEditor(Path("missing.txt")));
}

TEST_F(QtBoxes, PendingEventsRunButNotMoreOftenThanIsSeen) {
  int runs = 0;
  QObject context;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &context, [&] { ++runs; });
  timer.start(0);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
  int calls = 0;
  while (std::chrono::steady_clock::now() < end) {
    desktop_->DoEvents();
    ++calls;
  }
  EXPECT_GE(runs, 5);
  EXPECT_LE(runs, 14);
  EXPECT_GT(calls, 1000);
}

}  // namespace
}  // namespace quarvel::platform
