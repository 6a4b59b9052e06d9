#include <gtest/gtest.h>

#include "desk/documents/Document.h"
#include "desk/files/Files.h"
#include "desk/text/TextEngine.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace {

using support::TemporaryFolder;

using Cases = std::vector<std::pair<std::string, std::string>>;

/// What a reader says of a file; empty where it takes it. Anything but a Failure ends the test.
std::string Complaint(const std::string& path) {
    static const auto engine = std::make_shared<desk::TextEngine>();
    const auto failure = support::FailureOf([&] { desk::ReadDocument(path, engine); });
    EXPECT_EQ(failure.Fact("file"), failure.description.empty() ? "" : path);
    return failure.description;
}

std::string Headed(const std::string& rest) {
    return R"({"format":"desk document","version":1,"title":"")" + rest + "}";
}

/// Documents with one element, from its JSON or that of one of its parts.
std::string With(const std::string& element) {
    return Headed(R"(,"page":{"width":8.5,"height":11,"elements":[)" + element + "]}");
}
std::string WithGroup(const std::string& rest) {
    return With(R"({"kind":"group","tag":"",)" + rest + "}");
}
std::string WithSymbol(const std::string& symbol) {
    return With(R"({"kind":"text","tag":"","text":"","scaleWithPage":true,"symbol":)" + symbol +
                "}");
}
std::string WithColor(const std::string& rgb) {
    return WithSymbol(R"({"font":{"name":"a","size":1,"bold":true},"color":{"rgb":)" + rgb + "}}");
}
std::string WithValue(const std::string& value) {
    return With(R"({"kind":"mapFrame","tag":"","custom":)" + value + "}");
}

std::string Nested(int depth) {
    std::string value = "1";
    for (int i = 0; i < depth; ++i) value = R"({"set":[["a",)" + value + "]]}";
    return value;
}

/// The beginning of a set of texts.
std::string ManyTexts(int count) {
    std::string set = R"({"set":[)";
    for (int i = 0; i < count; ++i) set += "[\"t" + std::to_string(i) + "\",\"\"],";
    return set;
}

void ExpectComplaints(const Cases& cases, const std::string& before) {
    const TemporaryFolder folder;
    for (const auto& [content, complaint] : cases) {
        const auto path = folder.Write("a.json", content);
        EXPECT_EQ(Complaint(path), "The file \"" + path + "\" " + before + complaint + ".");
    }
}

TEST(DamagedDocument, IsNamedWithItsFault) {
    const std::string cut = "is damaged: it is not JSON as a whole";
    const std::string foreign = "is no document of the desk";
    const std::string length = "is damaged at page.width: a length above 0 is expected";
    const Cases cases = {
        {"", cut},
        {"{\"format\":\"desk docu", cut},
        {With("") + "x", cut},
        {WithValue(Nested(5000)), cut},
        {"{\"title\":\"caf\xE9\"}", "is damaged: it holds text that is not UTF-8"},
        {"[]", foreign},
        {R"({"format":"map book"})", foreign},
        {R"({"format":"desk document"})", "is damaged: \"version\" is missing"},
        {R"({"format":"desk document","version":2})",
         "is written in version 2 of the document format, of which this program knows versions "
         "up to 1"},
        {Headed(""), "is damaged: \"page\" is missing"},
        {Headed(R"(,"page":{"width":0,"height":1})"), length},
        {Headed(R"(,"page":{"width":"inf","height":1})"), length},
    };
    ExpectComplaints(cases, "");
}

TEST(DamagedDocument, IsNamedWithPlaceAndFault) {
    const std::string color = ".symbol.color.rgb: a colour is expected, such as \"#B00000\"";
    const Cases elements = {
        {With("{}"), ": \"kind\" is missing"},
        {With(R"({"kind":"lens","tag":""})"), ".kind: no kind of element has this name"},
        {WithGroup(R"("draft":false,"members":[7])"), ".members[0]: an object is expected"},
        {WithGroup(R"("draft":0,"members":[])"), ".draft: true or false is expected"},
        {WithGroup(R"("geometry":{"envelope":[1,2,3]})"),
         ".geometry.envelope: 4 numbers are expected"},
        {WithSymbol("{}"), ".symbol: \"font\" is missing"},
        {WithColor(R"("#12345g")"), color},
        {WithColor(R"("#1234567")"), color},
    };
    ExpectComplaints(elements, "is damaged at page.elements[0]");
    const Cases values = {
        {"2147483648", ": a whole number from -2147483648 to 2147483647 is expected"},
        {R"({"integer":32768})", ".integer: a whole number from -32768 to 32767 is expected"},
        {R"({"sett":[]})", ".sett: no kind of value has this name"},
        {"[]", ": this is no value"},
        {R"({"set":[["a",1],["b"]]})", ".set[1]: a name and a value are expected"},
        {R"({"set":[[1,1]]})", ".set[0][0]: a text is expected"},
        {R"({"set":[["a",1],["a",2]]})", ".set[1]: the name \"a\" stands in the set twice"},
        {R"({"set":[["a","1"],["b",1],["a","2"]]})",
         ".set[2]: the name \"a\" stands in the set twice"},
        {ManyTexts(99) + R"(["t7",""]]})", ".set[99]: the name \"t7\" stands in the set twice"},
    };
    for (const auto& [value, complaint] : values)
        ExpectComplaints({{WithValue(value), complaint}}, "is damaged at page.elements[0].custom");
}

TEST(DamagedDocument, IsToldFromOneThatCannotBeReadAtAll) {
    const TemporaryFolder folder;
    const Cases cases = {{"gone.json", "there is no such file"}, {".", "it is a folder"}};
    for (const auto& [name, reason] : cases) {
        const auto path = folder.File(name);
        EXPECT_EQ(Complaint(path), "The file \"" + path + "\" could not be read: " + reason + ".");
    }
}

// One of everything, small enough to be cut and spoilt at every byte. Keys that the reader does not
// know are passed over.
TEST(DamagedDocument, IsRefusedWhereverItIsCutAndNeverCrashesTheReader) {
    const TemporaryFolder folder;
    const std::string whole =
        WithGroup(R"("custom":{"set":[["a",0.5],["b",{"integer":1}]]},"draft":false,"members":[)"
                  R"({"kind":"text","tag":"","geometry":{"point":[1.0,2.0]},"text":"t",)"
                  R"("scaleWithPage":true,"symbol":{"font":{"name":"a","size":1.0,"bold":true},)"
                  R"("color":{"rgb":"#000000","transparent":false},"horizontal":0,"vertical":1,)"
                  R"("angle":0.0,"text":""}},{"kind":"rectangle","tag":"","colour":{"set":[]},)"
                  R"("symbol":{"color":{"rgb":"#123456","transparent":true}}}])");
    ASSERT_EQ(Complaint(folder.Write("a.json", whole)), "");
    for (std::size_t i = 0; i < whole.size(); ++i) {
        ASSERT_NE(Complaint(folder.Write("a.json", whole.substr(0, i))), "") << i;
        for (const char other : {'0', '"', '}', '[', '\\', '\xFF', '\0'}) {
            std::string spoilt = whole;
            spoilt[i] = other;
            Complaint(folder.Write("a.json", spoilt));
        }
    }
}

}  // namespace
