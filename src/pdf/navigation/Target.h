#pragma once

#include <optional>
#include <string>

namespace pdf {

/// A part of a page: points from its lower left corner, Y upward.
struct View {
    double left = 0, bottom = 0, right = 0, top = 0;
};

/// Where a link leads.
struct Target {
    std::string file;  ///< Another file, relative to the folder of this one; empty: this one.
    int page = 0;      ///< In the other file, from 0.
    std::optional<View> view;  ///< In the other file; nothing: the whole page.
    std::string name;          ///< Of a destination in this file.
    std::string description;   ///< What is there, as references print it.
};

}  // namespace pdf
