// A component with one class, "Small.Class", whose objects keep it loaded. It cannot be entered.

#include <string_view>

#include "host/Component.h"

namespace {

int live = 0;

struct Small final : host::IHostObject {
    Small() { ++live; }
    ~Small() override { --live; }
};

struct Factory final : host::IHostClassFactory {
    host::Ref<host::IHostObject> CreateInstance(const host::Ref<host::IHost>&) override {
        return std::make_shared<Small>();
    }
};

}  // namespace

extern "C" {

void ComponentCreateClassObject(const char* name, host::Ref<host::IHostClassFactory>* factory) {
    if (std::string_view(name) == "Small.Class") *factory = std::make_shared<Factory>();
}

std::int32_t ComponentRegister(const host::Ref<host::IHost>*, std::string* message) {
    *message = "It will not be entered.";
    return -3;
}

std::int32_t ComponentUnregister(const host::Ref<host::IHost>*, std::string*) {
    return 0;
}

bool ComponentCanUnload() {
    return live == 0;
}

}  // extern "C"
