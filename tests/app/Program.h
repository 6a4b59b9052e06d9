#pragma once

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <sys/wait.h>
#include <vector>

#include "support/DbfBuilder.h"
#include "support/Output.h"
#include "support/TemporaryFolder.h"

namespace tests {

/// What a run of the program left.
struct Outcome {
    int status = -1;  ///< Negative: the signal that ended it.
    std::string output;
    std::string errors;

    nlohmann::json Json() const { return nlohmann::json::parse(output); }
};

/// Whether a piece stands in a text; a failed expectation shows both.
testing::AssertionResult Contains(const std::string& text, const std::string& piece);

/// The real program, run in a folder of its own as a user would run it.
class Program : public support::TemporaryFolder {
public:
    Program();

    Outcome Run(std::vector<std::string> arguments) const;
    /// Runs a command that must succeed.
    Outcome Done(std::vector<std::string> arguments) const;
    /// Standard output of a shell command that runs in the folder.
    std::string Shell(const std::string& command) const {
        return support::Output("cd '" + Path() + "' && " + command);
    }

    bool Exists(const std::string& name) const { return std::filesystem::exists(File(name)); }
    /// The values under the gazetteer's keys as the document stores them, by name.
    nlohmann::json Stored(const std::string& document) const;

    /// A table with Listing (C 40), Page, Row and Column (N 4).
    void WriteTable(const std::string& name,
                    const std::vector<std::vector<std::string>>& rows) const;
    /// As many listings as asked for, two to a letter, each with its number as the page.
    void WriteLongTable(const std::string& name, int listings) const;
};

/// A run of the program beside the test.
class Child {
public:
    Child(const Program& program, std::vector<std::string> arguments);
    ~Child() { Kill(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Holds it where it is. False if it has ended.
    bool Stop();
    void Continue() const { ::kill(process_, SIGCONT); }
    /// Whether it has a file of the folder open that is not in its place yet.
    bool IsWriting() const;
    void Kill();
    bool HasEnded() { return Take(WNOHANG); }
    /// Waits for the end.
    Outcome End();

private:
    bool Take(int options);

    const Program& program_;
    support::TemporaryFolder streams_;
    pid_t process_;
    bool ended_ = false;
    int status_ = 0;
};

}  // namespace tests
