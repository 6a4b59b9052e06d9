#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <vector>

namespace app {

/// A page that a search found.
struct PageHit {
    int page = 0;
    QString listing;  ///< The first listing found on it.
    int more = 0;     ///< How many further ones.
};

/// The pages of a gazetteer, each with its number and its name, or those of them that a search
/// found. Names are asked for when they are seen.
class PageListModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetPages(int count, std::function<QString(int page)> name);
    /// Shows these pages only; nothing shows all.
    void ShowOnly(std::optional<std::vector<PageHit>> hits);

    int PageAt(int row) const;
    /// -1 for a page that is not shown.
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
