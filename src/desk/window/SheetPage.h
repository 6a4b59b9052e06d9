#pragma once

#include <QPointer>
#include <QScrollArea>
#include <functional>

#include "host/PropertyPages.h"

namespace desk {

/// A tab of a property sheet with the window of its page in it. Scrolls where there is no room for
/// the page. Failures of the page are told in a message and go no further.
class SheetPage : public QScrollArea {
public:
    /// Hands the page its site and objects and takes its window in, still hidden.
    SheetPage(host::Ref<host::IComPropertyPage> page, const host::Ref<host::IHostPageSite>& site,
              const host::Ref<host::IHostObjectSet>& objects);
    ~SheetPage() override;

    QString Title() const { return title_; }
    void ShowPage();
    void HidePage();
    void ApplyIfDirty();
    void Cancel();
    /// Gives the page its window back and releases the page. Does nothing the second time.
    void LetGo();

    QSize sizeHint() const override;

private:
    void TakeWindow();
    void Guarded(const std::function<void(host::IComPropertyPage&)>& call);

    host::Ref<host::IComPropertyPage> page_;
    QPointer<QWidget> window_;
    QString title_;
};

}  // namespace desk
