// Expressions and widths of the columns: the editor and the two checks.

#include "manager/ColumnExpressions.h"
#include "model/EditRules.h"
#include "model/KeyNames.h"
#include "model/Paths.h"
#include "page/ControlValues.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {
namespace {

std::vector<host::TokenDescription> Tokens(bool linked) {
    return {{"$$PAGE_NUMBER",
             linked ? "Corrected page number for index item" : "Page number for index item"},
            {"$$ROW", linked ? "Grid row name for index item" : "Grid row for index item"},
            {"$$COLUMN", linked ? "Grid column name for index item" : "Grid column for index item"},
            {"$$DOTS", "Expand text to column width using dots. (i.e. 'Main St......3')"}};
}

host::MessageBoxRequest IndexLayerOutOfReach() {
    return {"Unable to Edit Expression!",
            "Error attempting to access Map Series Frame's Index Layer Table", host::kStopOk};
}

host::MessageBoxRequest ExpressionsInvalid() {
    return {"Invalid Column Text Expression!",
            "Some of the column expression definitions are invalid for the selected Database File "
            "and/or Linked Map Series Frame.\r\n\r\nPlease update column properties!",
            host::kStopOk};
}

// Has the same title as the message about expressions.
host::MessageBoxRequest ColumnsTooWide() {
    return {"Invalid Column Text Expression!",
            "The total width of the defined columns is wider than the width of the Gazetteer "
            "Frame.\r\n\r\nPlease update column widths!",
            host::kStopOk};
}

}  // namespace

using Form = frmGazetteerPropertyPage;

void Form::cmdExpression_Click() {
    const bool linked = link_.IsInForce();
    auto table = listingTable_;
    if (linked && ui_->optColumnSource_1->isChecked()) {
        table = link_.IsSeriesFrame() ? link_.OpenIndexLayer() : nullptr;
        if (!table) {
            host_->Dialogs().MessageBox(IndexLayerOutOfReach());
            return;
        }
    }
    // Kept in a local: the form may be released while the dialog is open.
    const auto engine = expressionEngine_;
    const std::string edited =
        engine->EditExpression(table, ShownText(*this, "txtExpression"), Tokens(linked));
    if (!edited.empty()) ShowText(*this, "txtExpression", edited);
}

void Form::CheckColumns() {
    CheckColumnExpressions(false);
    CheckColumnSizing(false);
}

// The index layer is opened only if needed, since it may be unavailable.
bool Form::AnyColumnFromIndexLayer() const {
    for (const std::string& name : NamesOf(*fields_.columnNames))
        if (!ToBoolean(SetUnder(*fields_.columnsProperties, name)->Item(keys::kFromDatabase)))
            return true;
    return false;
}

// Uses the link as stored when the page was opened: a column switched to the index layer under a
// new link stays invalid until the page is opened again. If the check throws, the verdict does not
// change.
void Form::CheckColumnExpressions(bool ShowMessage) try {
    if (!haveDatabase_) {
        expressionsValid_ = false;
        return;
    }
    ExpressionTables tables{OpenTableFile(*host_, ShownText(*this, "txtDatabaseFile")), nullptr};
    expressionEngine_ = host_->NewExpressionEngine();
    if (fields_.linkToMapSeries && link_.HaveFrame() && AnyColumnFromIndexLayer())
        tables.indexLayer = link_.OpenIndexLayer();
    Findings findings;
    expressionsValid_ =
        JudgeColumnExpressions(*expressionEngine_, host_->Locale(),
                               {fields_.columnNames, fields_.columnsProperties}, tables, findings);
    if (ShowMessage && !expressionsValid_) host_->Dialogs().MessageBox(ExpressionsInvalid());
} catch (...) {
    PassOn("CheckColumnExpressions", kFormLabel);
}

void Form::CheckColumnSizing(bool ShowMessage) try {
    const auto element = Require<host::IHostElement>(element_);
    const double width = Require<host::IHostGeometry>(element->Geometry())->Bounds()->Width();
    sizingValid_ = ColumnsFitFrame(host_->Locale(), fields_, width);
    if (ShowMessage && !sizingValid_) host_->Dialogs().MessageBox(ColumnsTooWide());
} catch (...) {
    PassOn("CheckColumnSizing", kFormLabel);
}

}  // namespace gazetteer
