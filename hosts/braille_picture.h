// A picture of a matrix in characters of a terminal: braille letters of 2 by 4 points each, a frame, and
// the numbers of rows and columns, from 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "hosts/screen.h"
#include "model/model_store.h"

namespace quarvel::hosts {

struct BrailleRoom {
  std::int32_t width = 80;   // characters of a line, the frame and the numbers included
  std::int32_t height = 30;  // lines of the picture itself, at most
  // Where it draws in colors, letters that stand for few elements are faint, those for many bold.
  Pen pen = {ColorChoice::kNever, {}};
};

// How the line below a picture begins that says what its dots are, where there is one.
inline constexpr std::string_view kScaleStart = "A dot is up to ";

// For the help of the command.
std::string SpyHelp();

// Lines with a line end each, of a matrix that has rows and columns. The smallest room is 20 characters and 1 line.
std::string BraillePicture(const model::ModelStore& store, const BrailleRoom& room);

}  // namespace quarvel::hosts
