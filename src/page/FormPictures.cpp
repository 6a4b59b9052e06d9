#include "page/FormPictures.h"

#include <QResource>

// The macro has to stand outside any namespace.
static void LoadPageResources() {
    Q_INIT_RESOURCE(page);
}

namespace gazetteer {

void LoadFormPictures() {
    LoadPageResources();
}

}  // namespace gazetteer
