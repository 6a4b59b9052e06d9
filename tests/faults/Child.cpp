#include "faults/Child.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace faults {

Child::Child(const tests::Program& program, std::vector<std::string> arguments,
             const Preparation& prepare)
    : program_(program) {
    static int number = 0;
    errorsName_ = ".errors" + std::to_string(++number);
    arguments.insert(arguments.begin(), GAZETTEER_PROGRAM);
    std::vector<char*> pointers;
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const std::string folder = program_.File(".");
    const std::string errors = program_.File(errorsName_);

    process_ = ::fork();
    if (process_ < 0) throw std::runtime_error("no process could be made");
    if (process_ != 0) return;
    if (::chdir(folder.c_str()) != 0) ::_exit(126);
    ::setenv("LC_ALL", "en_US.UTF-8", 1);
    ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
    ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
    prepare();
    ::execv(pointers[0], pointers.data());
    ::_exit(127);
}

Child::~Child() {
    Kill();
    std::error_code ignored;
    std::filesystem::remove(program_.File(errorsName_), ignored);
}

bool Child::Take(int options) {
    int status = 0;
    if (!ended_ && ::waitpid(process_, &status, options) == process_ && !WIFSTOPPED(status)) {
        ended_ = true;
        status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return ended_;
}

bool Child::Stop() {
    if (HasEnded()) return false;
    ::kill(process_, SIGSTOP);
    return !Take(WUNTRACED);
}

void Child::Continue() const {
    ::kill(process_, SIGCONT);
}

bool Child::IsWriting() const {
    std::error_code error;
    const std::filesystem::path open = "/proc/" + std::to_string(process_) + "/fd";
    for (const auto& file : std::filesystem::directory_iterator(open, error)) {
        const std::string place = std::filesystem::read_symlink(file, error).string();
        const std::string name = std::filesystem::path(place).filename().string();
        if (place.starts_with(program_.File("")) &&
            (name.ends_with(" (deleted)") || name.ends_with(".tmp")))
            return true;
    }
    return false;
}

void Child::Kill() {
    if (!ended_) ::kill(process_, SIGKILL);
    Take(0);
}

bool Child::HasEnded() {
    return Take(WNOHANG);
}

tests::Outcome Child::End() {
    Take(0);
    return {status_, {}, program_.Bytes(errorsName_)};
}

tests::Outcome RunPrepared(const tests::Program& program, std::vector<std::string> arguments,
                           const Child::Preparation& prepare) {
    return Child(program, std::move(arguments), prepare).End();
}

}  // namespace faults
