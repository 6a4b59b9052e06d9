#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <vector>

#include "app/window/PageFinder.h"

namespace app {

/// Pages with number and name, or the listings found by a search with the numbers of their pages.
/// Requests only the names in view, since a gazetteer can have thousands of pages.
class PagesModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetPages(int count, std::function<QString(int page)> name);
    /// Limits the rows to these hits; nothing: all pages.
    void ShowOnly(std::optional<std::vector<PageHit>> hits);

    const std::vector<PageHit>* Hits() const { return hits_ ? &*hits_ : nullptr; }
    int PageAt(int row) const;
    /// The first row of a page; -1 for a page that is not listed.
    int RowOf(int page) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString TextAt(int row) const;

    int count_ = 0;
    std::function<QString(int page)> name_;
    std::optional<std::vector<PageHit>> hits_;
};

}  // namespace app
