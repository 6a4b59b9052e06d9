#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace gis {

/// Ends the connections to a database server that does not answer. libpq waits without end for a
/// server that was stopped while its kernel still acknowledges, and GDAL has no way to interrupt
/// it; so the sockets that were opened with the source are shut down, after which libpq fails.
/// Takes the environment variable GAZETTEER_SERVER_TIMEOUT: seconds, 60 by default, 0: waits
/// without end.
class ServerWatch {
public:
    /// Returns nothing for a source that is no server. To be called before the source is opened;
    /// sockets that are opened from then to the end of the first call are those of the server.
    static std::shared_ptr<ServerWatch> For(const std::string& source);

    explicit ServerWatch(std::chrono::seconds limit);
    ServerWatch(const ServerWatch&) = delete;
    ServerWatch& operator=(const ServerWatch&) = delete;
    ~ServerWatch();

    /// Between these the program waits for the server, at most for the limit. Calls may be nested.
    void BeginCall();
    void EndCall();
    /// What is wrong with the server, without a full stop; empty while it answers.
    std::string Fault();

private:
    using Clock = std::chrono::steady_clock;
    /// Descriptors of the process with what names their sockets.
    using Sockets = std::map<int, std::string>;
    static Sockets OpenSockets();

    void Watch();
    void ShutDown() const;
    Sockets NewSockets() const;

    const std::chrono::seconds limit_;
    const Sockets before_ = OpenSockets();
    std::mutex mutex_;
    std::condition_variable change_;
    int calls_ = 0;
    Clock::time_point since_;         ///< When the call began.
    std::optional<Sockets> sockets_;  ///< Known after the first call.
    bool isSilent_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

/// A call that may wait for a server; of none if the watch is null.
class ServerCall {
public:
    explicit ServerCall(std::shared_ptr<ServerWatch> watch) : watch_(std::move(watch)) {
        if (watch_) watch_->BeginCall();
    }
    ServerCall(const ServerCall&) = delete;
    ServerCall& operator=(const ServerCall&) = delete;
    ~ServerCall() {
        if (watch_) watch_->EndCall();
    }
    std::string Fault() const { return watch_ ? watch_->Fault() : std::string(); }

private:
    std::shared_ptr<ServerWatch> watch_;
};

}  // namespace gis
