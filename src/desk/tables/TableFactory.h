#pragma once

#include <string>

#include "host/Tables.h"

namespace desk {

host::Ref<host::IHostTable> OpenTableFile(const std::string& path);

class TableFactory : public virtual host::IHostTableFactory {
public:
    host::Ref<host::IHostScratchWorkspaceFactory> NewScratchWorkspaceFactory() override;
    host::Ref<host::IHostWorkspaceFactory> NewWorkspaceFactory() override;
    host::Ref<host::IHostFields> NewFields() override;
    host::Ref<host::IHostField> NewField() override;
    host::Ref<host::IHostQueryFilter> NewQueryFilter() override;
    host::Ref<host::IHostIdentifier> NewIdentifier() override;
    host::Ref<host::IHostTableSort> NewTableSort() override;
};

}  // namespace desk
