#include <cfloat>
#include <cmath>
#include <gtest/gtest.h>

#include "desk/documents/Document.h"
#include "desk/files/Files.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/PropertySet.h"
#include "desk/objects/Symbols.h"
#include "desk/text/TextEngine.h"
#include "support/FailureOf.h"
#include "support/SetDump.h"
#include "support/TemporaryFolder.h"

namespace {

using support::TemporaryFolder;

using host::Variant;
using Object = host::Ref<host::IHostObject>;

std::shared_ptr<desk::TextEngine> Engine() {
    static const auto engine = std::make_shared<desk::TextEngine>();
    return engine;
}

/// The bytes of a document, after it was read from them and written again without a difference.
std::string Written(const desk::Document& document, const std::string& path) {
    desk::WriteDocument(document, path);
    const auto bytes = desk::ReadWholeFile(path);
    desk::WriteDocument(desk::ReadDocument(path, Engine()), path);
    EXPECT_EQ(desk::ReadWholeFile(path), bytes);
    return bytes;
}

/// One of every kind of value and symbol, at their edges.
std::shared_ptr<desk::PropertySet> Everything() {
    const auto set = std::make_shared<desk::PropertySet>();
    const auto add = [&](const Variant& value) {
        set->SetItem(std::to_string(set->Count()), value);
    };
    add(host::Empty{});
    add(host::Null{});
    add(Object());
    for (const bool flag : {true, false}) add(flag);
    for (const int number : {INT16_MIN, INT16_MAX}) add(static_cast<std::int16_t>(number));
    for (const std::int32_t number : {INT32_MIN, 0, INT32_MAX}) add(number);
    for (const double number :
         {0.0, -0.0, 1.0, -3.0, 2147483648.0, 1e15, 9007199254740993.0, 1e22, 1e300, 0.1, 1.0 / 3,
          5e-324, DBL_MIN, DBL_MAX, HUGE_VAL, -HUGE_VAL, static_cast<double>(NAN)})
        add(number);
    std::string text = "\"\\/ \x7F é e\u0301 \u2028 \U0001F5FA $$DOTS";
    for (char control = 0; control < ' '; ++control) text += control;
    add(std::string());
    set->SetItem(text, text);

    const auto color = std::make_shared<desk::Color>(0x123456);
    color->SetTransparent(true);
    color->SetInk(std::make_shared<const pdf::Ink>(pdf::Ink{"Sølv", pdf::Cmyk{0, 0.005, 0.25, 1}}));
    const auto line = std::make_shared<desk::LineSymbol>();
    line->SetColor(color);
    add(Object(line));
    const auto fill = std::make_shared<desk::FillSymbol>();
    add(fill->Copy());
    fill->SetColor(color);
    fill->SetOutline(line);
    add(Object(fill));
    const auto symbol = std::make_shared<desk::TextSymbol>(Engine());
    symbol->Font()->SetName(text);
    symbol->Font()->SetBold(true);
    desk::SetItalic(*symbol->Font(), true);
    symbol->SetSize(1.0 / 3);
    symbol->SetColor(color);
    symbol->SetAngle(-0.1);
    symbol->SetText(text);
    symbol->SetHorizontalPlacement(2);
    symbol->SetVerticalPlacement(3);
    add(Object(symbol));
    return set;
}

TEST(Document, GivesBackACopyOfAnyCustomPropertyExactly) {
    const TemporaryFolder folder;
    const auto path = folder.File("a.json");
    const auto set = Everything();
    set->SetItem("set", Object(Everything()));
    set->SetItem("empty", Object(std::make_shared<desk::PropertySet>()));
    // More than is written at a time.
    const auto texts = std::make_shared<desk::PropertySet>();
    for (int i = 0; i < 20'000; ++i) texts->SetItem(std::to_string(i), "text " + std::to_string(i));
    set->SetItem("texts", Object(texts));
    const auto copy = set->Copy();
    const auto own = support::ObjectsIn(*set);
    for (const auto* object : support::ObjectsIn(*host::As<host::IHostPropertySet>(copy)))
        EXPECT_FALSE(own.contains(object)) << "an object is shared";
    const auto group = std::make_shared<desk::GroupElement>();
    group->SetCustomProperty(copy);
    desk::Document document;
    document.elements = {group};
    Written(document, path);
    const auto read = desk::ReadDocument(path, Engine());
    ASSERT_EQ(read.elements.size(), 1U);
    const auto owner = host::As<host::IHostCustomProperty>(read.elements[0]);
    const auto held = std::get<Object>(owner->CustomProperty());
    EXPECT_EQ(support::Dump(*host::As<host::IHostPropertySet>(held)), support::Dump(*set));
}

desk::Document FullPage() {
    const auto text = std::make_shared<desk::TextElement>(Engine());
    text->SetText("Abbey Road.....");
    text->SetScaleWithPage(false);
    text->SetGeometry(std::make_shared<desk::Point>(0.55, 10.1));
    const auto rectangle = std::make_shared<desk::RectangleElement>();
    rectangle->SetName("COLUMNBACKGROUND");
    rectangle->SetGeometry(std::make_shared<desk::Envelope>(0.5, 9.9, 2.25, 10.1));
    const auto frame = std::make_shared<desk::GroupElement>();
    frame->SetGeometry(std::make_shared<desk::Envelope>(0.5, 0.5, 8, 10.5));
    frame->SetDraft(true);
    frame->Add(rectangle);
    frame->Add(text);
    const auto map = std::make_shared<desk::MapFrame>();
    map->SetName("Main map");
    return {"An index", 11, 17, {frame, map}, "book.json", "index", "de_DE", 97};
}

TEST(Document, GivesBackThePageAndItsElements) {
    const TemporaryFolder folder;
    const auto path = folder.File("a.json");
    std::string wanted = R"(
{"format":"desk document","version":1,"title":"An index","mapBook":"book.json","template":"index","locale":"de_DE",
"firstSheet":97,"page":{"width":11.0,"height":17.0,"elements":[
{"kind":"group","tag":"","geometry":{"envelope":[0.5,0.5,8.0,10.5]},"draft":true,"members":[
{"kind":"rectangle","tag":"COLUMNBACKGROUND","geometry":{"envelope":[0.5,9.9,2.25,10.1]},
"symbol":{"color":{"rgb":"#000000","transparent":false}}},
{"kind":"text","tag":"","geometry":{"point":[0.55,10.1]},"text":"Abbey Road.....",
"scaleWithPage":false,"symbol":{"font":{"name":"Helvetica","size":10.0,"bold":false},
"color":{"rgb":"#000000","transparent":false},"horizontal":0,"vertical":0,"angle":0.0,"text":""}}]},
{"kind":"mapFrame","tag":"Main map"}]}}
)";
    std::string written = Written(FullPage(), path);
    for (std::string* const text : {&wanted, &written}) std::erase(*text, '\n');
    EXPECT_EQ(written, wanted);
    EXPECT_EQ(desk::MapBookPath(FullPage(), path), folder.File("book.json"));
}

TEST(Document, RefusesToSaveWhatItCouldNotReadAgain) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.json", "old");
    const auto circle = std::make_shared<desk::PropertySet>();
    circle->SetItem("self", Object(circle));
    const std::pair<Variant, const char*> cases[] = {
        {Object(circle), "without end"},
        {std::string("caf\xE9"), "the text \"caf?\" is not valid UTF-8"},
        {Object(std::make_shared<desk::ElementContainer>(
             std::vector<host::Ref<host::IHostElement>>{})),
         "an object in it is of a kind that a document cannot hold"}};
    for (const auto& [value, reason] : cases) {
        const auto document = FullPage();
        host::As<host::IHostCustomProperty>(document.elements[0])->SetCustomProperty(value);
        const auto failure = support::FailureOf([&] { desk::WriteDocument(document, path); });
        EXPECT_NE(failure.description.find(reason), std::string::npos) << failure.description;
        EXPECT_EQ(failure.Fact("file"), path);
        EXPECT_EQ(desk::ReadWholeFile(path), "old");
    }
    circle->RemoveItem("self");
}

}  // namespace
