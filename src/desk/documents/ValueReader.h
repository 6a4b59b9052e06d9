#pragma once

#include <memory>
#include <utility>

#include "desk/json/JsonNode.h"
#include "host/Symbols.h"
#include "host/Variant.h"

namespace desk {

class TextEngine;

/// Makes values and symbols of what WriteValue and its kin wrote. Every call fails with the place
/// of what it cannot read. Keys that it does not know are passed over.
class ValueReader {
public:
    /// The engine goes into every text symbol made.
    explicit ValueReader(std::shared_ptr<TextEngine> engine) : engine_(std::move(engine)) {}

    host::Variant Value(const JsonNode& node) const;
    host::Ref<host::IHostTextSymbol> TextSymbol(const JsonNode& node) const;
    host::Ref<host::IHostFillSymbol> FillSymbol(const JsonNode& node) const;
    host::Ref<host::IHostLineSymbol> LineSymbol(const JsonNode& node) const;

    const std::shared_ptr<TextEngine>& Engine() const { return engine_; }

private:
    host::Variant TaggedValue(const JsonNode& node) const;
    host::Ref<host::IHostObject> Set(const JsonNode& node) const;

    std::shared_ptr<TextEngine> engine_;
};

}  // namespace desk
