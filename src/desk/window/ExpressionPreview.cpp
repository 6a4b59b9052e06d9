#include "desk/window/ExpressionPreview.h"

#include <array>
#include <utility>

namespace desk {

namespace {

constexpr std::size_t kRecords = 5;

struct StandIn {
    const char* token;
    const char* field;
    const char* value;
};
constexpr std::array<StandIn, 3> kStandIns = {
    {{"PAGE_NUMBER", "Page", "1"}, {"ROW", "Row", "A"}, {"COLUMN", "Column", "1"}}};

bool IsBlank(const host::Variant& value) {
    return std::holds_alternative<host::Empty>(value) || std::holds_alternative<host::Null>(value);
}

}  // namespace

ExpressionPreview::ExpressionPreview(host::Ref<host::IHostTable> table,
                                     host::Ref<host::IHostLocale> locale)
    : table_(std::move(table)), engine_(std::move(locale)) {
    if (!table_) return;
    const auto cursor = table_->Search(nullptr, false);
    while (rows_.size() < kRecords) {
        auto row = cursor->NextRow();
        if (!row) break;
        rows_.push_back(std::move(row));
    }
}

std::vector<std::string> ExpressionPreview::Texts(const std::string& expression) {
    std::vector<std::string> texts;
    for (const auto& row : rows_)
        texts.push_back(engine_.Evaluate(table_, row, expression, TokensOf(*row)));
    return texts;
}

host::TokenValues ExpressionPreview::TokensOf(const host::IHostRow& row) const {
    host::TokenValues values;
    for (const StandIn& standIn : kStandIns) {
        const auto field = table_->FindField(standIn.field);
        host::Variant value = field < 0 ? host::Variant(host::Empty{}) : row.Value(field);
        values[standIn.token] = IsBlank(value) ? host::Variant(std::string(standIn.value)) : value;
    }
    return values;
}

std::string ExpressionPreview::Sources() const {
    std::string sources;
    for (const StandIn& standIn : kStandIns) {
        const bool isThere = table_ && table_->FindField(standIn.field) >= 0;
        sources += (sources.empty() ? "" : ", ") + std::string("$$") + standIn.token + " is ";
        sources += isThere ? std::string("the field ") + standIn.field : standIn.value;
    }
    return "This is a preview: " + sources + ". Other words with $$ stay as they are for now.";
}

}  // namespace desk
