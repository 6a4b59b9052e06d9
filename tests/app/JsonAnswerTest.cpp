#include <cmath>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "app/commands/JsonAnswer.h"
#include "support/Text.h"

namespace tests {
namespace {

using Json = nlohmann::ordered_json;

// Other people's scripts may read answers line by line. Numbers and texts that JSON cannot hold are
// mended.
TEST(JsonAnswers, HaveTheFormThatTheyAlwaysHad) {
    const std::vector<double> numbers{0, -0.0, 0.1, 1e-5, 1e15, 2.6028682810469572, NAN, INFINITY};
    const std::vector<std::string> texts{"",
                                         "a\"b\\c/d",
                                         "\b\x01\x7F",
                                         "\u00E9\U0001F600",
                                         "\u009B[1m\u00A0",
                                         "cut\xE2\x82",
                                         "\xE2\x82x\xFFy",
                                         "\xC0\x80"};
    Json expected = {{"flag", true}, {"whole", -7}, {"none", Json::array()}, {"texts", texts}};
    for (const double number : numbers) expected["numbers"].push_back({{"n", number}});
    expected["inner"] = {{"deep", Json::object()}};
    std::string written;
    app::JsonAnswer json([&](std::string_view piece) { written += piece; }, 2);
    json.BeginObject();
    json.Member("flag", true);
    json.Member("whole", -7);
    json.Member("none", std::vector<std::string>());
    json.Member("texts", texts);
    json.Objects("numbers", numbers, [&](double number) { json.Member("n", number); });
    json.Object("inner", [&] { json.Object("deep", [] {}); });
    json.EndObject();
    json.Finish();
    const auto dump = expected.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
    EXPECT_EQ(written, gazetteer::ReplaceAll(dump, "\u009B", "\\u009b"));
}

}  // namespace
}  // namespace tests
