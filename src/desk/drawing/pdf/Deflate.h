#pragma once

#include <memory>
#include <string>
#include <string_view>

struct libdeflate_compressor;

namespace desk::pdf {

/// Compresses the streams of a file.
class Deflate {
public:
    Deflate();
    ~Deflate();

    /// The bytes in zlib's format. They stand until the next call.
    std::string_view Compress(std::string_view bytes);

private:
    struct Release {
        void operator()(libdeflate_compressor* compressor) const;
    };

    std::unique_ptr<libdeflate_compressor, Release> compressor_;
    std::string store_;
};

}  // namespace desk::pdf
