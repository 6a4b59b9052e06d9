#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>

#include "desk/documents/Document.h"
#include "desk/files/Files.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/PropertySet.h"
#include "desk/objects/Symbols.h"
#include "desk/text/TextEngine.h"
#include "host/Failure.h"
#include "support/FixedSeed.h"
#include "support/TemporaryFolder.h"

namespace {

using support::TemporaryFolder;

using host::Variant;
using Object = host::Ref<host::IHostObject>;

std::shared_ptr<desk::TextEngine> Engine() {
    static const auto engine = std::make_shared<desk::TextEngine>();
    return engine;
}

std::string Bits(double number) {
    return std::to_string(std::bit_cast<std::uint64_t>(number));
}

std::string Describe(const host::IHostColor& color) {
    return std::to_string(color.RGB()) + (color.Transparent() ? " clear" : "");
}

/// A value told with its type and to the last bit, as a text to compare.
struct Describer {
    std::string operator()(host::Empty) const { return "empty"; }
    std::string operator()(host::Null) const { return "null"; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int16_t value) const { return "int16 " + std::to_string(value); }
    std::string operator()(std::int32_t value) const { return "int32 " + std::to_string(value); }
    std::string operator()(double value) const { return "double " + Bits(value); }
    std::string operator()(const std::string& value) const { return "'" + value + "'"; }
    std::string operator()(const Object& object) const {
        if (!object) return "no object";
        if (const auto set = host::As<host::IHostPropertySet>(object)) return Set(*set);
        if (const auto text = host::As<host::IHostTextSymbol>(object)) return Symbol(*text);
        if (const auto fill = host::As<host::IHostFillSymbol>(object)) {
            const Object outline = fill->Outline();
            return "fill " + Describe(*fill->Color()) + (*this)(outline);
        }
        return "line " + Describe(*host::As<host::IHostLineSymbol>(object)->Color());
    }
    std::string Set(const host::IHostPropertySet& set) const {
        std::string text = "{";
        const auto items = set.AllItems();
        for (std::size_t i = 0; i < items.names.size(); ++i)
            text += items.names[i] + "=" + std::visit(*this, items.values[i]) + ";";
        return text + "}";
    }
    static std::string Symbol(const host::IHostTextSymbol& symbol) {
        return "text " + symbol.Font()->Name() + Bits(symbol.Size()) +
               (symbol.Font()->Bold() ? "bold" : "") + Describe(*symbol.Color()) +
               std::to_string(symbol.HorizontalPlacement()) +
               std::to_string(symbol.VerticalPlacement()) + Bits(symbol.Angle()) + symbol.Text();
    }
};

rc::Gen<std::string> AnyText() {
    return rc::gen::map(
        rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
            "a", "B", " ", "\"", "\\", "\n", "\r", "\t", "\x01", "\x1F", "\x7F", "/", "é",
            "e\u0301", "\u2028", "\U0001F5FA", std::string(1, '\0'), "$$DOTS"})),
        [](const std::vector<std::string>& parts) {
            std::string text;
            for (const auto& part : parts) text += part;
            return text;
        });
}

const std::vector<double>& NotableDoubles() {
    using Limits = std::numeric_limits<double>;
    static const std::vector<double> kDoubles = {0.0,
                                                 -0.0,
                                                 1.0,
                                                 -3.0,
                                                 2147483648.0,
                                                 1e15,
                                                 9007199254740993.0,
                                                 1e22,
                                                 1e300,
                                                 0.1,
                                                 1.0 / 3,
                                                 5e-324,
                                                 Limits::max(),
                                                 Limits::min(),
                                                 Limits::infinity(),
                                                 -Limits::infinity(),
                                                 Limits::quiet_NaN()};
    return kDoubles;
}

rc::Gen<double> AnyDouble() {
    return rc::gen::oneOf(rc::gen::map(rc::gen::arbitrary<std::uint64_t>(),
                                       [](std::uint64_t bits) {
                                           const auto number = std::bit_cast<double>(bits);
                                           return std::isnan(number)
                                                      ? std::numeric_limits<double>::quiet_NaN()
                                                      : number;
                                       }),
                          rc::gen::elementOf(NotableDoubles()));
}

