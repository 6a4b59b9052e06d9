#include "model/PageFindings.h"

#include <utility>

namespace gazetteer {

void PageFindings::Add(PageFinding finding) {
    ++counts_[static_cast<std::size_t>(finding.kind)];
    kept_.push_back(std::move(finding));
}

}  // namespace gazetteer
