// The matrix of a model as a picture: a grid of points, each of which counts the elements of the rows
// and columns that it stands for. Row and column 0 are at the top and at the left.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/model_store.h"

namespace quarvel::inspect {

struct PictureSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

class MatrixPicture {
 public:
  // At most `size` points, and no more than there are columns and rows. One pass over the column lists;
  // 4 bytes for each row and each point.
  MatrixPicture(const model::ModelStore& store, PictureSize size);

  std::int32_t width() const { return size_.width; }
  std::int32_t height() const { return size_.height; }
  std::int32_t rows() const { return rows_; }
  std::int32_t columns() const { return columns_; }
  // How many elements stand at a point, numbered from 0.
  std::int32_t At(std::int32_t x, std::int32_t y) const { return counts_[Position(x, y)]; }
  // Of the fullest point; 0 when there are no elements.
  std::int32_t most() const { return most_; }

 private:
  // Points of one column of the picture stand side by side, as elements of a column do.
  std::size_t Position(std::int32_t x, std::int32_t y) const {
    return static_cast<std::size_t>(x) * static_cast<std::size_t>(size_.height) +
           static_cast<std::size_t>(y);
  }

  std::int32_t rows_;
  std::int32_t columns_;
  PictureSize size_;
  std::int32_t most_ = 0;
  std::vector<std::int32_t> counts_;
};

// The size of a picture that has the shape of so many rows and columns and fits within `room`. Neither
// side is made shorter than `least` points, where there are as many rows or columns.
PictureSize FitPicture(std::int32_t rows, std::int32_t columns, PictureSize room,
                       std::int32_t least);

// How dark the points of a picture are, on a scale of the logarithm: 0 for an empty one, `levels` for the
// fullest, at least 1 for any other.
class PictureShades {
 public:
  // `picture` must outlive it.
  PictureShades(const MatrixPicture& picture, int levels);

  int At(std::int32_t x, std::int32_t y) const {
    const std::int32_t count = picture_.At(x, y);
    const auto place = static_cast<std::size_t>(count);
    return place < of_few_.size() ? of_few_[place] : OfMany(count);
  }

 private:
  int OfMany(std::int32_t count) const;

  const MatrixPicture& picture_;
  int levels_;
  std::vector<int> of_few_;  // by count: most points have small ones, and a logarithm takes long
};

// A shade from 1 to `levels` for a count from 1 to `most`.
int ShadeOf(std::int32_t count, std::int32_t most, int levels);

}  // namespace quarvel::inspect
