#pragma once

#include <string>
#include <vector>

#include "desk/expressions/ExpressionEngine.h"

namespace desk {

/// Evaluates an expression against the first records of a table, as a sample of what it gives.
///
/// The values that the tokens will have are not known here. A record's own fields "Page", "Row" and
/// "Column" stand in for them, and 1, A and 1 where the table lacks such a field.
class ExpressionPreview {
public:
    /// Reads the first records. Fails as the table does. The table may be null.
    ExpressionPreview(host::Ref<host::IHostTable> table, host::Ref<host::IHostLocale> locale);

    /// A text for each of the first records, at most five. Fails for an expression that is not
    /// valid.
    std::vector<std::string> Texts(const std::string& expression);
    /// Where the tokens' values in the preview come from, in words.
    std::string Sources() const;

private:
    host::TokenValues TokensOf(const host::IHostRow& row) const;

    host::Ref<host::IHostTable> table_;
    ExpressionEngine engine_;
    std::vector<host::Ref<host::IHostRow>> rows_;
};

}  // namespace desk
