#include <cstdio>
#include <fstream>
#include <hb-ot.h>
#include <hb.h>
#include <string>
#include <string_view>

/// Lower bound for numbering pages: reads the finished texts of an index and shapes each name and
/// each text of references once with HarfBuzz.
namespace {

constexpr int kPoints = 8;
constexpr int kUnitsPerPoint = 64;

// Frees nothing, since the process ends.
class Shaper {
public:
    explicit Shaper(const char* fontFile)
        : font_(hb_font_create(hb_face_create(hb_blob_create_from_file(fontFile), 0))),
          buffer_(hb_buffer_create()) {
        hb_font_set_scale(font_, kPoints * kUnitsPerPoint, kPoints * kUnitsPerPoint);
    }

    long Width(std::string_view text) {
        const int length = static_cast<int>(text.size());
        hb_buffer_clear_contents(buffer_);
        hb_buffer_add_utf8(buffer_, text.data(), length, 0, length);
        hb_buffer_set_direction(buffer_, HB_DIRECTION_LTR);
        hb_buffer_set_script(buffer_, HB_SCRIPT_LATIN);
        hb_shape(font_, buffer_, nullptr, 0);
        unsigned count = 0;
        const auto* positions = hb_buffer_get_glyph_positions(buffer_, &count);
        long width = 0;
        for (unsigned i = 0; i < count; ++i) width += positions[i].x_advance;
        return width;
    }

private:
    hb_font_t* font_;
    hb_buffer_t* buffer_;
};

std::string ReadAll(const char* path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

// Removes and returns the text before the separator, or all of it.
std::string_view TakeTo(char separator, std::string_view& text) {
    const std::string_view taken = text.substr(0, text.find(separator));
    text.remove_prefix(taken.size() < text.size() ? taken.size() + 1 : taken.size());
    return taken;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: harfbuzz_floor FONT TEXTS\n", stderr);
        return 2;
    }
    const std::string bytes = ReadAll(arguments[2]);
    Shaper shaper(arguments[1]);
    std::size_t entries = 0;
    long width = 0;
    for (std::string_view rest = bytes; !rest.empty(); ++entries) {
        std::string_view line = TakeTo('\n', rest);
        TakeTo('\t', line);  // The sort key.
        width += shaper.Width(TakeTo('\t', line));
        width += shaper.Width(TakeTo('\t', line));
    }
    std::printf("%zu entries, %ld units wide\n", entries, width);
    return width > 0 ? 0 : 1;
}
