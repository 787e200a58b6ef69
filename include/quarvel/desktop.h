// Reading, saving and simplifying with the questions of the automation component, which a desktop of the
// caller's own shows: as windows of a toolkit, as lines on a terminal, as answers kept in a table.
//
//   class Terminal : public quarvel::Desktop { ... };
//   Terminal terminal;
//   quarvel::Model model;
//   if (quarvel::AskAndRead(model, terminal) == quarvel::Asked::kDone) ...
//
// Whoever wants no questions uses files.h and simplify.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "quarvel/export.h"
#include "quarvel/model.h"

namespace quarvel {

enum class Button : std::uint8_t { kOk, kCancel, kYes, kNo };

// What a box is, for who answers one without a user: nobody needs to recognise it by its words. A later
// version may add kinds.
enum class BoxKind : std::uint8_t {
  // These tell, and have OK alone.
  kRefusal,  // what was asked for is not done
  kFailure,  // nor is it here, because something failed
  kNote,     // it is done, and there is something to know about it
  // These ask.
  kReadProblem,      // of a file: read on?
  kEmptyItem,        // rows or columns of a file without elements: read on?
  kConflict,         // a row against its column's bounds: remove it (Yes), reset them (No), or end?
  kOfferToSimplify,  // a model that was just read
  kOther,
};

struct Box {
  BoxKind kind = BoxKind::kOther;
  std::string title = {};
  std::string text = {};               // with its question; lines are joined by CR LF
  std::vector<Button> buttons = {};    // in the order they stand; Enter presses the first
  Button when_closed = Button::kOk;    // what closing the box by other means answers
  std::string_view problem_name = {};  // "no-such-row"; empty when it is no problem of a file
  std::int64_t line = 0;               // of that file; 0 when it is about none
  std::string item = {};               // the name of the row or column that it is about
};

// One of several options, with an OK button.
struct Choice {
  std::string title = {};
  std::string text = {};
  std::vector<std::string> options = {};
  std::size_t selected = 0;  // at first
};

struct FileQuestion {
  bool is_for_saving = false;
  std::string title = {};
  // Pairs of words and patterns, all separated by "|": "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*".
  std::string filter = {};
  std::string default_extension = {};  // with its point, for a name without one
  std::string folder = {};             // where the user begins to look; empty: anywhere
};

// Calls come in the thread of the call that asks, and from within it. They may look at the model; every
// change of it is Error kBusy. What one of them throws is thrown by the call that asks, once that has
// ended as if everything after had been closed.
class QUARVEL_API Desktop {
 public:
  virtual ~Desktop();

  // Shows a modal box and waits for its answer. Anything but one of its buttons is as if it was closed.
  virtual Button ShowBox(const Box& box) = 0;
  // Gives the number of the option, from 0. The one that is selected, unless it is overridden; so is any
  // number of none.
  virtual std::size_t Choose(const Choice& choice);
  // Gives a path; empty when the user cancelled.
  virtual std::string ChooseFile(const FileQuestion& question) = 0;
  // Called now and then while work goes on, with words for it and the part that is done, 0 to 1. False
  // stops it. True unless it is overridden.
  virtual bool ShowProgress(std::string_view words, double part);
};

enum class Asked : std::uint8_t {
  kDone,
  kCancelled,  // the user has chosen no file, and the model is as it was
  kFailed,     // or was stopped: a box has told why
};

// Asks for a file and for the bounds of columns that it gives none, and reads it as the component does,
// in place of what the model holds: each problem is a box; the offer to simplify follows. kFailed leaves
// an empty model.
QUARVEL_API Asked AskAndRead(Model& model, Desktop& desktop);
// Asks for a file and writes the model there as the component does, by Layout::kComponent. kDone also when
// there was nothing to write, after its box.
QUARVEL_API Asked AskAndSave(Model& model, Desktop& desktop);
// Simplifies with a box for each conflict. kDone also when nothing was there to simplify, after its box.
// What there is to tell of it stands in `log`, unless that is null: as SimplifyResult::log.
QUARVEL_API Asked AskAndSimplify(Model& model, Desktop& desktop, std::string* log = nullptr);

}  // namespace quarvel
