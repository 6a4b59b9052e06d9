#include "faults/FaultyHost.h"

#include "desk/objects/Elements.h"
#include "desk/objects/PropertySet.h"
#include "faults/FaultyObjects.h"

namespace faults {
namespace {

class TheHost final : public Faulty<IHost> {
public:
    using Faulty::Faulty;
    IHostLocale& Locale() override { return locale_; }
    IHostDialogs& Dialogs() override { return real_->Dialogs(); }
    IHostDevices& Devices() override { return real_->Devices(); }

private:
    Faulty<IHostLocale> locale_{faults_, Ref<IHostLocale>(real_, &real_->Locale())};
};

Ref<IHostPropertySet> InfectSet(const IHostPropertySet& set, Faults& faults) {
    auto copy = std::make_shared<desk::PropertySet>();
    const auto items = set.AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i) {
        Variant value = items.values[i];
        if (auto* const object = std::get_if<Ref<IHostObject>>(&value)) {
            if (const auto inner = As<IHostPropertySet>(*object))
                *object = InfectSet(*inner, faults);
            else if (const auto text = As<IHostTextSymbol>(*object))
                *object = Wrap(faults, As<IHostTextSymbol>(text->Copy()));
            else if (const auto fill = As<IHostFillSymbol>(*object))
                *object = Wrap(faults, As<IHostFillSymbol>(fill->Copy()));
        }
        copy->SetItem(items.names[i], value);
    }
    return Wrap<IHostPropertySet>(faults, copy);
}

}  // namespace

Ref<IHost> MakeFaulty(const Ref<IHost>& host, Faults& faults) {
    return std::make_shared<TheHost>(faults, host);
}

Ref<IHostGroupElement> Infect(const Ref<IHostGroupElement>& element, Faults& faults) {
    auto infected = Wrap<IHostGroupElement>(faults, std::make_shared<desk::GroupElement>());
    infected->SetGeometry(Wrap(faults, element->Geometry()->Bounds()));
    const auto custom = As<IHostCustomProperty>(element)->CustomProperty();
    const auto set = As<IHostPropertySet>(std::get<Ref<IHostObject>>(custom));
    As<IHostCustomProperty>(infected)->SetCustomProperty(Ref<IHostObject>(InfectSet(*set, faults)));
    return infected;
}

}  // namespace faults
