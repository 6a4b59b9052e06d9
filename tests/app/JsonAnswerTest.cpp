#include <cmath>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "app/commands/JsonAnswer.h"

namespace tests {
namespace {

using Json = nlohmann::ordered_json;

// Other people's scripts may read answers line by line.
TEST(JsonAnswers, HaveTheFormThatTheyAlwaysHad) {
    const std::vector<double> numbers{
        0,   -0.0,    1, 0.1, 1e-4, 1e-5, 123456.789, 1e15, 1e100, 5e-324, 2.6028682810469572,
        NAN, INFINITY};
    const std::vector<std::string> texts{"",
                                         "a\"b\\c/d",
                                         "\b\f\n\r\t\x01\x1F\x7F",
                                         "\u00E9\U0001F600",
                                         "cut\xE2\x82",
                                         "\xE2\x82x\xFF\xFFy",
                                         "\xC0\x80"};
    Json expected = {{"flag", true}, {"whole", -7}, {"none", Json::array()}};
    for (const double number : numbers) expected["numbers"].push_back({{"n", number}});
    expected["texts"] = texts;
    expected["inner"] = {{"deep", {{"empty", Json::object()}}}};
    for (const int indentation : {1, 2}) {
        std::string written;
        app::JsonAnswer json([&](std::string_view piece) { written += piece; }, indentation);
        json.BeginObject();
        json.Member("flag", true);
        json.Member("whole", -7);
        json.Member("none", std::vector<std::string>());
        json.Objects("numbers", numbers, [&](double number) { json.Member("n", number); });
        json.Member("texts", texts);
        json.Object("inner", [&] { json.Object("deep", [&] { json.Object("empty", [] {}); }); });
        json.EndObject();
        json.Finish();
        EXPECT_EQ(written,
                  expected.dump(indentation, ' ', false, Json::error_handler_t::replace) + '\n');
    }
}

}  // namespace
}  // namespace tests
