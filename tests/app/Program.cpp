#include "app/Program.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include "support/FindingCases.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

void Redirect(const std::string& path, int stream) {
    ::dup2(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), stream);
}

// A property set's list of names and values as an object, and the sets in it likewise.
nlohmann::json AsObject(const nlohmann::json& value) {
    if (!value.is_object() || !value.contains("set")) return value;
    nlohmann::json object = nlohmann::json::object();
    for (const auto& entry : value["set"]) object[entry[0].get<std::string>()] = AsObject(entry[1]);
    return object;
}

}  // namespace

testing::AssertionResult Contains(const std::string& text, const std::string& piece) {
    const bool found = text.find(piece) != std::string::npos;
    return (found ? testing::AssertionSuccess() : testing::AssertionFailure())
           << '"' << piece << "\" and the text:\n"
           << text;
}

Program::Program() {
    WriteTable("streets.dbf", {{"Main St", "6", "2", "3"},
                               {"Abbey Road", "4", "1", "2"},
                               {"Abbey Road", "9", "3", "1"},
                               {"Abbey Road", "4", "1", "2"}});
}

Outcome Program::Run(std::vector<std::string> arguments) const {
    return Child(*this, std::move(arguments)).End();
}

Outcome Program::Done(std::vector<std::string> arguments) const {
    auto outcome = Run(std::move(arguments));
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return outcome;
}

nlohmann::json Program::Stored(const std::string& document) const {
    const auto whole = nlohmann::json::parse(Read(document));
    for (const auto& element : whole["page"]["elements"])
        if (element.contains("custom"))
            return AsObject(element["custom"])["CorvaneProperties"]["GazetteerProperties"];
    return {};
}

void Program::WriteTable(const std::string& name,
                         const std::vector<std::vector<std::string>>& rows) const {
    support::WriteListingTable(File(name), rows);
}

void Program::WriteLongTable(const std::string& name, int listings) const {
    support::WriteLongTable(File(name), listings);
}

Child::Child(const Program& program, std::vector<std::string> arguments) : program_(program) {
    arguments.insert(arguments.begin(), GAZETTEER_PROGRAM);
    std::vector<char*> pointers;
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    process_ = ::fork();
    if (process_ < 0) throw std::runtime_error("no process could be made");
    if (process_ != 0) return;
    if (::chdir(program_.File("").c_str()) != 0) ::_exit(126);
    ::setenv("LC_ALL", "en_US.UTF-8", 1);
    ::setenv("XDG_DATA_HOME", program_.File("data").c_str(), 1);
    Redirect(streams_.File("output"), STDOUT_FILENO);
    Redirect(streams_.File("errors"), STDERR_FILENO);
    ::execv(pointers[0], pointers.data());
    ::_exit(127);
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

bool Child::IsWriting() const {
    std::error_code error;
    const fs::path open = "/proc/" + std::to_string(process_) + "/fd";
    for (const auto& file : fs::directory_iterator(open, error)) {
        const fs::path place = fs::read_symlink(file, error);
        const std::string name = place.filename();
        if (place.string().starts_with(program_.File("")) &&
            (name.ends_with(" (deleted)") || name.ends_with(".tmp")))
            return true;
    }
    return false;
}

void Child::Kill() {
    if (!ended_) ::kill(process_, SIGKILL);
    Take(0);
}

Outcome Child::End() {
    Take(0);
    return {status_, streams_.Read("output"), streams_.Read("errors")};
}

}  // namespace tests
