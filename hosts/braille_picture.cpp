#include "hosts/braille_picture.h"

#include <algorithm>
#include <array>

#include "hosts/printing.h"
#include "inspect/matrix_picture.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::MatrixPicture;
using inspect::PictureSize;

constexpr std::int32_t kDotsAcross = 2;
constexpr std::int32_t kDotsDown = 4;
// A picture of few rows is this many letters high where it has so many rows.
constexpr std::int32_t kLeastLetters = 8;
// One element of a small matrix is drawn as large as this.
constexpr std::int32_t kMostDots = 4;

// The bit of each dot of a letter, by line and column.
constexpr std::array<std::array<unsigned, 2>, 4> kDots = {
    {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}}};

// Letters that stand for few elements, for more, and for many.
enum class Shade : std::uint8_t { kFew, kMore, kMany };

struct Letter {
  unsigned dots = 0;
  std::int32_t elements = 0;
};

// U+2800 to U+28FF.
void AppendBraille(std::string& text, unsigned dots) {
  text += '\xE2';
  text += static_cast<char>(0xA0U + (dots >> 6U));
  text += static_cast<char>(0x80U + (dots & 0x3FU));
}

class Drawing {
 public:
  Drawing(const model::ModelStore& store, const BrailleRoom& room)
      : pen_(room.pen),
        margin_(text::IntegerText(std::max(store.NumberOfRows() - 1, 1000)).size()),
        picture_(store, Fit(store, room)),
        dots_(DotsOfPoint(room)) {}

  std::string Text() const;

 private:
  static std::int32_t DotsWide(const model::ModelStore& store, const BrailleRoom& room) {
    const std::size_t margin =
        text::IntegerText(std::max(store.NumberOfRows() - 1, 1000)).size() + 3;
    return std::max(room.width - static_cast<std::int32_t>(margin), 1) * kDotsAcross;
  }
  static PictureSize Fit(const model::ModelStore& store, const BrailleRoom& room);
  std::int32_t DotsOfPoint(const BrailleRoom& room) const;

  std::int32_t LettersWide() const { return Letters(picture_.width(), kDotsAcross); }
  std::int32_t LettersHigh() const { return Letters(picture_.height(), kDotsDown); }
  std::int32_t Letters(std::int32_t points, std::int32_t dots_of_letter) const {
    return (points * dots_ + dots_of_letter - 1) / dots_of_letter;
  }
  Letter LetterAt(std::int32_t x, std::int32_t y) const;
  std::int32_t Fullest() const;
  std::string Heading() const;
  std::string Scale() const;
  Shade ShadeOf(const Letter& letter, std::int32_t fullest) const;
  std::string Draw(Shade shade, std::string_view letters) const;
  void AppendLetters(std::string& text, std::int32_t y, std::int32_t fullest) const;
  void AppendBorder(std::string& text, std::string_view left, std::string_view right) const;

  Pen pen_;
  std::size_t margin_;
  MatrixPicture picture_;
  std::int32_t dots_;  // each point is so many dots wide and high
};

// As wide as there is room, and as high as the shape asks for.
PictureSize Drawing::Fit(const model::ModelStore& store, const BrailleRoom& room) {
  const std::int32_t rows = store.NumberOfRows();
  const std::int32_t columns = store.NumberOfColumns();
  const std::int32_t width = std::min(columns, DotsWide(store, room));
  const std::int64_t shaped = std::int64_t{rows} * width / std::max(columns, 1);
  const std::int64_t high = std::max(shaped, std::int64_t{kLeastLetters} * kDotsDown);
  return {width, static_cast<std::int32_t>(
                     std::min({high, std::int64_t{rows}, std::int64_t{room.height} * kDotsDown}))};
}

std::int32_t Drawing::DotsOfPoint(const BrailleRoom& room) const {
  if (picture_.width() < picture_.columns() || picture_.height() < picture_.rows()) return 1;
  const std::int32_t margin = static_cast<std::int32_t>(margin_) + 3;
  const std::int32_t wide = (room.width - margin) * kDotsAcross / std::max(picture_.width(), 1);
  const std::int32_t high = room.height * kDotsDown / std::max(picture_.height(), 1);
  return std::clamp(std::min(wide, high), 1, kMostDots);
}

