// The model as a whole.

#include "quarvel/model.h"

#include <cmath>
#include <utility>

#include "api/parts.h"

namespace quarvel {

using api::Translated;

static_assert(api::IsSameNumber(ObjectiveSense::kNotSaid, mps::ObjectiveSense::kNotSaid));
static_assert(api::IsSameNumber(ObjectiveSense::kMinimize, mps::ObjectiveSense::kMinimize));
static_assert(api::IsSameNumber(ObjectiveSense::kMaximize, mps::ObjectiveSense::kMaximize));

Model::Model() : parts_(std::make_unique<Parts>()) {}
Model::~Model() = default;
Model::Model(Model&& other) noexcept = default;
Model& Model::operator=(Model&& other) noexcept = default;

Model Model::Copy() const {
  return Translated([&] {
    Model copy;
    copy.parts_->store.Take(parts_->store.data());
    copy.parts_->facts = parts_->facts;
    return copy;
  });
}

std::int32_t Model::row_count() const { return parts_->store.NumberOfRows(); }
std::int32_t Model::column_count() const { return parts_->store.NumberOfColumns(); }
std::int32_t Model::element_count() const { return parts_->store.NumberOfElements(); }
std::string Model::name() const { return parts_->store.settings().ModelName; }
std::string Model::description() const { return parts_->store.settings().ModelDescription; }
std::string Model::path() const { return parts_->store.settings().FileLocation; }

Facts Model::facts() const {
  const mps::FileFacts& facts = parts_->facts;
  return {.sense = static_cast<ObjectiveSense>(facts.sense),
          .objective = facts.objective,
          .objective_constant = facts.objective_constant,
          .rhs_set = facts.rhs_set,
          .ranges_set = facts.ranges_set,
          .bounds_set = facts.bounds_set};
}

void Model::set_name(std::string_view name) {
  api::CheckIdle(*parts_);
  parts_->store.settings().ModelName = name;
}

void Model::set_description(std::string_view description) {
  api::CheckIdle(*parts_);
  parts_->store.settings().ModelDescription = description;
}

void Model::set_facts(const Facts& facts) {
  api::CheckIdle(*parts_);
  if (!std::isfinite(facts.objective_constant)) {
    throw Error(ErrorCode::kValue, "The objective's constant is not finite");
  }
  if (!facts.objective.empty()) {
    const auto row = FindRow(facts.objective);
    if (!row || TypeOfRow(*row) != RowType::kFree) {
      throw Error(ErrorCode::kValue, "There is no free row of the name " + facts.objective);
    }
  }
  mps::FileFacts changed = parts_->facts;
  changed.sense = static_cast<mps::ObjectiveSense>(facts.sense);
  changed.objective = facts.objective;
  changed.objective_constant = facts.objective_constant;
  changed.rhs_set = facts.rhs_set;
  changed.ranges_set = facts.ranges_set;
  changed.bounds_set = facts.bounds_set;
  parts_->facts = std::move(changed);
}

}  // namespace quarvel
