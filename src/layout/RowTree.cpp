#include "layout/RowTree.h"

#include <algorithm>
#include <ranges>

namespace gazetteer {
namespace {

const char* GroupTag(RowKind kind) {
    if (kind == RowKind::Title) return kTitleGroupTag;
    return kind == RowKind::Break ? kBreakGroupTag : kRowGroupTag;
}

}  // namespace

std::string TagOf(const host::Ref<host::IHostElement>& element) {
    const auto named = host::As<host::IHostElementName>(element);
    return named ? named->Name() : std::string();
}

CellElements RowSource::NewCell(host::IHost& host) {
    CellElements elements{host.NewGroupElement(), host.NewRectangleElement(), host.NewEnvelope(),
                          host.NewTextElement(), host.NewPoint()};
    nameOfBackground_(elements.background.get())->SetName(kColumnBackgroundTag);
    nameOfText_(elements.text.get())->SetName(kColumnTextTag);
    nameOfGroup_(elements.cell.get())->SetName(kColumnElementTag);
    elements.cell->Add(elements.background);
    elements.cell->Add(elements.text);
    return elements;
}

host::Ref<host::IHostTextElement> RowSource::AddText(host::IHost& host, const CellElements& cell) {
    auto text = host.NewTextElement();
    nameOfText_(text.get())->SetName(kColumnTextTag);
    cell.cell->Add(text);
    return text;
}

RowElements RowSource::NewRow(host::IHost& host, RowKind kind, std::size_t columns) {
    RowElements row{host.NewGroupElement(), {}};
    nameOfGroup_(row.group.get())->SetName(GroupTag(kind));
    row.cells.reserve(columns);
    for (std::size_t i = 0; i < columns; ++i) {
        row.cells.push_back(NewCell(host));
        row.group->Add(row.cells.back().cell);
    }
    return row;
}

const RowElements& RowSource::Take(host::IHost& host, RowKind kind, std::size_t columns) {
    RowElements& row = rows_[static_cast<std::size_t>(kind)];
    if (use_ == Use::Keep || !row.group) row = NewRow(host, kind, columns);
    return row;
}

std::vector<host::Ref<host::IHostElement>> MembersTagged(
    const host::IHostGroupElement& group, std::initializer_list<std::string_view> tags) {
    std::vector<host::Ref<host::IHostElement>> found;
    host::KnownCast<host::IHostElementName> named;
    for (std::int32_t i = 0; i < group.Count(); ++i) {
        auto member = group.Item(i);
        const auto* const name = named(member.get());
        const std::string tag = name ? name->Name() : std::string();
        if (std::ranges::find(tags, std::string_view(tag)) != tags.end())
            found.push_back(std::move(member));
    }
    return found;
}

void RemoveMembers(host::IHostGroupElement& group,
                   const std::vector<host::Ref<host::IHostElement>>& members) {
    // From the end, so that few others have to move up.
    for (const auto& member : std::views::reverse(members)) group.Remove(member);
}

}  // namespace gazetteer
