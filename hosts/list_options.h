// The options that choose what of a model is listed, and how much of it.
#pragma once

#include <span>

#include "hosts/option.h"

namespace quarvel::hosts {

inline constexpr OptionSet kMatch = OptionSet{1} << 64;
inline constexpr OptionSet kType = OptionSet{1} << 65;
inline constexpr OptionSet kInteger = OptionSet{1} << 66;
inline constexpr OptionSet kFree = OptionSet{1} << 67;
inline constexpr OptionSet kFixed = OptionSet{1} << 68;
inline constexpr OptionSet kEmpty = OptionSet{1} << 69;
inline constexpr OptionSet kSort = OptionSet{1} << 70;
inline constexpr OptionSet kFields = OptionSet{1} << 71;
inline constexpr OptionSet kCsv = OptionSet{1} << 72;
inline constexpr OptionSet kFull = OptionSet{1} << 73;

// All that a list of rows takes; one of columns takes kInteger too.
inline constexpr OptionSet kListing =
    kMatch | kType | kFree | kFixed | kEmpty | kSort | kFields | kCsv | kFull;

// In the order of a help text.
std::span<const Option> ListOptions();

}  // namespace quarvel::hosts
