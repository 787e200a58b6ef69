#include "platform/console/console_desktop.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/any_box.h"
#include "tests/support/console_fixture.h"

namespace quarvel::platform {
namespace {

TEST_F(ConsoleDesktopTest, PrintsTheTextOfABox) {
  MsgBoxResult result = MsgBoxResult::kNo;
  const std::string printed = Printed([&] {
    result = desktop_.MsgBox(AnyBox("One\r\nTwo\rThree", MsgBoxStyle::kOk, kDefaultTitle));
  });
  EXPECT_EQ(result, MsgBoxResult::kOk);
  EXPECT_EQ(printed, "One\nTwo\nThree\n");
}

TEST_F(ConsoleDesktopTest, PrintsATitleThatIsNotItsOwn) {
  EXPECT_EQ(Printed([&] { desktop_.MsgBox(AnyBox("Text", MsgBoxStyle::kOk, "Note")); }),
            "Note\nText\n");
}

TEST_F(ConsoleDesktopTest, KeepsASilencedBoxSilent) {
  answers_.silent = true;
  MsgBoxResult result = MsgBoxResult::kYes;
  EXPECT_EQ(Printed([&] {
              desktop_.MsgBox(AnyBox("Text", MsgBoxStyle::kOk, "Note"));
              result = Question(MsgBoxStyle::kYesNo);
            }),
            "");
  EXPECT_EQ(result, MsgBoxResult::kNo);
}

TEST_F(ConsoleDesktopTest, TakesTheAnswerOfTheProgram) {
  answers_.box = MsgBoxResult::kYes;
  MsgBoxResult result = MsgBoxResult::kNo;
  EXPECT_EQ(Printed([&] { result = Question(MsgBoxStyle::kYesNo); }),
            "Confirm\nGo on?\nAnswer: Yes\n");
  EXPECT_EQ(result, MsgBoxResult::kYes);
}

TEST_F(ConsoleDesktopTest, TakesTheCautiousAnswerWithoutATerminal) {
  struct Case {
    MsgBoxStyle style;
    MsgBoxResult result;
    const char* printed;
  };
  const Case cases[] = {
      {MsgBoxStyle::kYesNo, MsgBoxResult::kNo, "Confirm\nGo on?\nAnswer: No\n"},
      {MsgBoxStyle::kYesNoExclamation, MsgBoxResult::kNo, "Confirm\nGo on?\nAnswer: No\n"},
      {MsgBoxStyle::kYesNoCancelExclamation, MsgBoxResult::kCancel,
       "Confirm\nGo on?\nAnswer: Cancel\n"},
  };
  for (const Case& c : cases) {
    MsgBoxResult result = MsgBoxResult::kOk;
    EXPECT_EQ(Printed([&] { result = Question(c.style); }), c.printed);
    EXPECT_EQ(result, c.result);
  }
}

TEST_F(ConsoleDesktopTest, UnderstandsWhatIsTyped) {
  struct Case {
    const char* line;
    MsgBoxResult result;
  };
  for (const Case c : {Case{"y", MsgBoxResult::kYes},
                       {" YES ", MsgBoxResult::kYes},
                       {"yE", MsgBoxResult::kYes},
                       {"n", MsgBoxResult::kNo},
                       {"No", MsgBoxResult::kNo},
                       {"c", MsgBoxResult::kCancel},
                       {"canc", MsgBoxResult::kCancel},
                       {"cancel", MsgBoxResult::kCancel}}) {
    Type({c.line});
    MsgBoxResult result = MsgBoxResult::kOk;
    EXPECT_EQ(Printed([&] { result = Question(MsgBoxStyle::kYesNoCancelExclamation); }),
              "Confirm\nGo on?\n[yes/no/cancel/quit] ");
    EXPECT_EQ(result, c.result) << c.line;
  }
}

TEST_F(ConsoleDesktopTest, NamesTheAnswersAfterNonsense) {
  Type({"", "yess", "all", "y"});
  MsgBoxResult result = MsgBoxResult::kOk;
  EXPECT_EQ(Printed([&] { result = Question(MsgBoxStyle::kYesNo); }),
            "Confirm\nGo on?\n[yes/no/quit] Answer yes, no or quit.\n[yes/no/quit] Answer yes, no "
            "or quit.\n[yes/no/quit] Answer yes, no or quit.\n[yes/no/quit] ");
  EXPECT_EQ(result, MsgBoxResult::kYes);
}

TEST_F(ConsoleDesktopTest, TakesTheCautiousAnswerAtTheEndOfInput) {
  Type({"maybe"});
  MsgBoxResult result = MsgBoxResult::kOk;
  Printed([&] { result = Question(MsgBoxStyle::kYesNoCancelExclamation); });
  EXPECT_EQ(result, MsgBoxResult::kCancel);
}

TEST_F(ConsoleDesktopTest, AnswersEveryQuestionOfTheKindAfterAll) {
  Type({"perhaps", "A"});
  Box box = {.kind = BoxKind::kReadProblem,
             .statement = "One is bad.",
             .question = "Go on?",
             .style = MsgBoxStyle::kYesNo};
  EXPECT_EQ(Printed([&] { EXPECT_EQ(desktop_.MsgBox(box), MsgBoxResult::kYes); }),
            "Quarvel\nOne is bad.\nGo on?\n[yes/no/all/quit] Answer yes, no, all or quit.\n"
            "[yes/no/all/quit] ");
  box.statement = "Two\x1b is bad.";
  EXPECT_EQ(Printed([&] { EXPECT_EQ(desktop_.MsgBox(box), MsgBoxResult::kYes); }),
            "Two\\x1B is bad.\n");
  EXPECT_FALSE(desktop_.has_quit());
  Type({"no"});
  box.kind = BoxKind::kEmptyItem;
  Printed([&] { EXPECT_EQ(desktop_.MsgBox(box), MsgBoxResult::kNo); });
}

TEST_F(ConsoleDesktopTest, AsksNothingMoreOnceTheUserQuits) {
  for (const std::deque<std::string>& typed : {std::deque<std::string>{"QUI"}, {}}) {
    ConsoleDesktop desktop(answers_);
    std::deque<std::string> lines = typed;
    desktop.set_interactive(true);
    desktop.set_line_source([&lines]() -> std::optional<std::string> {
      if (lines.empty()) return std::nullopt;
      std::string line = lines.front();
      lines.pop_front();
      return line;
    });
    const Box box = AnyBox("Go on?", MsgBoxStyle::kYesNoCancelExclamation, "Confirm");
    Printed([&] { EXPECT_EQ(desktop.MsgBox(box), MsgBoxResult::kCancel); });
    EXPECT_TRUE(desktop.has_quit());
    lines = {"yes"};
    EXPECT_EQ(Printed([&] { EXPECT_EQ(desktop.MsgBox(box), MsgBoxResult::kCancel); }), "");
  }
}

TEST_F(ConsoleDesktopTest, PrintsAQuestionItHasToAskEvenWhenSilenced) {
  answers_.silent = true;
  Type({"y"});
  EXPECT_EQ(Printed([&] { Question(MsgBoxStyle::kYesNo); }), "Confirm\nGo on?\n[yes/no/quit] ");
}

TEST_F(ConsoleDesktopTest, AsksForTextOnATerminalOnly) {
  EXPECT_EQ(desktop_.InputBox("How many?", "Count", "1"), "");
  Type({"12", ""});
  std::string first;
  std::string second;
  EXPECT_EQ(Printed([&] { first = desktop_.InputBox("How many?", "Count", ""); }),
            "Count\nHow many?\n> ");
  EXPECT_EQ(Printed([&] { second = desktop_.InputBox("How many?", "Count", "1"); }),
            "Count\nHow many?\n[1] > ");
  EXPECT_EQ(first, "12");
  EXPECT_EQ(second, "1");
}

TEST_F(ConsoleDesktopTest, TakesTheFileOfTheProgramAsItIs) {
  answers_.file = "out";
  const FileDialog dialog{FileDialog::Kind::kSave, "Save As...", "", ".mps", "offered"};
  EXPECT_EQ(desktop_.ShowFileDialog(dialog), "out");
}

TEST_F(ConsoleDesktopTest, CancelsAFileDialogNobodyAnswers) {
  FileDialog dialog;
  dialog.file_name = "offered";
  EXPECT_EQ(desktop_.ShowFileDialog(dialog), "");
}

TEST_F(ConsoleDesktopTest, CompletesATypedNameToSave) {
  struct Case {
    FileDialog::Kind kind;
    const char* typed;
    const char* name;
  };
  using enum FileDialog::Kind;
  for (const Case c : {Case{kSave, "m.d/out", "m.d/out.mps"},
                       {kSave, "out.txt", "out.txt"},
                       {kSave, "", ""},
                       {kOpen, " in ", "in"}}) {
    Type({c.typed});
    const FileDialog dialog{c.kind, "Choose", "", ".mps", ""};
    std::string name;
    EXPECT_EQ(Printed([&] { name = desktop_.ShowFileDialog(dialog); }), "Choose\n> ");
    EXPECT_EQ(name, c.name);
  }
}

TEST_F(ConsoleDesktopTest, SaysWhereAFileIsInsteadOfOpeningIt) {
  bool opened = false;
  EXPECT_EQ(Printed([&] { opened = desktop_.OpenInEditor("/m/model.log"); }), "See /m/model.log\n");
  EXPECT_TRUE(opened);
}

}  // namespace
}  // namespace quarvel::platform
