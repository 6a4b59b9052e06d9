#include "support/TestDesk.h"

#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "support/DbfBuilder.h"

namespace support {
namespace {

bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

void WriteTable(const std::string& path, const std::vector<DbfColumn>& columns,
                const TestDesk::Rows& rows) {
    DbfBuilder table(columns);
    for (const auto& row : rows) table.Row(row);
    table.Write(path);
}

}  // namespace

TestDesk::TestDesk(desk::DeskOptions options) {
    options.locale = "en_US";
    options.dialogs = dialogs_;
    options.listeners.statusText = [texts = statusTexts_](std::int32_t, const std::string& text) {
        texts->push_back(text);
    };
    desk_ = std::make_shared<desk::Desk>(options);
}

host::Ref<host::IHostDisplay> TestDesk::Display() {
    return desk_->NewApplication()->Document()->ActiveView()->Display();
}

std::string TestDesk::ListingTable(const Rows& rows) {
    const std::string path = folder_.File("listings" + std::to_string(++tables_) + ".dbf");
    ReplaceTable(path, rows);
    return path;
}

void TestDesk::ReplaceTable(const std::string& path, Rows rows) {
    for (auto& row : rows) row.push_back(IsNumber(row[1]) ? row[1] : "");
    WriteTable(path, {{"Listing", 'C', 60}, {"Ref", 'C', 20}, {"Page", 'N', 6}}, rows);
}

std::string TestDesk::GridTable(const Rows& rows) {
    const std::string path = folder_.File("grid" + std::to_string(++tables_) + ".dbf");
    WriteTable(path, {{"Listing", 'C', 60}, {"Page", 'N', 6}, {"Row", 'N', 4}, {"Column", 'N', 4}},
               rows);
    return path;
}

void TestDesk::UseBook(const std::string& json,
                       const std::pair<std::vector<std::string>, Rows>& sheets) {
    std::vector<DbfColumn> columns;
    for (const auto& name : sheets.first) columns.push_back({name, 'C', 20});
    WriteTable(folder_.File("sheets.dbf"), columns, sheets.second);
    folder_.Write("book.json", json);
    desk::Document document;
    document.mapBook = "book.json";
    desk_->Start(std::move(document), folder_.File("document.json"));
}

TestDesk::Group TestDesk::NewGazetteer(const std::string& table, double width, double height) {
    auto element = desk_->NewGroupElement();
    auto frame = desk_->NewEnvelope();
    frame->SetCoords(1, 1, 1 + width, 1 + height);
    element->SetGeometry(frame);
    auto properties = gazetteer::NewGazetteerProperties(*desk_);
    gazetteer::SetGazetteerProperties(*desk_, element, properties);

    gazetteer::Settings settings;
    gazetteer::ReadSettings(*desk_, *properties, settings);
    settings.indexDatabaseFile = table;
    const auto source = desk_->NewWorkspaceFactory()->OpenFromFile("", 0)->OpenTable(table);
    gazetteer::DefineColumns(*desk_, *source->Fields(), settings);
    gazetteer::StoreEdit(*desk_, settings, true, *properties);
    for (const auto& name : gazetteer::NamesOf(*settings.columnNames)) {
        const auto column = Column(element, name);
        column->SetItem("ColumnWidth", 1.9);
        column->SetItem("ColumnFontSymbol", Object(TextSymbol("Liberation Sans", 10)));
        column->SetItem("BreakFontSymbol", Object(TextSymbol("Liberation Sans", 10)));
        column->SetItem("TitleFontSymbol", Object(TextSymbol("Liberation Sans", 12)));
    }
    return element;
}

host::Ref<host::IHostPropertySet> TestDesk::Properties(const Group& element) {
    return gazetteer::StoredGazetteerProperties(element);
}

host::Ref<host::IHostPropertySet> TestDesk::Column(const Group& element, const std::string& name) {
    return SetIn(*SetIn(*Properties(element), "ColumnsProperties"), name);
}

host::Ref<host::IHostTextSymbol> TestDesk::TextSymbol(const std::string& family, double points) {
    auto font = desk_->NewFont();
    font->SetName(family);
    font->SetSize(points);
    auto symbol = desk_->NewTextSymbol();
    symbol->SetFont(font);
    return symbol;
}

host::Ref<host::IHostEnvelope> TestDesk::Bounds(host::IHostElement& element) {
    auto bounds = desk_->NewEnvelope();
    element.MeasureBounds(Display(), bounds);
    return bounds;
}

std::vector<std::string> TestDesk::ListingTexts(const gazetteer::CVNGazetteerManager& manager) {
    const auto& listings = manager.Working().listings;
    std::vector<std::string> texts;
    for (const auto& column : listings->AllItems().names) {
        const auto cells = SetIn(*listings, column)->AllItems().values;
        texts.resize(cells.size());
        for (std::size_t i = 0; i < cells.size(); ++i)
            texts[i] += (texts[i].empty() && column == "Listing" ? "" : "|") +
                        std::get<std::string>(cells[i]);
    }
    return texts;
}

std::string TestDesk::Dump(const host::IHostGroupElement& element, const std::string& indent) {
    std::string text;
    for (std::int32_t i = 0; i < element.Count(); ++i) {
        const auto member = element.Item(i);
        const auto box = Bounds(*member);
        text += indent + Tag(*member);
        for (const double edge : {box->XMin(), box->YMin(), box->XMax(), box->YMax()})
            text += ' ' + std::to_string(edge);
        if (const auto label = host::As<host::IHostTextElement>(member))
            text += " \"" + label->Text() + '"';
        if (const auto filled = host::As<host::IHostFilledElement>(member))
            text += " #" + std::to_string(filled->Symbol()->Color()->RGB());
        text += '\n';
        if (const auto group = host::As<host::IHostGroupElement>(member))
            text += Dump(*group, indent + "  ");
    }
    return text;
}

std::string TestDesk::Tag(const host::IHostElement& element) {
    const auto* named = dynamic_cast<const host::IHostElementName*>(&element);
    return named ? named->Name() : std::string();
}

std::vector<host::Ref<host::IHostElement>> TestDesk::Members(const host::IHostGroupElement& element,
                                                             const std::string& tag) {
    std::vector<host::Ref<host::IHostElement>> members;
    for (std::int32_t i = 0; i < element.Count(); ++i)
        if (Tag(*element.Item(i)) == tag) members.push_back(element.Item(i));
    return members;
}

std::string TestDesk::CellText(const host::IHostElement& row, int column) {
    const auto& group = dynamic_cast<const host::IHostGroupElement&>(row);
    const auto cell = host::As<host::IHostGroupElement>(group.Item(column));
    return host::As<host::IHostTextElement>(cell->Item(1))->Text();
}

std::vector<std::string> TestDesk::DrawnTexts(const host::IHostGroupElement& element, int column) {
    std::vector<std::string> texts;
    for (const auto& row : Members(element, "ROWGROUP")) texts.push_back(CellText(*row, column));
    return texts;
}

host::Ref<host::IHostPropertySet> TestDesk::SetIn(const host::IHostPropertySet& set,
                                                  const std::string& name) {
    return host::As<host::IHostPropertySet>(std::get<host::Ref<host::IHostObject>>(set.Item(name)));
}

}  // namespace support
