#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "app/Program.h"

namespace faults {

/// The real program, running beside the test in the folder of a tests::Program.
class Child {
public:
    /// What is to be done in the new process before it becomes the program; it must not allocate.
    using Preparation = std::function<void()>;

    Child(
        const tests::Program& program, std::vector<std::string> arguments,
        const Preparation& prepare = [] {});
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Holds it where it is. False if it has ended.
    bool Stop();
    void Continue() const;
    /// Whether it has a file of the folder open that is not in its place yet.
    bool IsWriting() const;
    void Kill();
    bool HasEnded();
    /// Waits for the end.
    tests::Outcome End();

private:
    bool Take(int options);

    const tests::Program& program_;
    std::string errorsName_;
    pid_t process_;
    bool ended_ = false;
    int status_ = 0;
};

/// Runs a command to its end, in a process prepared in this way.
tests::Outcome RunPrepared(const tests::Program& program, std::vector<std::string> arguments,
                           const Child::Preparation& prepare);

}  // namespace faults
