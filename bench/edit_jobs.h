// Jobs that make many small edits of a model that they build themselves, each as a host would: the
// cost of all together must grow with their number and not with its square.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quarvel::bench {

inline constexpr std::array kEditJobs = {
    "delete-rows-by-name",
    "delete-columns-by-name",
    "delete-and-add",
    "delete-rows-and-columns",
    "delete-rows-asking-about-columns",
    "delete-rows-of-a-dense-column",
    "delete-binding-rows",
    "simplify-disagreeing-pairs",
    "change-row-types",
    "set-dense-column",
    "delete-from-dense-row",
    "add-to-dense-lists",
};

// Makes about `size` edits of a model of about `size` rows, and prints the seconds they took. False
// when there is no such job.
bool RunEditJob(std::string_view name, std::int32_t size);

}  // namespace quarvel::bench
