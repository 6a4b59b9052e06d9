#include "app/window/PagesModel.h"

#include <algorithm>
#include <utility>

namespace app {

void PagesModel::SetPages(int count, std::function<QString(int page)> name) {
    beginResetModel();
    count_ = count;
    name_ = std::move(name);
    hits_.reset();
    endResetModel();
}

void PagesModel::ShowOnly(std::optional<std::vector<PageHit>> hits) {
    beginResetModel();
    hits_ = std::move(hits);
    endResetModel();
}

int PagesModel::PageAt(int row) const {
    return hits_ ? (*hits_)[static_cast<std::size_t>(row)].page : row + 1;
}

int PagesModel::RowOf(int page) const {
    if (!hits_) return page >= 1 && page <= count_ ? page - 1 : -1;
    const auto hit = std::ranges::lower_bound(*hits_, page, {}, &PageHit::page);
    return hit != hits_->end() && hit->page == page ? static_cast<int>(hit - hits_->begin()) : -1;
}

int PagesModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return hits_ ? static_cast<int>(hits_->size()) : count_;
}

int PagesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QString PagesModel::TextAt(int row) const {
    if (!hits_) return name_(row + 1);
    const PageHit& hit = (*hits_)[static_cast<std::size_t>(row)];
    return hit.listing.isEmpty() ? name_(hit.page) : hit.listing;
}

QVariant PagesModel::data(const QModelIndex& index, int role) const {
    const bool number = index.column() == 0;
    switch (role) {
        case Qt::DisplayRole:
            return number ? QString::number(PageAt(index.row())) : TextAt(index.row());
        case Qt::ToolTipRole:
            return QString("Page %1: %2").arg(PageAt(index.row())).arg(TextAt(index.row()));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::AlignVCenter |
                                       (number ? Qt::AlignRight : Qt::AlignLeft));
        default:
            return {};
    }
}

QVariant PagesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignVCenter |
                                   (section == 0 ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole) return {};
    if (section == 0) return "Page";
    return hits_ ? "Listing found" : "First - last listing";
}

}  // namespace app
