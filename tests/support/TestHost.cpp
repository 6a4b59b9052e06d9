#include "support/TestHost.h"

#include "model/EditRules.h"
#include "model/GeneralFunctions.h"

namespace support {

host::Ref<host::IHostDisplay> TestHost::Display() {
    return host_->NewApplication()->Document()->ActiveView()->Display();
}

std::string TestHost::ListingTable(const Rows& rows) {
    Rows cells;
    for (const auto& row : rows) {
        const bool isNumber = row[1].find_first_not_of("0123456789") == std::string::npos;
        cells.push_back({row[0], row[1], isNumber ? row[1] : ""});
    }
    return NewTable({"Listing", "Ref", "Page"}, 2, cells);
}

std::string TestHost::GridTable(const Rows& rows) {
    return NewTable({"Listing", "Page", "Row", "Column"}, 1, rows);
}

TestHost::Group TestHost::NewGazetteer(const std::string& table, double width, double height) {
    auto element = host_->NewGroupElement();
    auto frame = host_->NewEnvelope();
    frame->SetCoords(1, 1, 1 + width, 1 + height);
    element->SetGeometry(frame);
    auto properties = gazetteer::NewGazetteerProperties(*host_);
    gazetteer::SetGazetteerProperties(*host_, element, properties);

    gazetteer::Settings settings;
    gazetteer::ReadSettings(*host_, *properties, settings);
    settings.indexDatabaseFile = table;
    const auto source = host_->NewWorkspaceFactory()->OpenFromFile("", 0)->OpenTable(table);
    gazetteer::DefineColumns(*host_, *source->Fields(), settings);
    gazetteer::StoreEdit(*host_, settings, true, *properties);
    for (const auto& name : gazetteer::NamesOf(*settings.columnNames)) {
        const auto column = Column(element, name);
        column->SetItem("ColumnWidth", 1.9);
        column->SetItem("ColumnFontSymbol", Object(TextSymbol("Liberation Sans", 10)));
        column->SetItem("BreakFontSymbol", Object(TextSymbol("Liberation Sans", 10)));
        column->SetItem("TitleFontSymbol", Object(TextSymbol("Liberation Sans", 12)));
    }
    return element;
}

host::Ref<host::IHostPropertySet> TestHost::Properties(const Group& element) {
    return gazetteer::StoredGazetteerProperties(element);
}

host::Ref<host::IHostPropertySet> TestHost::Column(const Group& element, const std::string& name) {
    return SetIn(*SetIn(*Properties(element), "ColumnsProperties"), name);
}

void TestHost::Store(const Group& element, const Assignments& assignments) {
    for (const auto& [key, value] : assignments) {
        const auto dot = key.find('.');
        const bool ofColumn = dot != std::string::npos;
        const auto set = ofColumn ? Column(element, key.substr(0, dot)) : Properties(element);
        set->SetItem(ofColumn ? key.substr(dot + 1) : key, value);
    }
}

host::Ref<host::IHostTextSymbol> TestHost::TextSymbol(const std::string& family, double points) {
    auto font = host_->NewFont();
    font->SetName(family);
    font->SetSize(points);
    auto symbol = host_->NewTextSymbol();
    symbol->SetFont(font);
    return symbol;
}

host::Ref<host::IHostEnvelope> TestHost::Bounds(host::IHostElement& element) {
    auto bounds = host_->NewEnvelope();
    element.MeasureBounds(Display(), bounds);
    return bounds;
}

std::vector<std::string> TestHost::ListingTexts(const gazetteer::CVNGazetteerManager& manager) {
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

std::string TestHost::Dump(const host::IHostGroupElement& element, const std::string& indent) {
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

std::string TestHost::Tag(const host::IHostElement& element) {
    const auto* named = dynamic_cast<const host::IHostElementName*>(&element);
    return named ? named->Name() : std::string();
}

std::vector<host::Ref<host::IHostElement>> TestHost::Members(const host::IHostGroupElement& element,
                                                             const std::string& tag) {
    std::vector<host::Ref<host::IHostElement>> members;
    for (std::int32_t i = 0; i < element.Count(); ++i)
        if (Tag(*element.Item(i)) == tag) members.push_back(element.Item(i));
    return members;
}

std::string TestHost::CellText(const host::IHostElement& row, int column) {
    const auto& group = dynamic_cast<const host::IHostGroupElement&>(row);
    const auto cell = host::As<host::IHostGroupElement>(group.Item(column));
    return host::As<host::IHostTextElement>(cell->Item(1))->Text();
}

std::vector<std::string> TestHost::DrawnTexts(const host::IHostGroupElement& element, int column,
                                              const char* rows) {
    std::vector<std::string> texts;
    for (const auto& row : Members(element, rows)) texts.push_back(CellText(*row, column));
    return texts;
}

host::Ref<host::IHostPropertySet> TestHost::SetIn(const host::IHostPropertySet& set,
                                                  const std::string& name) {
    return host::As<host::IHostPropertySet>(std::get<host::Ref<host::IHostObject>>(set.Item(name)));
}

}  // namespace support
