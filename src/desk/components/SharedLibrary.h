#pragma once

#include <string>

namespace desk {

/// A library that is loaded while this object exists, unless it is kept.
class SharedLibrary {
public:
    /// Throws host::Failure that calls the library by the given words, such as "The component
    /// library", if the file is missing or cannot be loaded.
    SharedLibrary(std::string words, std::string file);
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    ~SharedLibrary();

    const std::string& File() const { return file_; }
    /// Returns the address of an entry point; null if the library has none of that name.
    void* Find(const char* entry) const;
    /// Leaves the library loaded.
    void Keep() { handle_ = nullptr; }

private:
    std::string file_;
    void* handle_ = nullptr;
};

/// Returns the path of a library of this program: ../lib/NAME from its executable.
std::string LibraryOfProgram(const std::string& name);

}  // namespace desk
