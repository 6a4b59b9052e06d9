#pragma once

#include <vector>

#include "host/Host.h"
#include "model/Settings.h"
#include "model/Typesetting.h"
#include "sample/QuietHost.h"

namespace gazetteer {

/// What a setting concerns on a page.
enum class Subject { Nothing, Headings, WrappedListings, Leaders };

/// A small index in memory that shows what settings of typesetting do. Its listings go the way of
/// any others: they are sorted and combined, numbered and drawn into elements by the same code.
/// Lengths are inches, Y growing upward from 0.
class SampleIndex {
public:
    /// The host must outlive this.
    explicit SampleIndex(host::IHost& host);

    /// Lays the pages out, which takes some milliseconds. They stand side by side from 0.
    void SetTypesetting(const Typesetting& typesetting);

    const std::vector<host::Ref<host::IHostGroupElement>>& Pages() const { return pages_; }
    /// The bounds of what the setting concerns on the pages.
    std::vector<host::Ref<host::IHostEnvelope>> Places(Subject subject);

    /// Of a page, margins included.
    static double PageWidth();
    static double PageHeight();
    static double PageLeft(std::size_t page);

    /// Most pages that are shown.
    static constexpr std::size_t kPages = 2;
    static constexpr double kMargin = 0.12;

private:
    host::Ref<host::IHostPropertySet> Listings();
    host::Ref<host::IHostGroupElement> NewFrame(std::size_t page);

    QuietHost host_;
    Settings settings_;
    host::Ref<host::IHostFillSymbol> transparentFill_;
    host::Ref<host::IHostTable> table_;
    std::vector<host::Ref<host::IHostGroupElement>> pages_;
};

}  // namespace gazetteer
