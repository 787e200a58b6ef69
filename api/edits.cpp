// Changes of a model. Whatever may fail comes before the first change.

#include <cmath>

#include "api/parts.h"
#include "model/name_key.h"

namespace quarvel {
namespace {

using api::Translated;

void CheckName(std::string_view name, bool is_in_use) {
  if (name.empty()) throw Error(ErrorCode::kName, "A name must not be empty");
  if (name.find(' ') != std::string_view::npos) {
    throw Error(ErrorCode::kName, "A name must not have a blank: " + std::string(name));
  }
  if (is_in_use) throw Error(ErrorCode::kName, "The name is in use: " + std::string(name));
}

// As the store has what is absent.
model::Bounds StoredBounds(const Bounds& bounds) {
  if (std::isnan(bounds.lower) || std::isnan(bounds.upper)) {
    throw Error(ErrorCode::kValue, "A bound is not a number");
  }
  if (bounds.lower == HUGE_VAL || bounds.upper == -HUGE_VAL) {
    throw Error(ErrorCode::kValue, "No value keeps an infinite bound");
  }
  return {bounds.has_lower() ? bounds.lower : -model::BoundLimit,
          bounds.has_upper() ? bounds.upper : model::BoundLimit};
}

model::ColumnType StoredType(ColumnType type) {
  if (type == ColumnType::kContinuous) return model::ColumnType::kContinuous;
  if (type == ColumnType::kInteger) return model::ColumnType::kInteger;
  throw Error(ErrorCode::kValue, "There is no such type of columns");
}

void CheckValue(double value) {
  if (!std::isfinite(value)) throw Error(ErrorCode::kValue, "The value is not finite");
}

// Runs a change of a model that nothing works on.
template <class Change>
auto Changed(ModelParts& parts, const Change& change) {
  api::CheckIdle(parts);
  return Translated([&] { return change(parts.store); });
}

}  // namespace

std::int32_t Model::AddRow(std::string_view name, const Bounds& bounds) {
  return Changed(*parts_, [&](model::ModelStore& store) {
    const model::NameKey key = model::NameKey::Of(name);
    CheckName(name, store.FindRow(key, name) != 0);
    const model::Bounds stored = StoredBounds(bounds);
    const std::int32_t row = store.AddRow(key, name);
    store.RowBounds(row) = stored;
    store.SetRowType(row, model::RowTypeOf(stored.LowerBound, stored.UpperBound));
    return model::Public(row);
  });
}

std::int32_t Model::AddColumn(std::string_view name, const Bounds& bounds, ColumnType type) {
  return Changed(*parts_, [&](model::ModelStore& store) {
    const model::NameKey key = model::NameKey::Of(name);
    CheckName(name, store.FindColumn(key, name) != 0);
    const model::Bounds stored = StoredBounds(bounds);
    const model::ColumnType stored_type = StoredType(type);
    const std::int32_t column = store.AddColumn(key, name);
    store.ColumnBounds(column) = stored;
    store.SetColumnType(column, stored_type);
    return model::Public(column);
  });
}

void Model::AddElement(std::int32_t row, std::int32_t column, double value) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t r = model::CheckRow(row, store.NumberOfRows());
    const std::int32_t c = model::CheckColumn(column, store.NumberOfColumns());
    CheckValue(value);
    store.AddElement(r, c, value);
  });
}

void Model::SetCoefficient(std::int32_t row, std::int32_t column, double value) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t r = model::CheckRow(row, store.NumberOfRows());
    const std::int32_t c = model::CheckColumn(column, store.NumberOfColumns());
    CheckValue(value);
    const std::int32_t k = store.FindElement(r, c);
    if (k == 0) {
      store.AddElement(r, c, value);
    } else {
      store.SetElementValue(r, k, value);
    }
  });
}

void Model::RenameRow(std::int32_t row, std::string_view name) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t r = model::CheckRow(row, store.NumberOfRows());
    CheckName(name, store.FindRow(name) != 0);
    const bool is_objective = store.looks().NameOfRow(r) == parts_->facts.objective;
    std::string objective(name);
    store.RenameRow(r, name);
    if (is_objective) parts_->facts.objective.swap(objective);
  });
}

void Model::RenameColumn(std::int32_t column, std::string_view name) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t c = model::CheckColumn(column, store.NumberOfColumns());
    CheckName(name, store.FindColumn(name) != 0);
    store.RenameColumn(c, name);
  });
}

void Model::SetRowBounds(std::int32_t row, const Bounds& bounds) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t r = model::CheckRow(row, store.NumberOfRows());
    const model::Bounds stored = StoredBounds(bounds);
    store.SetRowType(r, model::RowTypeOf(stored.LowerBound, stored.UpperBound));
    store.RowBounds(r) = stored;
    api::DropLostObjective(*parts_);
  });
}

void Model::SetColumnBounds(std::int32_t column, const Bounds& bounds) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t c = model::CheckColumn(column, store.NumberOfColumns());
    store.ColumnBounds(c) = StoredBounds(bounds);
  });
}

void Model::SetColumnType(std::int32_t column, ColumnType type) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t c = model::CheckColumn(column, store.NumberOfColumns());
    store.SetColumnType(c, StoredType(type));
  });
}

void Model::RemoveRow(std::int32_t row) {
  Changed(*parts_, [&](model::ModelStore& store) {
    store.RemoveRow(model::CheckRow(row, store.NumberOfRows()));
    api::DropLostObjective(*parts_);
  });
}

void Model::RemoveColumn(std::int32_t column) {
  Changed(*parts_, [&](model::ModelStore& store) {
    store.RemoveColumn(model::CheckColumn(column, store.NumberOfColumns()));
    api::DropLostObjective(*parts_);
  });
}

void Model::RemoveElement(std::int32_t row, std::int32_t k) {
  Changed(*parts_, [&](model::ModelStore& store) {
    const std::int32_t r = model::CheckRow(row, store.NumberOfRows());
    store.RemoveElement(r, model::CheckRowElement(k, store.ElementsInRow(r)));
    api::DropLostObjective(*parts_);
  });
}

}  // namespace quarvel
