// The bytes of a file, whatever people have put around them: what is compressed with gzip, bzip2, xz or
// zstd is known by its first bytes and read as what it holds.
#pragma once

#include <memory>
#include <string>

#include "platform/byte_source.h"

namespace quarvel::hosts {

bool IsFolder(const std::string& path);

// The bytes of the file as they stand there. Raises what opening raises, of a folder and of a link that leads
// back to itself saying that it is one.
std::unique_ptr<platform::ByteSource> OpenFile(const std::string& path);

// What `bytes` hold when their first ones say that they are compressed, else `bytes` as they are. Raises 57
// with a description of its own for what is compressed in a way that this build cannot read, for archives,
// and for what is packed twice. Reading raises 57 for compressed data that are damaged or cut off.
std::unique_ptr<platform::ByteSource> Unpacked(std::unique_ptr<platform::ByteSource> bytes);

}  // namespace quarvel::hosts
