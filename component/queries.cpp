// Queries by number.

#include "component/lp_model.h"

namespace quarvel {

double LPModel::ColUpperBound(std::int32_t j) const {
  return Guarded([&] { return store_.looks().BoundsOfColumn(ColumnNumber(j)).UpperBound; });
}

double LPModel::ColLowerBound(std::int32_t j) const {
  return Guarded([&] { return store_.looks().BoundsOfColumn(ColumnNumber(j)).LowerBound; });
}

std::string LPModel::ColName(std::int32_t j) const {
  return Guarded([&] { return std::string(store_.looks().NameOfColumn(ColumnNumber(j))); });
}

std::string LPModel::ColType(std::int32_t j) const {
  return Guarded([&] { return model::TypeText(store_.looks().TypeOfColumn(ColumnNumber(j))); });
}

double LPModel::RowUpperBound(std::int32_t i) const {
  return Guarded([&] { return store_.looks().BoundsOfRow(RowNumber(i)).UpperBound; });
}

double LPModel::RowLowerBound(std::int32_t i) const {
  return Guarded([&] { return store_.looks().BoundsOfRow(RowNumber(i)).LowerBound; });
}

std::string LPModel::RowName(std::int32_t i) const {
  return Guarded([&] { return std::string(store_.looks().NameOfRow(RowNumber(i))); });
}

std::string LPModel::RowType(std::int32_t i) const {
  return Guarded([&] { return model::TypeText(store_.looks().TypeOfRow(RowNumber(i))); });
}

double LPModel::ElementValue(std::int32_t i, std::int32_t j) const {
  return Guarded([&] {
    const std::int32_t r = model::CheckRowOfPair(i, NumberOfRows());
    return store_.looks().ElementValue(r, model::CheckColumnOfPair(j, NumberOfColumns()));
  });
}

std::int32_t LPModel::BindingRowIndex(std::int32_t i) const {
  return Guarded([&] {
    const std::int32_t count = store_.looks().CountListed(model::RowList::kBinding);
    return model::Public(
        store_.looks().Listed(model::RowList::kBinding, model::CheckBindingRowIndex(i, count)));
  });
}

std::int32_t LPModel::NonBindingRowIndex(std::int32_t i) const {
  return Guarded([&] {
    const std::int32_t count = store_.looks().CountListed(model::RowList::kNonBinding);
    return model::Public(store_.looks().Listed(model::RowList::kNonBinding,
                                               model::CheckNonBindingRowIndex(i, count)));
  });
}

model::ElementEntry LPModel::RowElementSlowly(std::int32_t i, std::int32_t k) const {
  return Guarded([&] {
    const std::int32_t r = RowNumber(i);
    return store_.looks().RowElement(r, model::CheckRowElement(k, store_.ElementsInRow(r)));
  });
}

model::ElementEntry LPModel::ColumnElementSlowly(std::int32_t j, std::int32_t k) const {
  return Guarded([&] {
    const model::RecordLooks looks = store_.looks();
    const std::int32_t c = ColumnNumber(j);
    return looks.ColumnElement(c, model::CheckColumnElement(k, looks.ElementsInColumn(c)));
  });
}

std::int32_t LPModel::RowNumberElementsSlowly(std::int32_t i) const {
  return Guarded([&] { return store_.ElementsInRow(RowNumber(i)); });
}

std::int32_t LPModel::ColNumberElementsSlowly(std::int32_t j) const {
  return Guarded([&] { return store_.looks().ElementsInColumn(ColumnNumber(j)); });
}

}  // namespace quarvel
