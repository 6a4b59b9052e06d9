#include "limits/Trial.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace tests {
namespace {

// A refusal names at most a few values, and shows long ones cut or whole, but never on many lines.
constexpr std::ptrdiff_t kMostLines = 4;

void Limit(decltype(RLIMIT_CPU) resource, rlim_t most) {
    rlimit limit{};
    ::getrlimit(resource, &limit);
    limit.rlim_cur = std::min(most, limit.rlim_max);
    ::setrlimit(resource, &limit);
}

// Bounds and places that are no numbers would be null.
void CheckNumbers(const nlohmann::json& member) {
    const auto values = member.flatten();
    for (const auto& [path, value] : values.items()) {
        const bool isPlace =
            path.find("/bounds/") != std::string::npos || path.find("/at/") != std::string::npos;
        EXPECT_TRUE(!isPlace || value.is_number()) << path << member.dump();
    }
}

bool StandsIn(const nlohmann::json& frame, const nlohmann::json& box) {
    constexpr double kRounding = 1e-6;
    return box["xmin"] >= frame["xmin"].get<double>() - kRounding &&
           box["xmax"] <= frame["xmax"].get<double>() + kRounding &&
           box["ymin"] >= frame["ymin"].get<double>() - kRounding &&
           box["ymax"] <= frame["ymax"].get<double>() + kRounding;
}

}  // namespace

Trial::Trial() {
    constexpr rlim_t kSeconds = 60;
    Limit(RLIMIT_CPU, kSeconds);
    constexpr rlim_t kBytes = rlim_t{2} << 30;
    Limit(RLIMIT_AS, kBytes);
    program_.WriteTable("names.dbf", {{"Abbey Road", "4", "1", "2"},
                                      {"Abbey Road", "9", "3", "1"},
                                      {"A rather long name of a street that wraps", "5", "1", "1"},
                                      {"Main St", "6", "2", "3"},
                                      {"1st Avenue", "6", "2", "3"}});
    program_.Done({"make", "names.dbf", "-o", "names.pdf", "--document", "names.json"});
}

void Trial::CheckRefusal(const Outcome& outcome, int status, const std::string& named) {
    EXPECT_EQ(outcome.status, status) << outcome.errors;
    EXPECT_TRUE(outcome.errors.starts_with("gazetteer: ")) << outcome.errors;
    EXPECT_TRUE(outcome.errors.ends_with(".\n") || outcome.errors.ends_with(")\n"))
        << outcome.errors;
    EXPECT_LE(std::ranges::count(outcome.errors, '\n'), kMostLines) << outcome.errors;
    EXPECT_TRUE(Contains(outcome.errors, named));
}

void Trial::SetAndDraw(const std::string& assignment) {
    SCOPED_TRACE(assignment.substr(0, 80));
    const std::string before = program_.Bytes("names.json");
    program_.Write("trial.json", before);
    const auto set = program_.Run({"set", "trial.json", assignment});
    if (set.status != 0) {
        const std::string key = assignment.substr(0, assignment.find('='));
        CheckRefusal(set, 2, key.substr(key.rfind('.') + 1));
        EXPECT_EQ(program_.Bytes("trial.json"), before);
        return;
    }
    CheckPage("trial.json", !set.errors.empty());
}

Outcome Trial::MakeAndDraw(std::vector<std::string> options) {
    std::vector<std::string> arguments{"make", "-o", "made.pdf", "--document", "made.json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    program_.Shell("rm -f made.pdf made.json");
    auto made = program_.Run(arguments);
    if (made.status == 0) {
        EXPECT_EQ(program_.Shell("qpdf --check made.pdf 2>&1 | grep -c WARNING"), "0\n");
        CheckPage("made.json", made.errors.find("warning") != std::string::npos);
    } else {
        CheckRefusal(made, made.status == 2 ? 2 : 1, "");
        EXPECT_FALSE(program_.Exists("made.pdf"));
        EXPECT_FALSE(program_.Exists("made.json"));
    }
    return made;
}

// What stands out of the frame must have been told of.
void Trial::CheckPage(const std::string& document, bool warned) {
    program_.Shell("rm -f page.pdf");
    const auto drawn = program_.Run({"draw", document, "--page", "1", "--json", "-o", "page.pdf"});
    if (drawn.status != 0) {
        CheckRefusal(drawn, 1, "");
        EXPECT_FALSE(program_.Exists("page.pdf"));
        return;
    }
    EXPECT_EQ(program_.Shell("qpdf --check page.pdf 2>&1 | grep -c WARNING"), "0\n");
    const bool told = warned || drawn.errors.find("warning") != std::string::npos;
    const auto tree = drawn.Json();
    for (const auto& row : tree["members"]) {
        CheckNumbers(row);
        EXPECT_TRUE(told || StandsIn(tree["frame"], row["bounds"])) << row.dump();
    }
}

}  // namespace tests
