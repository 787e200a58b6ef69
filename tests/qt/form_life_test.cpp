// The life of forms in real windows: what a form survives on the scripted desktop, it survives
// here.
#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <fstream>
#include <memory>

#include "platform/automation_error.h"
#include "tests/qt/qt_fixture.h"
#include "tests/support/any_box.h"
#include "tests/support/form_fixture.h"
#include "tests/support/sanitizers.h"

namespace quarvel::platform {
namespace {

class QtForms : public QtTest {
 protected:
  // Gives the button a place where it can be clicked.
  class frmReal : public frmTest {
   public:
    explicit frmReal(Desktop& desktop, std::string name = "frmReal")
        : frmTest(desktop, std::move(name)), cmdClose(*this, "cmdClose", {10, 10, 120, 30}) {
      SetSize(200, 100, false);
      cmdClose.on_click = [this] { Unload(); };
      cmdClose.set_caption("Close");
    }
    Button cmdClose;
  };

  // Drawing a window runs timers, and the user of these tests is one: a real one comes later.
  void WhenActive(const frmReal& form, std::function<void(QWidget&)> act) {
    When([&form] { return form.IsShowing() && form.life.back() == "activate"; },
         [&form, act = std::move(act)] { act(*WindowNamed(form.name())); });
  }
  void Click(const frmReal& form, const std::string& button) {
    WhenActive(form, [button](QWidget& shown) { ClickIn(*Part<QPushButton>(&shown, button)); });
  }

