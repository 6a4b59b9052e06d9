#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "app/Program.h"

namespace tests {

/// How much ink a plate carries at each point of a page, 0 to 255, from the top left.
struct Plate {
    std::string inks;
    int width = 0;

    bool Exists() const { return width > 0; }
    int Most() const {
        return inks.empty() ? 0 : static_cast<unsigned char>(*std::ranges::max_element(inks, Less));
    }
    std::ptrdiff_t Count(int ink) const { return std::ranges::count(inks, static_cast<char>(ink)); }
    int At(int x, int y) const {
        return static_cast<unsigned char>(inks.at(static_cast<std::size_t>(y * width + x)));
    }

private:
    static bool Less(char a, char b) {
        return static_cast<unsigned char>(a) < static_cast<unsigned char>(b);
    }
};

/// The first page of a PDF, separated by Ghostscript.
class Plates {
public:
    Plates(const Program& program, const std::string& pdf, int dotsPerInch = 72)
        : program_(program), name_(pdf) {
        program.Shell(
            "gs -q -dNOPAUSE -dBATCH -sDEVICE=tiffsep -sCompression=none -dLastPage=1 "
            "-r" +
            std::to_string(dotsPerInch) + " -o '" + pdf + ".tif' '" + pdf + "' 2>&1");
    }

    /// Reads a plate, such as that of "Cyan"; one that is not there has no width.
    Plate Of(const std::string& ink) const {
        const std::string file = program_.Read(name_ + '(' + ink + ").tif");
        if (file.empty()) return {};
        // TIFF: entries of 12 bytes, each with its tag first and its value last. What is not
        // compressed stands at the end of the file.
        const auto number = [&](std::size_t at, int bytes) {
            std::size_t value = 0;
            while (bytes-- > 0)
                value = value << 8U |
                        static_cast<unsigned char>(file.at(at + static_cast<std::size_t>(bytes)));
            return value;
        };
        const std::size_t entries = number(4, 4);
        std::size_t width = 0;
        std::size_t height = 0;
        for (std::size_t i = 0; i < number(entries, 2); ++i) {
            const std::size_t entry = entries + 2 + 12 * i;
            if (number(entry, 2) == 256) width = number(entry + 8, 2);
            if (number(entry, 2) == 257) height = number(entry + 8, 2);
        }
        Plate plate{file.substr(file.size() - width * height), static_cast<int>(width)};
        for (char& byte : plate.inks) byte = static_cast<char>(~byte);  // White is no ink.
        return plate;
    }

private:
    const Program& program_;
    std::string name_;
};

}  // namespace tests
