#include "hosts/output_name.h"

#include <algorithm>
#include <iterator>

#include "hosts/packing/packing.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

// Other files that people have, those that commands of this program make among them; any other suffix is
// the user's own business.
constexpr std::string_view kOtherFormats[] = {
    // models and what belongs to them
    ".LP",
    ".SOL",
    ".NL",
    ".MOD",
    ".GMS",
    ".BAS",
    ".LOG",
    // data and texts for programs
    ".JSON",
    ".CSV",
    ".TSV",
    ".XML",
    ".YAML",
    ".YML",
    ".TOML",
    ".SQL",
    ".DB",
    ".SQLITE",
    ".PARQUET",
    ".NPY",
    ".NPZ",
    ".PKL",
    // pictures and pages
    ".SVG",
    ".PNG",
    ".JPG",
    ".JPEG",
    ".GIF",
    ".BMP",
    ".TIF",
    ".TIFF",
    ".WEBP",
    ".ICO",
    ".MP3",
    ".MP4",
    ".WAV",
    ".HTML",
    ".HTM",
    ".XHTML",
    ".CSS",
    ".PDF",
    ".PS",
    ".EPS",
    // documents
    ".DOC",
    ".DOCX",
    ".XLS",
    ".XLSX",
    ".PPT",
    ".PPTX",
    ".ODT",
    ".ODS",
    ".ODP",
    ".RTF",
    ".TEX",
    ".MD",
    // archives, and what is packed in ways that are not written here
    ".ZIP",
    ".TAR",
    ".TGZ",
    ".TBZ2",
    ".TXZ",
    ".TZST",
    ".RAR",
    ".7Z",
    ".Z",
    ".LZ",
    ".LZ4",
    ".LZMA",
    ".LZO",
    ".ZSTD",
    ".BZ",
    ".GZIP",
    ".BZIP2",
    ".TAZ",
    ".TBZ",
    ".DEB",
    ".RPM",
    ".BR",
    ".ISO",
    // programs
    ".PY",
    ".JL",
    ".CC",
    ".CPP",
    ".HPP",
    ".CS",
    ".JAVA",
    ".JS",
    ".RS",
    ".GO",
    ".SH",
    ".BAT",
    ".PS1",
    ".EXE",
    ".DLL",
    ".SO",
    ".O",
    ".A",
};

}  // namespace

std::string ObjectionToOutput(std::string_view path) {
  if (const Packing* const packing = PackingOfSuffix(path); packing != nullptr) {
    if (packing->pack == nullptr) {
      return "cannot be written: this program was built without " + std::string(packing->name);
    }
    path.remove_suffix(packing->suffix.size());
  }
  std::string upper(path);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return text::UpperCaseAscii(c); });
  const auto* const found =
      std::find_if(std::begin(kOtherFormats), std::end(kOtherFormats),
                   [&upper](std::string_view suffix) { return upper.ends_with(suffix); });
  if (found == std::end(kOtherFormats)) return {};
  const std::string suffix(path.substr(path.size() - found->size()));
  return "is no name for an MPS file: " + suffix +
         " is another format; a name that ends in .mps is fine, packed in .mps.gz, .bz2, .xz or .zst";
}

}  // namespace quarvel::hosts