Object AnySymbol() {
    const auto color = std::make_shared<desk::Color>(*rc::gen::inRange<std::uint32_t>(0, 1U << 24));
    color->SetTransparent(*rc::gen::arbitrary<bool>());
    const auto line = std::make_shared<desk::LineSymbol>();
    line->SetColor(color);
    const int kind = *rc::gen::inRange(0, 4);
    if (kind == 0) return line;
    if (kind <= 2) {
        const auto fill = std::make_shared<desk::FillSymbol>();
        fill->SetColor(color);
        if (kind == 2) fill->SetOutline(line);
        return fill;
    }
    const auto text = std::make_shared<desk::TextSymbol>(Engine());
    text->Font()->SetName(*AnyText());
    text->SetSize(*AnyDouble());
    text->Font()->SetBold(*rc::gen::arbitrary<bool>());
    text->SetColor(color);
    text->SetAngle(*AnyDouble());
    text->SetText(*AnyText());
    text->SetHorizontalPlacement(*rc::gen::inRange(0, 4));
    text->SetVerticalPlacement(*rc::gen::inRange(0, 4));
    return text;
}

Variant AnyValue(int depth) {
    switch (*rc::gen::inRange(0, depth > 0 ? 10 : 9)) {
        case 0:
            return host::Empty{};
        case 1:
            return host::Null{};
        case 2:
            return *rc::gen::arbitrary<bool>();
        case 3:
            return *rc::gen::arbitrary<std::int16_t>();
        case 4:
            return *rc::gen::arbitrary<std::int32_t>();
        case 5:
            return *AnyDouble();
        case 6:
            return *AnyText();
        case 7:
            return Object();
        case 8:
            return AnySymbol();
        default:
            break;
    }
    const auto set = std::make_shared<desk::PropertySet>();
    const int count = *rc::gen::inRange(0, 8);
    const bool textsAlone = *rc::gen::arbitrary<bool>();
    for (int i = 0; i < count; ++i)
        set->SetItem(*AnyText(), textsAlone ? Variant(*AnyText()) : AnyValue(depth - 1));
    return Object(set);
}

/// Saves a value, reads it back, and saves it once more to see that the bytes stay the same.
void ExpectRoundTrip(const Variant& value, const TemporaryFolder& folder) {
    const auto path = folder.File("a.json");
    const auto group = std::make_shared<desk::GroupElement>();
    group->SetCustomProperty(value);
    desk::Document document;
    document.elements = {group};
    desk::WriteDocument(document, path);
    const auto bytes = desk::ReadWholeFile(path);

    const auto read = desk::ReadDocument(path, Engine());
    ASSERT_EQ(read.elements.size(), 1U);
    const auto owner = host::As<host::IHostCustomProperty>(read.elements[0]);
    EXPECT_EQ(std::visit(Describer{}, owner->CustomProperty()), std::visit(Describer{}, value));
    desk::WriteDocument(read, path);
    EXPECT_EQ(desk::ReadWholeFile(path), bytes);
}

