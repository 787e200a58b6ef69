// quarvel spy: the matrix as a picture, in the terminal or as a file.

#include <algorithm>

#include "hosts/braille_picture.h"
#include "hosts/commands.h"
#include "hosts/input_bytes.h"
#include "hosts/made_file.h"
#include "hosts/picture_file.h"
#include "hosts/png_file.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

// Of a pipe, and of a terminal that nobody knows the size of.
constexpr std::size_t kUsualWidth = 80;
constexpr std::size_t kUsualHeight = 40;
constexpr std::size_t kMostCells = 10000;  // as --width and --height
// Lines of a screen that are not the picture's: its frame, numbers and words, and the next prompt.
constexpr std::int32_t kOtherLines = 7;

BrailleRoom TerminalRoom(const Session& session) {
  const Screen& screen = session.streams.screen;
  const auto cells = [](std::size_t known, std::size_t usual) {
    return static_cast<std::int32_t>(std::min<std::size_t>(known != 0 ? known : usual, kMostCells));
  };
  BrailleRoom room = {.width = cells(screen.width, kUsualWidth),
                      .height = std::max(cells(screen.height, kUsualHeight) - kOtherLines, 8),
                      .pen = Pen(session.arguments.color, screen)};
  if (session.arguments.width) room.width = *session.arguments.width;
  if (session.arguments.height) room.height = *session.arguments.height;
  return room;
}

// What makes the bytes of a file of that name. Null for a suffix of no picture.
using PictureWriter = std::string (*)(const model::ModelStore&, const PictureRoom&);
PictureWriter WriterFor(std::string_view path) {
  if (path.ends_with(".svg")) return SvgPicture;
  return path.ends_with(".png") ? PngPicture : nullptr;
}

void NoteOtherSize(Session& session, std::string_view side, std::optional<std::int32_t> wanted,
                   std::int32_t size) {
  if (!wanted || *wanted == size) return;
  session.Note(session.arguments.output + " is " + text::IntegerText(size) + " pixels " +
               std::string(side) + ", not " + text::IntegerText(*wanted) +
               ": the numbers beside the matrix leave no less");
}

void WritePicture(Session& session, PictureWriter writer) {
  const std::string& path = session.arguments.output;
  PictureRoom room;
  room.whole_width = session.arguments.width;
  room.whole_height = session.arguments.height;
  WriteMadeFile(path, writer(session.model().store(), room));
  session.streams.out << text::OneLine(path) + ": " + SizeText(session.model()) + '\n';
  const inspect::PictureSize size = PictureSizeOf(session.model().store(), room);
  NoteOtherSize(session, "wide", room.whole_width, size.width);
  NoteOtherSize(session, "high", room.whole_height, size.height);
}

}  // namespace

std::string SpyHelp() {
  return "Each dot is an element, or some of them where there are more rows or columns than dots. In a "
         "file\nthat ends in .svg or .png darker points have more elements; --width and --height are those of the "
         "whole\npicture there. One of them alone leaves the other to the shape of the matrix.\n";
}

int RunSpy(Session& session) {
  const std::string& output = session.arguments.output;
  const PictureWriter writer = WriterFor(output);
  if (!output.empty() && writer == nullptr) {
    throw CommandError(kUsage, "spy writes files that end in .svg or .png, not " + output);
  }
  if (writer == PngPicture && !CanWritePng()) {
    throw CommandError(kProblem,
                       "this program was built without zlib, which .png files need: draw "
                       "into a file that ends in .svg");
  }
  const std::string& model = session.arguments.operands[0];
  if (!output.empty() && IsSameFile(output, model)) {
    throw CommandError(kUsage, "spy cannot draw over the model");
  }
  session.Read(model);
  const model::ModelStore& store = session.model().store();
  if (store.NumberOfRows() == 0 || store.NumberOfColumns() == 0) {
    throw CommandError(kProblem,
                       NameOfInput(model) + " has no matrix to draw: " + SizeText(session.model()));
  }
  if (writer != nullptr) {
    WritePicture(session, writer);
    return kGood;
  }
  const BrailleRoom room = TerminalRoom(session);
  session.streams.out << text::OneLine(NameOfInput(model)) + ": " + SizeText(session.model()) + '\n'
                      << BraillePicture(store, room);
  return kGood;
}

}  // namespace quarvel::hosts
