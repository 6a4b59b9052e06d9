#pragma once

#include <string>

#include "host/Host.h"

namespace reference {

/// The plain loops of fitting a text: measure the growing text once per character and once per dot.
/// Slow, and by its plainness the measure of what the shipped one must answer.
std::string SplitText(host::IHost& host, const host::Ref<host::IHostDisplay>& display,
                      std::string& text, double width,
                      const host::Ref<host::IHostTextSymbol>& symbol);

}  // namespace reference
