#include "app/document/NotedDialogs.h"

#include <utility>

namespace app {

host::MessageAnswer NotedDialogs::MessageBox(const host::MessageBoxRequest& request) {
    if (request.failure && silent_) return host::MessageAnswer::Ok;
    if (request.failure) failureShown_ = true;
    return Show(request);
}

bool NotedDialogs::TakeFailureShown() {
    return std::exchange(failureShown_, false);
}

}  // namespace app
