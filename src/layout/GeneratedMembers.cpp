#include "layout/GeneratedMembers.h"

#include <algorithm>
#include <ranges>

#include "host/KnownCast.h"

namespace gazetteer {

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
