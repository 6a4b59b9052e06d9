#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "host/Host.h"

/// The members of a gazetteer element that drawing has put there. All others are not the system's
/// and are never touched.
namespace gazetteer {

/// Members with one of the tags, in member order.
std::vector<host::Ref<host::IHostElement>> MembersTagged(
    const host::IHostGroupElement& group, std::initializer_list<std::string_view> tags);

void RemoveMembers(host::IHostGroupElement& group,
                   const std::vector<host::Ref<host::IHostElement>>& members);

}  // namespace gazetteer
