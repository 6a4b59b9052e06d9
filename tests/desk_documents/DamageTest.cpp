#include <gtest/gtest.h>

#include "desk/documents/Document.h"
#include "desk/files/Files.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/PropertySet.h"
#include "desk/text/TextEngine.h"
#include "host/Failure.h"
#include "support/TemporaryFolder.h"

namespace {

using support::TemporaryFolder;

std::shared_ptr<desk::TextEngine> Engine() {
    static const auto engine = std::make_shared<desk::TextEngine>();
    return engine;
}

/// What a reader says of a file; empty where it takes it. Anything but a Failure ends the test.
std::string Complaint(const std::string& path) {
    try {
        desk::ReadDocument(path, Engine());
        return {};
    } catch (const host::Failure& failure) {
        EXPECT_EQ(failure.Fact("file"), path);
        return failure.description;
    }
}

/// A document with one element, from its JSON.
std::string With(const std::string& element) {
    return R"({"format":"desk document","version":1,"title":"","page":{"width":8.5,"height":11,)"
           R"("elements":[)" +
           element + "]}}";
}

std::string WithValue(const std::string& value) {
    return With(R"({"kind":"mapFrame","tag":"","custom":)" + value + "}");
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

/// The beginning of a set of texts.
std::string ManyTexts(int count) {
    std::string set = R"({"set":[)";
    for (int i = 0; i < count; ++i) set += "[\"t" + std::to_string(i) + "\",\"\"],";
    return set;
}

TEST(DamagedDocument, IsNamedWithPlaceAndFault) {
    const std::string text = R"({"kind":"text","tag":"","text":"","scaleWithPage":true,"symbol":)";
    const std::string font = R"({"font":{"name":"a","size":1,"bold":true},"color":{"rgb":)";
    const std::pair<std::string, std::string> cases[] = {
        {"", " is damaged: it is not JSON as a whole."},
        {"{\"format\":\"desk docu", " is damaged: it is not JSON as a whole."},
        {With("") + "x", " is damaged: it is not JSON as a whole."},
        {"{\"title\":\"caf\xE9\"}", " is damaged: it holds text that is not UTF-8."},
        {"[]", " is no document of the desk."},
        {R"({"format":"map book"})", " is no document of the desk."},
        {R"({"format":"desk document"})", " is damaged: \"version\" is missing."},
        {R"({"format":"desk document","version":2})",
         " is written in version 2 of the document format, of which this program knows versions "
         "up to 1."},
        {R"({"format":"desk document","version":1,"title":""})",
         " is damaged: \"page\" is missing."},
        {R"({"format":"desk document","version":1,"title":"","page":{"width":0,"height":1}})",
         " is damaged at page.width: a length above 0 is expected."},
        {R"({"format":"desk document","version":1,"title":"","page":{"width":"inf","height":1}})",
         " is damaged at page.width: a length above 0 is expected."},
        {With("{}"), " is damaged at page.elements[0]: \"kind\" is missing."},
        {With(R"({"kind":"lens","tag":""})"),
         " is damaged at page.elements[0].kind: no kind of element has this name."},
        {With(R"({"kind":"group","tag":"","draft":false,"members":[7]})"),
         " is damaged at page.elements[0].members[0]: an object is expected."},
        {With(R"({"kind":"group","tag":"","draft":0,"members":[]})"),
         " is damaged at page.elements[0].draft: true or false is expected."},
        {With(R"({"kind":"mapFrame","tag":"","geometry":{"envelope":[1,2,3]}})"),
         " is damaged at page.elements[0].geometry.envelope: 4 numbers are expected."},
        {With(text + "{}}"), " is damaged at page.elements[0].symbol: \"font\" is missing."},
        {With(text + font + R"("#12345g"}}})"),
         " is damaged at page.elements[0].symbol.color.rgb: a colour is expected, such as "
         "\"#B00000\"."},
        {With(text + font + R"("#1234567"}}})"),
         " is damaged at page.elements[0].symbol.color.rgb: a colour is expected, such as "
         "\"#B00000\"."},
        {WithValue("2147483648"),
         " is damaged at page.elements[0].custom: a whole number from -2147483648 to 2147483647 "
         "is expected."},
        {WithValue(R"({"integer":32768})"),
         " is damaged at page.elements[0].custom.integer: a whole number from -32768 to 32767 is "
         "expected."},
        {WithValue(R"({"sett":[]})"),
         " is damaged at page.elements[0].custom.sett: no kind of value has this name."},
        {WithValue("[]"), " is damaged at page.elements[0].custom: this is no value."},
        {WithValue(R"({"set":[["a",1],["b"]]})"),
         " is damaged at page.elements[0].custom.set[1]: a name and a value are expected."},
        {WithValue(R"({"set":[[1,1]]})"),
         " is damaged at page.elements[0].custom.set[0][0]: a text is expected."},
        {WithValue(R"({"set":[["a",1],["a",2]]})"),
         " is damaged at page.elements[0].custom.set[1]: the name \"a\" stands in the set twice."},
        {WithValue(R"({"set":[["a","1"],["b",1],["a","2"]]})"),
         " is damaged at page.elements[0].custom.set[2]: the name \"a\" stands in the set twice."},
        {WithValue(ManyTexts(99) + R"(["t7",""]]})"),
         " is damaged at page.elements[0].custom.set[99]: the name \"t7\" stands in the set "
         "twice."},
        {WithValue(Repeated(R"({"set":[["a",)", 5000) + "1" + Repeated("]]}", 5000)),
         " is damaged: it is not JSON as a whole."}};
    const TemporaryFolder folder;
    for (const auto& [content, complaint] : cases) {
        const auto path = folder.Write("a.json", content);
        EXPECT_EQ(Complaint(path), "The file \"" + path + "\"" + complaint);
    }
}

TEST(DamagedDocument, IsToldFromOneThatCannotBeReadAtAll) {
    const TemporaryFolder folder;
    const std::pair<const char*, const char*> cases[] = {{"gone.json", "there is no such file"},
                                                         {".", "it is a folder"}};
    for (const auto& [name, reason] : cases) {
        const auto path = folder.File(name);
        EXPECT_EQ(Complaint(path), "The file \"" + path + "\" could not be read: " + reason + ".");
    }
}

TEST(Document, PassesOverKeysThatItDoesNotKnow) {
    const TemporaryFolder folder;
    const auto path = folder.Write(
        "a.json", With(R"({"kind":"mapFrame","tag":"","colour":{"set":[]},"custom":1})"));
    EXPECT_EQ(Complaint(path), "");
}

/// One of everything, small enough to be cut and spoilt at every byte.
std::string SmallDocument(const TemporaryFolder& folder) {
    const auto set = std::make_shared<desk::PropertySet>();
    set->SetItem("a", 0.5);
    set->SetItem("b", std::int16_t{1});
    const auto text = std::make_shared<desk::TextElement>(Engine());
    text->SetGeometry(std::make_shared<desk::Point>(1, 2));
    const auto group = std::make_shared<desk::GroupElement>();
    group->SetCustomProperty(host::Ref<host::IHostObject>(set));
    group->Add(text);
    group->Add(std::make_shared<desk::RectangleElement>());
    desk::Document document;
    document.elements = {group};
    desk::WriteDocument(document, folder.File("whole.json"));
    return desk::ReadWholeFile(folder.File("whole.json"));
}

TEST(DamagedDocument, IsRefusedWhereverItIsCutAndNeverCrashesTheReader) {
    const TemporaryFolder folder;
    const std::string whole = SmallDocument(folder);
    ASSERT_EQ(Complaint(folder.Write("a.json", whole)), "");
    for (std::size_t i = 0; i + 1 < whole.size(); ++i)
        ASSERT_NE(Complaint(folder.Write("a.json", whole.substr(0, i))), "") << i;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const char other : {'0', '"', '}', '[', '\\', '\xFF', '\0'}) {
            std::string spoilt = whole;
            spoilt[i] = other;
            Complaint(folder.Write("a.json", spoilt));
        }
    }
}

}  // namespace
