#include "page/SetDump.h"

#include "host/Symbols.h"

namespace page_test {
namespace {

using host::IHostObject;
using host::Ref;

std::string ObjectText(const Ref<IHostObject>& object, const std::string& indent) {
    if (const auto set = host::As<host::IHostPropertySet>(object))
        return "\n" + Dump(*set, indent + "  ");
    if (const auto text = host::As<host::IHostTextSymbol>(object))
        return text->Font()->Name() + ' ' + std::to_string(text->Size()) +
               (text->Font()->Bold() ? " bold " : " ") + std::to_string(text->Color()->RGB()) +
               " '" + text->Text() + "'\n";
    if (const auto fill = host::As<host::IHostFillSymbol>(object))
        return "fill " + std::to_string(fill->Color()->RGB()) +
               (fill->Color()->Transparent() ? " none\n" : "\n");
    return "object\n";
}

std::string ValueText(const host::Variant& value, const std::string& indent) {
    return std::visit(
        [&](const auto& held) -> std::string {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, Ref<IHostObject>>)
                return ObjectText(held, indent);
            else if constexpr (std::is_same_v<T, std::string>)
                return '"' + held + "\"\n";
            else if constexpr (std::is_arithmetic_v<T>)
                return std::to_string(held) + " t" + std::to_string(value.index()) + '\n';
            else
                return "nothing\n";
        },
        value);
}

}  // namespace

std::string Dump(const host::IHostPropertySet& set, const std::string& indent) {
    std::string text;
    const auto items = set.AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        text += indent + items.names[i] + ": " + ValueText(items.values[i], indent);
    return text;
}

std::set<const IHostObject*> ObjectsIn(const host::IHostPropertySet& set) {
    std::set<const IHostObject*> found;
    for (const auto& value : set.AllItems().values) {
        const auto* object = std::get_if<Ref<IHostObject>>(&value);
        if (object == nullptr) continue;
        found.insert(object->get());
        if (const auto inner = host::As<host::IHostPropertySet>(*object))
            found.merge(ObjectsIn(*inner));
        if (const auto text = host::As<host::IHostTextSymbol>(*object))
            found.insert({text->Font().get(), text->Color().get()});
        if (const auto fill = host::As<host::IHostFillSymbol>(*object))
            found.insert(fill->Color().get());
    }
    return found;
}

}  // namespace page_test
