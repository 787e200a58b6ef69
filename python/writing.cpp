// Writing, with the interpreter's lock given away, and the receipt.

#include <string>

#include <pybind11/stl.h>

#include "api/streams.h"
#include "hosts/packing/file_bytes.h"
#include "hosts/packing/packing.h"
#include "python/core.h"
#include "python/lock.h"
#include "python/signals.h"
#include "python/texts.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;

py::dict LossOf(const Loss& loss) {
  constexpr const char* kWeights[] = {"breaks", "changes", "noted"};
  py::dict told;
  told["weight"] = kWeights[static_cast<int>(loss.weight)];
  told["name"] = std::string(loss.name);
  told["count"] = loss.count;
  told["sentences"] = py::tuple(py::cast(loss.sentences));
  return told;
}

py::dict ReceiptOf(const Receipt& receipt) {
  py::list losses;
  for (const Loss& loss : receipt.losses) losses.append(LossOf(loss));
  py::dict told;
  told["outcome"] = static_cast<int>(receipt.outcome);
  told["rows"] = receipt.rows;
  told["columns"] = receipt.columns;
  told["elements"] = receipt.elements;
  told["is_read_again"] = receipt.is_read_again;
  told["equal_rows"] = receipt.equal_rows;
  told["equal_columns"] = receipt.equal_columns;
  told["equal_elements"] = receipt.equal_elements;
  told["losses"] = losses;
  told["unexpected"] = py::tuple(py::cast(receipt.unexpected));
  told["fits_fixed_columns"] = receipt.fits_fixed_columns;
  told["failure"] = Told(receipt.failure);
  told["notes"] = Told(receipt.notes);
  told["is_whole"] = receipt.is_whole();
  return told;
}

WriteOptions OptionsOf(const py::dict& given, Pulse& pulse) {
  WriteOptions options;
  options.layout = static_cast<Layout>(given["layout"].cast<int>());
  options.allow_changes = given["allow_changes"].cast<bool>();
  options.strict = given["strict"].cast<bool>();
  // One measure for both stages: the first half is the writing, the second the reading again.
  options.on_progress = [&pulse, last = WriteStage::kWriting](WriteStage stage,
                                                              double part) mutable {
    if (stage != last) pulse.Hurry();
    last = stage;
    return pulse.Beat(stage == WriteStage::kWriting ? part / 2 : 0.5 + part / 2, 1.0);
  };
  return options;
}

Receipt WriteAsNamed(Model& model, const std::string& path, const WriteOptions& options) {
  const hosts::Packing* const packing = hosts::PackingOfSuffix(path);
  if (packing == nullptr) return WriteFile(model, path, options);
  if (packing->pack == nullptr) {
    Receipt receipt;
    receipt.failure = "this build has no " + std::string(packing->name);
    return receipt;
  }
  return api::WritePacked(model, path, {packing->pack, hosts::Unpacked}, options);
}

// Runs `write` with the options and a pulse.
template <class Write>
py::dict Done(SharedModel& shared, const py::dict& given, const py::object& progress,
              const Write& write) {
  const Use use(shared);
  Pulse pulse(progress);
  const WriteOptions options = OptionsOf(given, pulse);
  Receipt receipt;
  {
    const Unlocked unlocked;
    receipt = write(shared.model, options);
    pulse.Rethrow();
    if (receipt.is_written()) pulse.End(1.0);
  }
  py::dict told = ReceiptOf(receipt);
  told["is_stopped"] = pulse.is_stopped();
  return told;
}

py::dict Written(SharedModel& shared, const std::string& path, const py::dict& given,
                 const py::object& progress) {
  return Done(shared, given, progress, [&path](Model& model, const WriteOptions& options) {
    return WriteAsNamed(model, path, options);
  });
}

py::tuple Text(SharedModel& shared, const py::dict& given, const py::object& progress) {
  std::string text;
  const py::dict told =
      Done(shared, given, progress, [&text](const Model& model, const WriteOptions& options) {
        return WriteText(model, text, options);
      });
  return py::make_tuple(py::bytes(text), told);
}

}  // namespace

void AddWriting(ModelClass& model) {
  model.def("write_file", &Written);
  model.def("write_bytes", &Text);
}

}  // namespace quarvel::python
