#include "desk/tables/TableFactory.h"

#include "desk/tables/PlainObjects.h"
#include "desk/tables/Scratch.h"
#include "desk/tables/TablePath.h"
#include "desk/tables/TableSort.h"
#include "desk/tables/TableWorkspace.h"

namespace desk {

host::Ref<host::IHostTable> OpenTableFile(const std::string& path) {
    return OpenTable(FindTable(path));
}

host::Ref<host::IHostScratchWorkspaceFactory> TableFactory::NewScratchWorkspaceFactory() {
    return std::make_shared<ScratchWorkspaceFactory>();
}

host::Ref<host::IHostWorkspaceFactory> TableFactory::NewWorkspaceFactory() {
    return std::make_shared<TableWorkspaceFactory>();
}

host::Ref<host::IHostFields> TableFactory::NewFields() {
    return std::make_shared<Fields>();
}

host::Ref<host::IHostField> TableFactory::NewField() {
    return std::make_shared<Field>();
}

host::Ref<host::IHostQueryFilter> TableFactory::NewQueryFilter() {
    return std::make_shared<QueryFilter>();
}

host::Ref<host::IHostIdentifier> TableFactory::NewIdentifier() {
    return std::make_shared<Identifier>();
}

host::Ref<host::IHostTableSort> TableFactory::NewTableSort() {
    return std::make_shared<TableSort>();
}

}  // namespace desk
