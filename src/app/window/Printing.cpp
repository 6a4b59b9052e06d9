#include "app/window/Printing.h"

#include <QFile>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScopeGuard>
#include <algorithm>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/window/LengthBox.h"
#include "app/window/PageProgress.h"
#include "app/window/PainterCanvas.h"
#include "app/window/WaitPointer.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

QSizeF SheetSize(WindowSession& session) {
    const auto& document = session.Document().TheDesk().CurrentDocument();
    return {document.pageWidth, document.pageHeight};
}

// Asks about a fault before the print; no as a rule.
bool MayPrint(QWidget& window, const QString& text, const QString& details) {
    QMessageBox box(QMessageBox::Warning, "Print", text, QMessageBox::Cancel, &window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details);
    const auto* const print = box.addButton("Print", QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == print;
}

bool FindingsAccepted(WindowSession& session, QWidget& window, const PageRange& pages) {
    QStringList sentences;
    {
        const WaitPointer wait;
        auto list = FindFindings(session.Document(), WindowUnit(), pages);
        AddFonts(session.Document(), pages, list);
        for (const auto& sentence : list.Sentences()) sentences << desk::ToQt(sentence);
    }
    return sentences.isEmpty() ||
           MayPrint(window, "Something would be wrong in print.", sentences.join('\n'));
}

bool PaperAccepted(WindowSession& session, QWidget& window, const QPrinter& printer) {
    constexpr double kRounding = 0.02;  // Inches; printers round to points.
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Inch).size();
    const QSizeF sheet = SheetSize(session);
    if (sheet.width() <= paper.width() + kRounding && sheet.height() <= paper.height() + kRounding)
        return true;
    const auto size = [](const QSizeF& inches) {
        return desk::ToQt(LengthText(inches.width(), WindowUnit())) + " by " +
               desk::ToQt(LengthText(inches.height(), WindowUnit()));
    };
    return MayPrint(window, "The sheet is larger than the paper and would be cut.",
                    QString("The sheet is %1, the paper %2.").arg(size(sheet), size(paper)));
}

PageRange PagesOf(const QPrinter& printer, WindowSession& session) {
    if (printer.printRange() == QPrinter::CurrentPage) return {session.Page(), session.Page()};
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0)
        return {printer.fromPage(), std::min(printer.toPage(), session.Pages())};
    return {1, session.Pages()};
}

// Moves the origin to the lower left corner of a sheet in the middle of the paper.
void PlaceSheet(QPainter& painter, const QPrinter& printer, const QSizeF& sheet) {
    const int dotsPerInch = printer.resolution();
    const QSizeF paper = printer.pageLayout().fullRectPixels(dotsPerInch).size();
    painter.translate((paper.width() - sheet.width() * dotsPerInch) / 2,
                      (paper.height() + sheet.height() * dotsPerInch) / 2);
}

void PaintPages(WindowSession& session, QPrinter& printer, const PageRange& pages,
                const SheetListener& before) {
    QPainter painter;
    if (!painter.begin(&printer)) throw CommandError("The print cannot be started.");
    PlaceSheet(painter, printer, SheetSize(session));
    PainterCanvas canvas(painter, printer.resolution());
    // A page that fails must not be followed by what a printer would take for the whole print.
    auto abortPrint = qScopeGuard([&] { printer.abort(); });
    const bool backward = printer.pageOrder() == QPrinter::LastPageFirst;
    for (auto count = pages.first; count <= pages.last; ++count) {
        before(count);
        if (count > pages.first && !printer.newPage())
            throw CommandError("The printer takes no more pages.");
        const auto page = backward ? pages.last - (count - pages.first) : count;
        DrawPage(session.Document(), page);
        PaintSheet(session.Document(), canvas, page);
    }
    abortPrint.dismiss();
    if (!painter.end()) throw CommandError("The print cannot be ended.");
}

}  // namespace

void UseSheetAsPaper(WindowSession& session, QPrinter& printer) {
    const QSizeF sheet = SheetSize(session);
    const bool lies = sheet.width() > sheet.height();
    printer.setPageLayout({QPageSize(lies ? sheet.transposed() : sheet, QPageSize::Inch),
                           lies ? QPageLayout::Landscape : QPageLayout::Portrait,
                           {},
                           QPageLayout::Inch});
    printer.setFullPage(true);
}

void PrintPages(WindowSession& session, QPrinter& printer, const PageRange& pages,
                const SheetListener& before) {
    try {
        session.DrawOthers([&] { PaintPages(session, printer, pages, before); });
    } catch (...) {
        if (!printer.outputFileName().isEmpty()) QFile::remove(printer.outputFileName());
        throw;
    }
}

QString Print(WindowSession& session, QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    UseSheetAsPaper(session, printer);
    printer.setDocName(desk::ToQt(session.Document().TheDesk().CurrentDocument().title));
    QPrintDialog dialog(&printer, &window);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintCurrentPage |
                      QAbstractPrintDialog::PrintCollateCopies);
    dialog.setMinMax(1, session.Pages());
    if (dialog.exec() != QDialog::Accepted) return {};
    printer.setFullPage(true);
    const PageRange pages = PagesOf(printer, session);
    if (!PaperAccepted(session, window, printer)) return {};
    if (!FindingsAccepted(session, window, pages)) return {};
    const bool done = WithProgress(
        session, window, {"Print", "Printing"}, pages,
        [&](const SheetListener& before) { PrintPages(session, printer, pages, before); });
    return done ? "Printed " + CountedPages(pages) : QString();
}

}  // namespace app
