#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/document/OpenDocument.h"
#include "model/Typesetting.h"

namespace app {

/// What an edit can change in a document, for undoing it: the sheet and its elements, with their
/// place, draft state, gazetteer properties, and the symbol and custom property of texts. It shares
/// the property sets, geometries and symbols with the document, so it is small for any number of
/// listings; an edit must replace these objects and not change them.
struct DocumentState {
    struct Element {
        host::Ref<host::IHostElement> element;
        host::Ref<host::IHostGeometry> geometry;
        host::Ref<host::IHostTextSymbol> symbol;       ///< Null for other elements than texts.
        host::Variant custom;                          ///< Of a text; Empty for other elements.
        host::Ref<host::IHostPropertySet> properties;  ///< Null for other elements than gazetteers.
        std::optional<gazetteer::Typesetting> typesetting;
        std::string sources;  ///< Of the results, see ResultSources.h.
        bool draft = false;

        bool operator==(const Element&) const = default;
    };

    std::string title;
    double pageWidth = 0;  ///< Inches, as is the height.
    double pageHeight = 0;
    std::int32_t firstSheet = 0;
    std::vector<Element> elements;

    bool operator==(const DocumentState&) const = default;
};

DocumentState StateOf(OpenDocument& open);

/// Brings the document back to a state of its own. Draws nothing.
void Restore(OpenDocument& open, const DocumentState& state);

/// What a run can change in the gazetteers of a document besides their state: the items of their
/// property sets, which a run replaces but does not change.
class GazetteerItems {
public:
    explicit GazetteerItems(const DocumentState& state);
    void Restore() const;

private:
    struct Set {
        host::Ref<host::IHostPropertySet> properties;
        host::PropertyItems items;
    };
    std::vector<Set> sets_;
};

}  // namespace app