Letter Drawing::LetterAt(std::int32_t x, std::int32_t y) const {
  Letter letter;
  for (std::int32_t line = 0; line < kDotsDown; ++line) {
    for (std::int32_t place = 0; place < kDotsAcross; ++place) {
      const std::int32_t point_x = (x * kDotsAcross + place) / dots_;
      const std::int32_t point_y = (y * kDotsDown + line) / dots_;
      if (point_x >= picture_.width() || point_y >= picture_.height()) continue;
      const std::int32_t elements = picture_.At(point_x, point_y);
      letter.elements += elements;
      if (elements > 0) {
        letter.dots |= kDots[static_cast<std::size_t>(line)][static_cast<std::size_t>(place)];
      }
    }
  }
  return letter;
}

std::int32_t Drawing::Fullest() const {
  std::int32_t fullest = 0;
  for (std::int32_t y = 0; y < LettersHigh(); ++y) {
    for (std::int32_t x = 0; x < LettersWide(); ++x) {
      fullest = std::max(fullest, LetterAt(x, y).elements);
    }
  }
  return fullest;
}

// The number of the first column and of the last one above the frame, the word between them.
std::string Drawing::Heading() const {
  const std::string last = text::IntegerText(picture_.columns() - 1);
  const auto width = static_cast<std::size_t>(LettersWide());
  std::string line(margin_ + 2, ' ');
  constexpr std::string_view kWord = "columns";
  if (width < kWord.size() + last.size() + 7) return line + "columns 0 to " + last + '\n';
  line += '0';
  const std::size_t free = width - 1 - kWord.size() - last.size();
  line.append(free / 2, ' ').append(kWord).append(free - free / 2, ' ');
  return line + last + '\n';
}

void Drawing::AppendBorder(std::string& text, std::string_view left, std::string_view right) const {
  text += left;
  for (std::int32_t x = 0; x < LettersWide(); ++x) text += "\u2500";
  text.append(right).append("\n");
}

Shade Drawing::ShadeOf(const Letter& letter, std::int32_t fullest) const {
  if (!pen_.is_colored() || letter.elements == 0 || picture_.most() <= 1) return Shade::kMore;
  return static_cast<Shade>(inspect::ShadeOf(letter.elements, fullest, 3) - 1);
}

std::string Drawing::Draw(Shade shade, std::string_view letters) const {
  if (shade == Shade::kMore) return std::string(letters);
  return pen_.Draw(shade == Shade::kFew ? Ink::kAside : Ink::kHeading, letters);
}

void Drawing::AppendLetters(std::string& text, std::int32_t y, std::int32_t fullest) const {
  Shade shade = Shade::kMore;
  std::string run;  // of letters of one shade
  for (std::int32_t x = 0; x < LettersWide(); ++x) {
    const Letter letter = LetterAt(x, y);
    const Shade wanted = ShadeOf(letter, fullest);
    if (wanted != shade) {
      text += Draw(shade, run);
      run.clear();
      shade = wanted;
    }
    AppendBraille(run, letter.dots);
  }
  text += Draw(shade, run);
}

std::string Drawing::Scale() const {
  if (dots_ > 1 || (picture_.width() == picture_.columns() && picture_.height() == picture_.rows()))
    return "";
  std::string text(kScaleStart);
  text += Counted((picture_.rows() + picture_.height() - 1) / picture_.height(), "row") + " by " +
          Counted((picture_.columns() + picture_.width() - 1) / picture_.width(), "column");
  return text + "; the fullest has " + Counted(picture_.most(), "element") + ".\n";
}

std::string Drawing::Text() const {
  std::string text = Heading();
  const std::int32_t high = LettersHigh();
  const std::int32_t fullest = pen_.is_colored() ? Fullest() : 0;
  text.append(margin_ + 1, ' ');
  AppendBorder(text, "\u250C", "\u2510");
  for (std::int32_t y = 0; y < high; ++y) {
    std::string label = y == high / 2 ? "rows" : "";
    if (y == high - 1) label = text::IntegerText(picture_.rows() - 1);
    if (y == 0) label = "0";
    AppendRight(text, label, margin_);
    text += " \u2502";
    AppendLetters(text, y, fullest);
    text += "\u2502\n";
  }
  text.append(margin_ + 1, ' ');
  AppendBorder(text, "\u2514", "\u2518");
  return text + Scale();
}

}  // namespace

std::string BraillePicture(const model::ModelStore& store, const BrailleRoom& room) {
  return Drawing(store, {std::max(room.width, 20), std::max(room.height, 1), room.pen}).Text();
}

}  // namespace quarvel::hosts
