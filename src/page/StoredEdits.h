#pragma once

#include <QWidget>

#include "host/Host.h"

/// How the pages of one sheet bring their edits into the element.
namespace gazetteer {

/// A form that edits what is stored beside the properties of the gazetteer. The page that is
/// applied first stores for all forms of its sheet, so that one run serves them.
class EditsBeside {
public:
    EditsBeside() = default;
    EditsBeside(const EditsBeside&) = delete;
    EditsBeside& operator=(const EditsBeside&) = delete;
    virtual ~EditsBeside() = default;

    /// Stores what the element does not have yet.
    virtual void StoreEdits() = 0;
};

/// Stores the edits of the other forms in the window of this one.
void StoreEditsBeside(const QWidget& form);

/// Follows the storing of edits: runs the gazetteer, which ends in draft state and a message if it
/// cannot be drawn, and refreshes the layout.
void DrawStoredEdits(const host::Ref<host::IHost>& host,
                     const host::Ref<host::IHostGroupElement>& element);

/// The last gazetteer among the objects, or null. Starts from the first object.
host::Ref<host::IHostGroupElement> LastGazetteer(host::IHost& host, host::IHostObjectSet& objects);
/// The same up to the first one.
bool HasGazetteer(host::IHost& host, host::IHostObjectSet& objects);

}  // namespace gazetteer
