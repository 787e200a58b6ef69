// quarvel spy: the matrix as a picture, in the terminal or as a file.

#include <algorithm>

#include "hosts/braille_picture.h"
#include "hosts/commands.h"
#include "hosts/input_bytes.h"
#include "hosts/made_file.h"
#include "hosts/picture_file.h"
#include "hosts/png_file.h"
#include "text/cell_width.h"
#include "text/numbers.h"
#include "text/upper_case.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

// Of a pipe, and of a terminal that nobody knows the size of.
constexpr std::size_t kUsualWidth = 80;
constexpr std::size_t kUsualHeight = 40;
constexpr std::size_t kMostCells = 10000;  // as --width and --height
// Lines of a screen that are not the picture's: its frame, numbers and words, and the next prompt.
constexpr std::int32_t kOtherLines = 7;
constexpr std::int32_t kFrameLines = 3;  // above and below the letters

BrailleRoom TerminalRoom(const Session& session) {
  const Screen& screen = session.streams.screen;
  const auto cells = [](std::size_t known, std::size_t usual) {
    return static_cast<std::int32_t>(std::min<std::size_t>(known != 0 ? known : usual, kMostCells));
  };
  BrailleRoom room = {.width = cells(screen.width, kUsualWidth),
                      .height = std::max(cells(screen.height, kUsualHeight) - kOtherLines, 8),
                      .pen = Pen(session.arguments.color, screen)};
  if (session.arguments.width) room.width = *session.arguments.width;
  if (session.arguments.height) room.height = std::max(*session.arguments.height - kFrameLines, 1);
  return room;
}

// What makes the bytes of a file of that name. Null for a suffix of no picture.
using PictureWriter = std::string (*)(const model::ModelStore&, const PictureRoom&);
PictureWriter WriterFor(std::string_view path) {
  const std::string upper = text::UpperCase(path);
  if (upper.ends_with(".SVG")) return SvgPicture;
  return upper.ends_with(".PNG") ? PngPicture : nullptr;
}

// `unit`: what it is measured in, and in which direction.
void NoteOtherSize(Session& session, std::string_view unit, std::int32_t wanted,
                   std::int32_t size) {
  const std::string& output = session.arguments.output;
  session.Note((output.empty() ? "the picture" : output) + " is " + text::IntegerText(size) + ' ' +
               std::string(unit) + ", not " + text::IntegerText(wanted) +
               ": the numbers beside the matrix leave no less");
}

std::string WithoutColors(std::string_view line) {
  std::string plain;
  while (!line.empty()) {
    const std::size_t code = std::min(line.find('\x1B'), line.size());
    plain += line.substr(0, code);
    const std::size_t end = line.find('m', code);
    line.remove_prefix(end == line.npos ? line.size() : end + 1);
  }
  return plain;
}

// Of characters; without the words below it.
inspect::PictureSize SizeOfLetters(std::string_view picture) {
  inspect::PictureSize size = {0, 0};
  while (!picture.empty() && !picture.starts_with(kScaleStart)) {
    const std::size_t end = picture.find('\n');
    const std::size_t cells = text::CellCount(WithoutColors(picture.substr(0, end)));
    size.width = std::max(size.width, static_cast<std::int32_t>(cells));
    ++size.height;
    picture.remove_prefix(end + 1);
  }
  return size;
}

void PrintPicture(Session& session, const std::string& name) {
  const std::string picture = BraillePicture(session.model().store(), TerminalRoom(session));
  session.streams.out << text::OneLine(name) + ": " + SizeText(session.model()) + '\n' << picture;
  const inspect::PictureSize size = SizeOfLetters(picture);
  const Arguments& arguments = session.arguments;
  if (arguments.width && size.width > *arguments.width) {
    NoteOtherSize(session, "characters wide", *arguments.width, size.width);
  }
  if (arguments.height && size.height > *arguments.height) {
    NoteOtherSize(session, "lines high", *arguments.height, size.height);
  }
}

void WritePicture(Session& session, PictureWriter writer) {
  const std::string& path = session.arguments.output;
  PictureRoom room;
  room.whole_width = session.arguments.width;
  room.whole_height = session.arguments.height;
  WriteMadeFile(path, writer(session.model().store(), room));
  session.streams.out << text::OneLine(path) + ": " + SizeText(session.model()) + '\n';
  const inspect::PictureSize size = PictureSizeOf(session.model().store(), room);
  if (room.whole_width && *room.whole_width != size.width) {
    NoteOtherSize(session, "pixels wide", *room.whole_width, size.width);
  }
  if (room.whole_height && *room.whole_height != size.height) {
    NoteOtherSize(session, "pixels high", *room.whole_height, size.height);
  }
}

}  // namespace

std::string SpyHelp() {
  return "Each dot is an element, or some of them where there are more rows or columns than dots. In a "
         "file\nthat ends in .svg or .png darker points have more elements; --width and --height are those of the "
         "whole\npicture, its frame and numbers included. One of them alone leaves the other to the shape of the matrix.\n";
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
  PrintPicture(session, NameOfInput(model));
  return kGood;
}

}  // namespace quarvel::hosts
