#pragma once

#include <string>
#include <vector>

namespace app {

/// Returns a sentence about options of the command line as one about the controls of the page.
std::string InWordsOfPage(std::string sentence);

/// Returns a text in which files are named without their folders, but for those that have the same
/// name in several folders.
std::string WithoutFolders(std::string text, const std::vector<std::string>& files);

}  // namespace app
