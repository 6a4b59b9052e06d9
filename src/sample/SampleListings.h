#pragma once

#include <span>

#include "host/Host.h"
#include "model/Settings.h"

/// The content of the sample index: places of a town, with what settings of typesetting act on:
/// digits, marks over letters, lower-case initials, names of several lines, words too long for a
/// line, several references, a letter that goes on over a page.
namespace gazetteer {

struct SampleListing {
    const char* name;
    const char* reference;
};

std::span<const SampleListing> SampleListings();

/// Size of the frame of a page, inches: two column groups and about a dozen lines.
inline constexpr double kSampleWidth = 3.0;
inline constexpr double kSampleHeight = 1.42;

/// The settings of the sample: two columns of small type in two column groups, with letter headings
/// and every other line shaded.
Settings SampleSettings(host::IHost& host);

}  // namespace gazetteer
