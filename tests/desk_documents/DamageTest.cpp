#include <gtest/gtest.h>

#include "desk/documents/Document.h"
#include "desk/text/TextEngine.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace {

/// One of everything. Keys that the reader does not know are passed over, such as "colour".
const std::string kWhole =
    R"({"format":"desk document","version":1,"title":"t","page":{"width":8.5,"height":11,"elements":[)"
    R"({"kind":"group","tag":"","geometry":{"envelope":[1.0,2.0,3.0,4.0]},)"
    R"("custom":{"set":[["a",0.5],["b",{"integer":1}]]},"draft":false,"members":[)"
    R"({"kind":"text","tag":"","geometry":{"point":[1.0,2.0]},"text":"t",)"
    R"("scaleWithPage":true,"symbol":{"font":{"name":"a","size":1.0,"bold":true},)"
    R"("color":{"rgb":"#000000","transparent":false},"horizontal":0,"vertical":1,)"
    R"("angle":0.0,"text":""}},{"kind":"rectangle","tag":"","colour":{"set":[]},)"
    R"("symbol":{"color":{"rgb":"#123456","transparent":true}}}]}]}})";

/// The document with the first of these pieces replaced.
std::string With(const std::string& piece, const std::string& other) {
    std::string document = kWhole;
    return document.replace(document.find(piece), piece.size(), other);
}

/// What a reader says of a file; empty where it takes it. Anything but a Failure ends the test.
std::string Complaint(const std::string& path) {
    static const auto engine = std::make_shared<desk::TextEngine>();
    const auto failure = support::FailureOf([&] { desk::ReadDocument(path, engine); });
    EXPECT_EQ(failure.Fact("file"), failure.description.empty() ? "" : path);
    return failure.description;
}

std::string Nested(int depth) {
    std::string value = "1";
    for (int i = 0; i < depth; ++i) value = R"({"set":[["a",)" + value + "]]}";
    return value;
}

/// A set of texts with one name twice, at the end.
std::string ManyTexts(int count) {
    std::string set = R"({"set":[)";
    for (int i = 0; i < count; ++i) set += "[\"t" + std::to_string(i) + "\",\"\"],";
    return set + R"(["t7",""]]})";
}

TEST(DamagedDocument, IsNamedWithPlaceAndFault) {
    const std::string version = R"("version":1)";
    const std::string values = R"({"set":[["a",0.5],["b",{"integer":1}]]})";
    const std::string cut = "is damaged: it is not JSON as a whole";
    const std::string foreign = "is no document of the desk";
    const std::string side =
        "is damaged at page.width: a number of inches from 0.01 to 200 is expected";
    const std::string element = "is damaged at page.elements[0]";
    const std::string set = element + ".custom.set";
    std::string deep = element + ".custom";
    for (int i = 0; i < 6; ++i) deep += ".set[0][1]";
    deep += "\u2026[1]";
    const std::string color =
        element + ".members[0].symbol.color.rgb: a colour is expected, such as \"#B00000\"";
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {kWhole, "", cut},
        {kWhole, kWhole + "x", cut},
        {values, Nested(5000), "is damaged: its values stand too deep inside one another"},
        {values, Nested(101), deep + ".set: sets stand too deep inside one another"},
        {"\"t\"", "\"caf\xE9\"", "is damaged: it holds text that is not UTF-8"},
        {kWhole, "[]", foreign},
        {"desk document", "map book", foreign},
        {version, "\"v\":1", "is damaged: \"version\" is missing"},
        {version, "\"version\":2",
         "is written in version 2 of the document format, of which this program knows versions "
         "up to 1"},
        {"\"page\"", "\"sheet\"", "is damaged: \"page\" is missing"},
        {"8.5", "0.001", side},
        {"8.5", "1e15", side},
        {"8.5", "\"nan\"", side},
        {"[1.0,2.0,3.0,4.0]", "[1,2,\"inf\",4]",
         element +
             ".geometry.envelope[2]: a number of inches from -1000000 to 1000000 is expected"},
        {"\"size\":1.0", "\"size\":\"inf\"",
         element + ".members[0].symbol.font.size: a finite number is expected"},
        {R"("bold":true)", R"("bold":true,"italic":1)",
         element + ".members[0].symbol.font.italic: true or false is expected"},
        {"\"kind\"", "\"sort\"", element + ": \"kind\" is missing"},
        {"group", "lens", element + ".kind: no kind of element has this name"},
        {"false", "0", element + ".draft: true or false is expected"},
        {"[1.0,2.0,3.0,4.0]", "[1,2,3]", element + ".geometry.envelope: 4 numbers are expected"},
        {R"("members":[)", R"("members":[7,)", element + ".members[0]: an object is expected"},
        {"\"font\"", "\"type\"", element + ".members[0].symbol: \"font\" is missing"},
        {"#000000", "#12345g", color},
        {"#000000", "#1234567", color},
        {"0.5", "2147483648",
         set + "[0][1]: a whole number from -2147483648 to 2147483647 is expected"},
        {R"("integer":1)", R"("integer":32768)",
         set + "[1][1].integer: a whole number from -32768 to 32767 is expected"},
        {values, R"({"sett":[]})", element + ".custom.sett: no kind of value has this name"},
        {values, "[]", element + ".custom: this is no value"},
        {R"(["b",{"integer":1}])", R"(["b"])", set + "[1]: a name and a value are expected"},
        {R"(["b")", "[1", set + "[1][0]: a text is expected"},
        {R"(["b")", R"(["a")", set + "[1]: the name \"a\" stands in the set twice"},
        {values, R"({"set":[["a","1"],["b",1],["a","2"]]})",
         set + "[2]: the name \"a\" stands in the set twice"},
        {values, ManyTexts(99), set + "[99]: the name \"t7\" stands in the set twice"},
    };
    const support::TemporaryFolder folder;
    for (const auto& [piece, other, complaint] : cases) {
        const auto path = folder.Write("a.json", With(piece, other));
        EXPECT_EQ(Complaint(path), "The file \"" + path + "\" " + complaint + ".");
    }
}

TEST(DamagedDocument, IsRefusedWhereverItIsCutAndNeverCrashesTheReader) {
    const support::TemporaryFolder folder;
    ASSERT_EQ(Complaint(folder.Write("a.json", kWhole)), "");
    for (std::size_t i = 0; i < kWhole.size(); ++i) {
        ASSERT_NE(Complaint(folder.Write("a.json", kWhole.substr(0, i))), "") << i;
        for (const char other : {'0', '"', '[', '\xFF'}) {
            std::string spoilt = kWhole;
            spoilt[i] = other;
            Complaint(folder.Write("a.json", spoilt));
        }
    }
}

}  // namespace