TEST(Document, GivesBackNotableValuesExactly) {
    const TemporaryFolder folder;
    std::vector<Variant> values = {host::Empty{},
                                   host::Null{},
                                   true,
                                   false,
                                   std::int16_t{-32768},
                                   std::int16_t{32767},
                                   std::int32_t{0},
                                   Object(),
                                   std::string(),
                                   std::int32_t{-2147483647 - 1},
                                   std::int32_t{2147483647}};
    for (const double number : NotableDoubles()) values.emplace_back(number);
    const auto set = std::make_shared<desk::PropertySet>();
    for (std::size_t i = 0; i < values.size(); ++i) {
        set->SetItem(std::to_string(i), values[i]);
        ExpectRoundTrip(values[i], folder);
    }
    ExpectRoundTrip(Object(set), folder);
    // More than is written at a time.
    const auto texts = std::make_shared<desk::PropertySet>();
    for (int i = 0; i < 20'000; ++i) texts->SetItem(std::to_string(i), "text " + std::to_string(i));
    set->SetItem("texts", Object(texts));
    ExpectRoundTrip(Object(set), folder);
}

TEST(Document, GivesBackAnyCustomPropertyExactly) {
    const TemporaryFolder folder;
    EXPECT_TRUE(rc::check("round trip", [&] {
        ExpectRoundTrip(AnyValue(4), folder);
        RC_ASSERT(!testing::Test::HasFailure());
    }));
}

desk::Document FullPage() {
    const auto text = std::make_shared<desk::TextElement>(Engine());
    text->SetText("Abbey Road.....");
    text->SetScaleWithPage(false);
    text->SetGeometry(std::make_shared<desk::Point>(0.55, 10.1));
    const auto rectangle = std::make_shared<desk::RectangleElement>();
    rectangle->SetName("COLUMNBACKGROUND");
    rectangle->SetGeometry(std::make_shared<desk::Envelope>(0.5, 9.9, 2.25, 10.1));
    const auto inner = std::make_shared<desk::GroupElement>();
    inner->SetName("COLUMNELEMENT");
    inner->Add(rectangle);
    inner->Add(text);
    const auto frame = std::make_shared<desk::GroupElement>();
    frame->SetGeometry(std::make_shared<desk::Envelope>(0.5, 0.5, 8, 10.5));
    frame->SetDraft(true);
    frame->Add(inner);
    const auto map = std::make_shared<desk::MapFrame>();
    map->SetName("Main map");
    return {"An index", 11, 17, {frame, map}, "book.json", "index"};
}

TEST(Document, GivesBackThePageAndItsElements) {
    const TemporaryFolder folder;
    const auto path = folder.File("a.json");
    desk::WriteDocument(FullPage(), path);
    const auto read = desk::ReadDocument(path, Engine());
    EXPECT_EQ(read.title, "An index");
    EXPECT_EQ(read.pageWidth, 11);
    EXPECT_EQ(read.pageHeight, 17);
    EXPECT_EQ(read.templateKey, "index");
    EXPECT_EQ(desk::MapBookPath(read, path), folder.File("book.json"));

    ASSERT_EQ(read.elements.size(), 2U);
    EXPECT_TRUE(host::As<host::IHostMapFrame>(read.elements[1]));
    EXPECT_EQ(host::As<host::IHostElementName>(read.elements[1])->Name(), "Main map");
    const auto frame = host::As<host::IHostGroupElement>(read.elements[0]);
    EXPECT_TRUE(host::As<host::IHostFrameElement>(frame)->Draft());
    EXPECT_EQ(frame->Geometry()->Bounds()->YMax(), 10.5);
    const auto inner = host::As<host::IHostGroupElement>(frame->Item(0));
    ASSERT_TRUE(inner);
    ASSERT_EQ(inner->Count(), 2);
    EXPECT_EQ(inner->Item(0)->Geometry()->Bounds()->XMax(), 2.25);
    const auto text = host::As<host::IHostTextElement>(inner->Item(1));
    ASSERT_TRUE(text);
    EXPECT_EQ(text->Text(), "Abbey Road.....");
    EXPECT_FALSE(text->ScaleWithPage());
    EXPECT_EQ(host::As<host::IHostPoint>(text->Geometry())->X(), 0.55);
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
        desk::Document document = FullPage();
        host::As<host::IHostCustomProperty>(document.elements[0])->SetCustomProperty(value);
        try {
            desk::WriteDocument(document, path);
            ADD_FAILURE() << reason;
        } catch (const host::Failure& failure) {
            EXPECT_NE(failure.description.find(reason), std::string::npos) << failure.description;
            EXPECT_EQ(failure.Fact("file"), path);
        }
        EXPECT_EQ(desk::ReadWholeFile(folder.File("a.json")), "old");
    }
    circle->RemoveItem("self");
}

}  // namespace
