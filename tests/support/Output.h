#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace support {

/// Standard output of a command.
inline std::string Output(const std::string& command) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 4096> bytes{};
    while (const auto count = std::fread(bytes.data(), 1, bytes.size(), pipe.get()))
        output.append(bytes.data(), count);
    return output;
}

/// The text of a PDF, in reading order or as it lies on the page.
inline std::string PdfText(const std::string& path, const char* layout = "-layout") {
    return Output(std::string("pdftotext ") + layout + " '" + path + "' -");
}

}  // namespace support
