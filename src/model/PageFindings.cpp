#include "model/PageFindings.h"

#include <utility>

namespace gazetteer {

void PageFindings::Add(PageFinding finding) {
    if (++counts_[static_cast<std::size_t>(finding.kind)] <= kKeptOfAKind)
        kept_.push_back(std::move(finding));
}

}  // namespace gazetteer
