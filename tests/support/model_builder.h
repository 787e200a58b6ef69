// Builds a model by hand, straight in its store, so that a test states the whole model in a few lines
// and does not depend on the operations that read or edit one. The invariant of the data
// holds after every call.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "component/lp_model.h"

namespace quarvel {

// Changes the stored fields of a model in any way, also one that no operation would.
template <class Change>
void ChangeFields(LPModel& model, const Change& change) {
  model::ModelData data = model.store().data();
  change(data);
  model.store().Take(std::move(data));
}

// As a failed read leaves a model: also the log of a simplification that goes on is closed.
inline void ClearModel(LPModel& model) {
  model.store().Clear();
  model.store().settings().LogFileNumber = 0;
}

class ModelBuilder {
 public:
  // Adds to what `model` holds; hidden placeholder records are dropped. The model must outlive the
  // builder.
  explicit ModelBuilder(LPModel& model);

  ModelBuilder& Name(std::string_view name);
  ModelBuilder& Description(std::string_view description);
  ModelBuilder& Location(std::string_view path);

  // For a type stands its letter, kNoType for none. Throws std::invalid_argument for a letter of no
  // type.
  static constexpr char kNoType = ' ';

  // A row of type "N", "G", "L" or "E" with the limits that its right-hand side gives it.
  ModelBuilder& Row(std::string_view name, char type, double right_hand_side = 0);
  // A row of any type with any limits.
  ModelBuilder& RowWithin(std::string_view name, char type, double lower, double upper);
  // A row of type "R".
  ModelBuilder& Ranged(std::string_view name, double lower, double upper) {
    return RowWithin(name, 'R', lower, upper);
  }

  ModelBuilder& Column(std::string_view name, double lower = 0, double upper = model::BoundLimit,
                       char type = 'R');
  ModelBuilder& Integer(std::string_view name, double lower = 0, double upper = model::BoundLimit) {
    return Column(name, lower, upper, 'I');
  }

  // A coefficient, in both lists. Throws std::invalid_argument for a name that the model does not
  // have.
  ModelBuilder& Element(std::string_view column, std::string_view row, double value);

 private:
  model::ModelStore& store_;
};

}  // namespace quarvel
