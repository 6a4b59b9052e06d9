#pragma once

#include "desk/files/FileState.h"

namespace desk {

/// Lets one program at a time look at a file and replace it, so that of two that read the same
/// content the second finds it replaced. The lock hangs on the open file, not on a file of its own:
/// it goes with the program, however that ends.
class SaveLock {
public:
    /// Where the place cannot be locked, by its nature or since nothing is there, all goes on
    /// without a lock.
    explicit SaveLock(const std::string& path);
    ~SaveLock();
    SaveLock(const SaveLock&) = delete;
    SaveLock& operator=(const SaveLock&) = delete;

    /// Another program is about to replace the file.
    bool HeldByOther() const { return heldByOther_; }

private:
    int file_;
    bool heldByOther_ = false;
};

}  // namespace desk
