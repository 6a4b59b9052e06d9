#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"

namespace faults {

/// Counts the calls of a host's objects, and lets one of them fail.
class Faults {
public:
    static constexpr char kSentence[] = "The injected fault struck.";

    /// Counts from 1 again and lets that call fail; 0: none.
    void FailAt(std::int64_t call) {
        count_ = 0;
        failAt_ = call;
        struck_ = {};
    }
    /// To be called at the beginning of every operation.
    void Tick(const char* interface, const char* operation) {
        if (++count_ != failAt_) return;
        struck_ = std::string(interface) + '.' + operation;
        throw host::Failure(host::kFailureUnspecified, struck_, kSentence);
    }

    std::int64_t Count() const { return count_; }
    /// The operation that failed; empty if none did.
    const std::string& Struck() const { return struck_; }

private:
    std::int64_t count_ = 0;
    std::int64_t failAt_ = 0;
    std::string struck_;
};

/// The host with every object that it makes, or that is had from these, wrapped so that their calls
/// are counted and may fail. Only dialogs stay as they are, since they tell of the failures.
host::Ref<host::IHost> MakeFaulty(const host::Ref<host::IHost>& host, Faults& faults);

/// A gazetteer element of the real host, made anew of wrapped objects: its frame, its properties
/// and all sets and symbols in them.
host::Ref<host::IHostGroupElement> Infect(const host::Ref<host::IHostGroupElement>& element,
                                          Faults& faults);

}  // namespace faults
