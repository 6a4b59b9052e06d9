#pragma once

#include <algorithm>
#include <regex>
#include <sys/resource.h>

#include "app/Program.h"

namespace tests {

/// What any input whatever must leave: a good page, or one sentence that says why there is none.
/// Runs are limited in memory and processor time, so that a hang or an absurd demand fails.
class Trial {
public:
    Trial() {
        constexpr rlim_t kSeconds = 60;
        constexpr rlim_t kBytes = rlim_t{2} << 30;
        const rlimit processor{kSeconds, kSeconds};
        const rlimit memory{kBytes, kBytes};
        ::setrlimit(RLIMIT_CPU, &processor);
        ::setrlimit(RLIMIT_AS, &memory);
        program.WriteTable("names.dbf",
                           {{"Abbey Road", "4", "1", "2"},
                            {"Abbey Road", "9", "3", "1"},
                            {"A rather long name of a street that wraps", "5", "1", "1"},
                            {"Main St", "6", "2", "3"},
                            {"1st Avenue", "6", "2", "3"}});
        program.Done({"make", "names.dbf", "-o", "names.pdf", "--document", "names.json"});
    }

    const Program program;

    /// Sets one value of "names.json" in a copy of it, and prints the first page of the copy.
    void SetAndDraw(const std::string& assignment) {
        SCOPED_TRACE(assignment.substr(0, 80));
        const std::string before = program.Read("names.json");
        program.Write("trial.json", before);
        const auto set = program.Run({"set", "trial.json", assignment});
        if (set.status == 0) return CheckPage("trial.json", !set.errors.empty());
        const std::string key = assignment.substr(0, assignment.find('='));
        CheckRefusal(set, 2, key.substr(key.rfind('.') + 1));
        EXPECT_EQ(program.Read("trial.json"), before);
    }

    /// Makes an index of a table and looks at its first page. Returns what was told.
    Outcome MakeAndDraw(std::vector<std::string> options) {
        options.insert(options.begin(), {"make", "-o", "made.pdf", "--document", "made.json"});
        program.Shell("rm -f made.pdf made.json");
        auto made = program.Run(options);
        if (made.status == 0) {
            CheckPdf("made.pdf");
            CheckPage("made.json", made.errors.find("warning") != std::string::npos);
        } else {
            CheckRefusal(made, made.status == 2 ? 2 : 1, "");
            EXPECT_FALSE(program.Exists("made.pdf"));
            EXPECT_FALSE(program.Exists("made.json"));
        }
        return made;
    }

private:
    static void CheckRefusal(const Outcome& outcome, int status, const std::string& named) {
        // A refusal names at most a few values, and shows long ones cut or whole.
        constexpr std::ptrdiff_t kMostLines = 4;
        const auto& told = outcome.errors;
        EXPECT_EQ(outcome.status, status) << told;
        EXPECT_TRUE(told.starts_with("gazetteer: ")) << told;
        EXPECT_TRUE(told.ends_with(".\n") || told.ends_with(")\n")) << told;
        EXPECT_LE(std::ranges::count(told, '\n'), kMostLines) << told;
        EXPECT_TRUE(Contains(told, named));
    }

    void CheckPdf(const std::string& name) const {
        EXPECT_EQ(program.Shell("qpdf --check " + name + " 2>&1 | grep -c WARNING"), "0\n");
    }

    /// What stands out of the frame must have been told of.
    void CheckPage(const std::string& document, bool warned) {
        program.Shell("rm -f page.pdf");
        const auto drawn =
            program.Run({"draw", document, "--page", "1", "--json", "-o", "page.pdf"});
        if (drawn.status != 0) {
            CheckRefusal(drawn, 1, "");
            EXPECT_FALSE(program.Exists("page.pdf"));
            return;
        }
        CheckPdf("page.pdf");
        // Places that are no numbers are null.
        EXPECT_FALSE(std::regex_search(drawn.output, std::regex(R"("[xy](min|max)?": *null)")));
        const auto tree = drawn.Json();
        if (warned || drawn.errors.find("warning") != std::string::npos) return;
        constexpr double kRounding = 1e-6;
        for (const auto& row : tree["members"])
            for (const auto& [edge, inwards] :
                 {std::pair{"xmin", 1}, {"xmax", -1}, {"ymin", 1}, {"ymax", -1}}) {
                const double limit = tree["frame"][edge];
                EXPECT_GE(inwards * (row["bounds"][edge].get<double>() - limit), -kRounding) << row;
            }
    }
};

}  // namespace tests
