#include "desk/window/ObjectDialog.h"

#include <utility>
#include <vector>

#include "desk/window/TableChooser.h"
#include "desk/window/WidgetText.h"

namespace desk {

namespace {

class CatalogObject final : public host::IHostCatalogObject {
public:
    explicit CatalogObject(PickedObject picked) : picked_(std::move(picked)) {}
    std::string FullName() const override { return picked_.fullName; }
    std::string Category() const override { return picked_.category; }

private:
    PickedObject picked_;
};

class ObjectSelection final : public host::IHostObjectSelection {
public:
    explicit ObjectSelection(const std::vector<PickedObject>& picked) : picked_(picked) {}
    void Reset() override { next_ = 0; }
    host::Ref<host::IHostCatalogObject> Next() override {
        if (next_ >= picked_.size()) return nullptr;
        return std::make_shared<CatalogObject>(picked_[next_++]);
    }

private:
    std::vector<PickedObject> picked_;
    std::size_t next_ = 0;
};

}  // namespace

ObjectDialog::ObjectDialog(ParentWidget parent, std::string startFolder)
    : parent_(std::move(parent)), startFolder_(std::move(startFolder)) {}

void ObjectDialog::SetObjectFilter(const host::Ref<host::IHostObjectFilter>& /*filter*/) {}

void ObjectDialog::DoModal(host::WindowHandle parent,
                           host::Ref<host::IHostObjectSelection>& selection, bool& accepted) {
    TableChooser chooser(ToQt(startFolder_), allowMultiSelect_, DialogParent(parent_, parent));
    chooser.setWindowTitle(ToQt(title_));
    accepted = chooser.exec() == QDialog::Accepted;
    if (!accepted) return;
    selection = std::make_shared<ObjectSelection>(chooser.Picked());
    name_ = FromQt(chooser.Name());
}

}  // namespace desk