  frmReal form_{*desktop_};
};

TEST_F(QtForms, AreVisibleWhenTheyAreActivated) {
  bool visible = false;
  form_.on_activate = [&] { visible = WindowNamed("frmReal") != nullptr; };
  When([&] { return visible; }, [&] { form_.RequestClose(); });
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
  EXPECT_EQ(WindowNamed("frmReal"), nullptr);
}

TEST_F(QtForms, AskTheFormWhenTheCloseBoxIsPressed) {
  int asked = 0;
  form_.on_query = [&](UnloadReason reason) {
    EXPECT_EQ(reason, UnloadReason::kUser);
    return ++asked == 2;
  };
  WhenActive(form_, [](QWidget& window) { window.close(); });
  In("frmReal", [](QWidget& window) { window.close(); });
  form_.ShowModal();
  EXPECT_EQ(asked, 2);
}

TEST_F(QtForms, MayUnloadInTheirOwnClick) {
  Click(form_, "cmdClose");
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query code", "unload"}));
}

TEST_F(QtForms, MayBeDestroyedInTheirOwnClick) {
  auto gone = std::make_unique<frmReal>(*desktop_, "frmGone");
  gone->cmdClose.on_click = [&] { gone.reset(); };
  Click(*gone, "cmdClose");
  gone->ShowModal();
  EXPECT_EQ(gone, nullptr);
  EXPECT_EQ(WindowNamed("frmGone"), nullptr);
}

TEST_F(QtForms, MayBeShownAgainInTheirOwnClick) {
  int shown = 0;
  form_.on_activate = [&] { ++shown; };
  form_.cmdClose.on_click = [&] {
    form_.Unload();
    if (shown == 1) form_.ShowModal();
  };
  Click(form_, "cmdClose");
  Click(form_, "cmdClose");
  form_.ShowModal();
  EXPECT_EQ(shown, 2);
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(QtForms, LetAnEarlierModalCallReturnWhileALaterShowingStays) {
  form_.cmdClose.on_click = [&] {
    form_.Unload();
    form_.Show();
  };
  Click(form_, "cmdClose");
  form_.ShowModal();
  EXPECT_TRUE(form_.IsShowing());
  EXPECT_NE(WindowNamed("frmReal"), nullptr);
}

TEST_F(QtForms, AreUnloadedInTheirActivation) {
  form_.on_activate = [&] { form_.Unload(); };
  form_.ShowModal();
  EXPECT_EQ(WindowNamed("frmReal"), nullptr);
}

TEST_F(QtForms, MayBeClosedByATimerWhileTheyAreDrawn) {
  QObject context;
  QTimer::singleShot(0, &context, [&] { form_.RequestClose(); });
  form_.ShowModal();
  EXPECT_EQ(form_.life.front(), "load");
  EXPECT_EQ(form_.life.back(), "unload");
  EXPECT_EQ(WindowNamed("frmReal"), nullptr);
}

TEST_F(QtForms, MayBeDestroyedByATimerWhileTheyAreDrawn) {
  auto gone = std::make_unique<frmReal>(*desktop_, "frmGone");
  QObject context;
  QTimer::singleShot(0, &context, [&] { gone.reset(); });
  gone->ShowModal();
  EXPECT_EQ(gone, nullptr);
}

TEST_F(QtForms, NestAndKeepTheOuterOneFromTheUser) {
  frmReal inner(*desktop_, "frmInner");
  int outer_clicks = 0;
  form_.cmdClose.on_click = [&] {
    if (++outer_clicks == 1) return inner.ShowModal();
    form_.Unload();
  };
  Click(form_, "cmdClose");
  In("frmInner",
     [](QWidget&) { TryToClickIn(*Part<QPushButton>(WindowNamed("frmReal"), "cmdClose")); });
  Next([&] {
    EXPECT_EQ(outer_clicks, 1);
    ClickIn(*Part<QPushButton>(WindowNamed("frmInner"), "cmdClose"));
  });
  When([] { return WindowNamed("frmInner") == nullptr; },
       [] { ClickIn(*Part<QPushButton>(WindowNamed("frmReal"), "cmdClose")); });
  form_.ShowModal();
  EXPECT_EQ(outer_clicks, 2);
}

TEST_F(QtForms, LetTheOuterOneCloseWhileAnInnerOneWaits) {
  frmReal inner(*desktop_, "frmInner");
  form_.cmdClose.on_click = [&] { inner.ShowModal(); };
  Click(form_, "cmdClose");
  In("frmInner", [&](QWidget&) { form_.Unload(); });
  Next([&] {
    EXPECT_EQ(WindowNamed("frmReal"), nullptr);
    EXPECT_NE(WindowNamed("frmInner"), nullptr);
    inner.Unload();
  });
  form_.ShowModal();
}

TEST_F(QtForms, ThatAreNotModalDisableTheComponentsOthersAndNotTheHosts) {
  frmReal progress(*desktop_, "frmWork");
  QPushButton host("host");
  int host_clicks = 0;
  QObject::connect(&host, &QPushButton::clicked, [&] { ++host_clicks; });
  host.show();
  int clicks = 0;
  form_.cmdClose.on_click = [&] { ++clicks; };
  int work_clicks = 0;
  progress.cmdClose.on_click = [&] { ++work_clicks; };
  form_.Show();
  progress.Show();
  TryToClickIn(*Part<QPushButton>(WindowNamed("frmReal"), "cmdClose"));
  TryToClickIn(*Part<QPushButton>(WindowNamed("frmWork"), "cmdClose"));
  TryToClickIn(host);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(work_clicks, 1);
  EXPECT_EQ(host_clicks, 1);
  progress.Unload();
  TryToClickIn(*Part<QPushButton>(WindowNamed("frmReal"), "cmdClose"));
  EXPECT_EQ(clicks, 1);
}

TEST_F(QtForms, ThatAreNotModalWorkOverAModalOneAndNotUnderABox) {
  frmReal progress(*desktop_, "frmWork");
  int stops = 0;
  progress.cmdClose.on_click = [&] {
    ++stops;
    desktop_->MsgBox(AnyBox("Stop?", MsgBoxStyle::kYesNo));
  };
  form_.on_activate = [&] { progress.Show(); };
  Click(progress, "cmdClose");
  In("msgbox",
     [](QWidget&) { TryToClickIn(*Part<QPushButton>(WindowNamed("frmWork"), "cmdClose")); });
  AnswerBox(QMessageBox::No);
  When([] { return WindowNamed("msgbox") == nullptr; }, [&] { form_.Unload(); });
  form_.ShowModal();
  EXPECT_EQ(stops, 1);
}

TEST_F(QtForms, RaiseTheFailureOfAHandlerWhereTheyWereShown) {
  form_.cmdClose.on_click = Fail;
  Click(form_, "cmdClose");
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(WindowNamed("frmReal"), nullptr);
}

TEST_F(QtForms, ThatAreNotModalTellAFailureInABox) {
  form_.cmdClose.on_click = Fail;
  form_.Show();
  AnswerBox(QMessageBox::Ok);
  ClickIn(*Part<QPushButton>(WindowNamed("frmReal"), "cmdClose"));
  EXPECT_EQ(boxes(), (std::vector<SeenBox>{{"Quarvel", "Division by zero"}}));
  EXPECT_TRUE(form_.IsShowing());
}

TEST_F(QtForms, DoNotEndWithTheWishToQuitAndHandItOn) {
  class Quits : public QObject {
   public:
    int seen = 0;

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
      const bool quit = watched == qApp && event->type() == QEvent::Quit;
      if (quit) ++seen;
      return quit;
    }
  };
  Quits quits;
  qApp->installEventFilter(&quits);
  bool still_there = false;
  Next([] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); });
  Next([&] {
    still_there = form_.IsShowing();
    EXPECT_EQ(quits.seen, 0);
    form_.Unload();
  });
  form_.ShowModal();
  EXPECT_TRUE(still_there);
  QCoreApplication::sendPostedEvents(qApp, QEvent::Quit);
  EXPECT_EQ(quits.seen, 1);
}

