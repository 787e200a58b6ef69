// Reading and writing with other bytes in files than those of the model, such as packed ones: what the
// project's own programs need beside the public headers, which name no streams.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/byte_sink.h"
#include "platform/byte_source.h"
#include "quarvel/files.h"

namespace quarvel::api {

// Gives the bytes of the model. Called again where lines are to be shown, and may then give null. It may
// raise what opening a file raises, which becomes a problem of the read.
using OpenBytes = std::function<std::unique_ptr<platform::ByteSource>()>;

// ReadFile, of the bytes that `open` gives; `path` is what they are called, and becomes the model's.
ReadResult ReadOpened(const OpenBytes& open, const std::string& path, Model& model,
                      const ReadOptions& options);

// What bytes go through on their way to a file, and what gives them back.
struct Packer {
  std::function<std::unique_ptr<platform::ByteSink>(platform::ByteSink& stored)> pack;
  std::function<std::unique_ptr<platform::ByteSource>(std::unique_ptr<platform::ByteSource> stored)>
      unpack;
};

// WriteFile, with the file packed.
Receipt WritePacked(Model& model, const std::string& path, const Packer& packer,
                    const WriteOptions& options);

}  // namespace quarvel::api
