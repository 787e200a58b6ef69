// What a message box tells or asks, as data. Whoever shows a box reads its words, whoever answers
// one without a user reads the rest: nobody recognises a box by its words.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/automation_error.h"

namespace quarvel::platform {

// Buttons and icon of a message box; the numbers are those every automation host knows.
enum class MsgBoxStyle : int {
  kOk = 0,                       // OK, no icon
  kYesNo = 4,                    // Yes and No, no icon
  kYesNoCancelExclamation = 51,  // Yes, No and Cancel, exclamation icon
  kYesNoExclamation = 52,        // Yes and No, exclamation icon
};

enum class MsgBoxResult : int { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

// What a style means to every drawer.
struct BoxLook {
  std::span<const MsgBoxResult> buttons;  // in the order they stand; Enter presses the first
  bool exclamation;                       // with that icon, else with none
  MsgBoxResult when_closed;               // what closing the box by other means answers

  bool Has(MsgBoxResult button) const;
  // False for a box that only tells.
  bool asks() const { return buttons.size() > 1; }
};
BoxLook LookOf(MsgBoxStyle style);

// What a box is. A new kind is a new line here, and the compiler names whoever must decide on it.
enum class BoxKind {
  // These tell.
  kRefusal,  // what was asked for is not done
  kFailure,  // nor is it here, because something failed
  kNote,     // it is done, and there is something to know about it
  kAbout,
  // These ask.
  kReadProblem,      // a file's problem: read on?
  kEmptyItem,        // rows or columns of a file without elements: read on?
  kConflict,         // a row against its column's bounds: remove it, reset them, or stop?
  kOfferToSimplify,  // Yes simplifies the model
  kOfferLog,         // Yes shows the log of a simplification
  kOfferToSave,      // before the model is given up
  kConfirmStop,      // of long work
  kConfirmDeletion,
};

// What a box without a title of its own carries.
inline constexpr std::string_view kDefaultTitle = "Quarvel";

struct Box {
  BoxKind kind;
  std::string statement;  // what is so; empty where there is nothing to say before the question
  std::string question;   // empty when the box only tells
  MsgBoxStyle style = MsgBoxStyle::kOk;
  std::string title = std::string(kDefaultTitle);
  // Of a problem.
  // A name of what is wrong that stays when the words change, from the room that asks; its text is a
  // literal. Empty when the box is no problem.
  std::string_view code = {};
  std::int64_t line = 0;                               // of the file; 0 when it is about none
  std::string item = {};                               // the name of the row or column it is about
  std::optional<RunTimeError> failure = std::nullopt;  // of the system

  // All its words: the question on a line below the statement.
  std::string text() const;
  BoxLook look() const { return LookOf(style); }
};

// One plain box that tells.
Box Refusal(std::string_view statement);
Box Note(std::string_view statement);
Box Failure(const AutomationError& error);

// A box that is all question.
Box Question(BoxKind kind, std::string_view question, MsgBoxStyle style = MsgBoxStyle::kYesNo,
             std::string_view title = kDefaultTitle);

}  // namespace quarvel::platform