TEST_F(QtForms, TakeTheCaptionAsItIs) {
  form_.set_caption("a [*] & b");
  form_.Show();
  EXPECT_EQ(WindowNamed("frmReal")->windowTitle().toStdString(), "a [*][*] & b");
  form_.set_caption("others");
  form_.set_caption("other");
  QApplication::processEvents();
  EXPECT_EQ(WindowNamed("frmReal")->windowTitle().toStdString(), "other");
}

// The window system answers to every one that it is told.
TEST_F(QtForms, ShowOneOfManyCaptionsAtATurnOfTheEvents) {
  form_.Show();
  int shown = 0;
  QObject::connect(WindowNamed("frmReal"), &QWidget::windowTitleChanged, [&shown] { ++shown; });
  for (int i = 0; i < 1000; ++i) form_.set_caption(std::to_string(i));
  QApplication::processEvents();
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(WindowNamed("frmReal")->windowTitle().toStdString(), "999");
}

TEST_F(QtForms, CloseByEscapeWhereADialogHasNoButtonForIt) {
  WhenActive(form_, [](QWidget& window) { PressKey(window, Qt::Key_Escape); });
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
}

std::size_t ResidentPages() {
  std::ifstream statm("/proc/self/statm");
  std::size_t all = 0;
  std::size_t resident = 0;
  statm >> all >> resident;
  return resident;
}

TEST_F(QtForms, LeaveNothingBehindAfterAThousandShowings) {
  form_.on_activate = [&] { form_.Unload(); };
  const auto show = [&](int times) {
    for (int i = 0; i < times; ++i) form_.ShowModal();
    desktop_->DoEvents();
  };
  show(200);
  const auto widgets = QApplication::allWidgets().size();
  const std::size_t pages = ResidentPages();
  show(1000);
  EXPECT_EQ(QApplication::allWidgets().size(), widgets);
  // A window of this size costs more than ten pages. The sanitizer keeps what was freed.
  if (!kAddressSanitizer) {
    EXPECT_LT(ResidentPages(), pages + 500);
  }
}

}  // namespace
}  // namespace quarvel::platform
