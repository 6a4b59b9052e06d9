#include "gis/tables/ServerWatch.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>

namespace gis {
namespace {

constexpr const char* kVariable = "GAZETTEER_SERVER_TIMEOUT";

std::chrono::seconds Limit() {
    constexpr int kDefault = 60;
    const char* const text = std::getenv(kVariable);
    int seconds = kDefault;
    if (text != nullptr) std::from_chars(text, text + std::strlen(text), seconds);
    return std::chrono::seconds(seconds);
}

/// Whether a server may be at the other end of a socket. Other threads may open sockets at the same
/// time, to the screen for instance; PostgreSQL names its local ones by their port.
bool MayBeServer(int descriptor) {
    sockaddr_storage peer{};
    socklen_t size = sizeof peer;
    if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0) return false;
    if (peer.ss_family == AF_INET || peer.ss_family == AF_INET6) return true;
    const auto& local = reinterpret_cast<const sockaddr_un&>(peer);
    return peer.ss_family == AF_UNIX &&
           std::string_view(local.sun_path).find("/.s.PGSQL.") != std::string_view::npos;
}

}  // namespace

std::shared_ptr<ServerWatch> ServerWatch::For(const std::string& source) {
    const bool isServer = source.starts_with("PG:") || source.starts_with("postgresql://");
    const auto limit = Limit();
    return isServer && limit.count() > 0 ? std::make_shared<ServerWatch>(limit) : nullptr;
}

ServerWatch::ServerWatch(std::chrono::seconds limit)
    : limit_(limit), thread_([this] { Watch(); }) {}

ServerWatch::~ServerWatch() {
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
    }
    change_.notify_one();
    thread_.join();
}

void ServerWatch::BeginCall() {
    const std::scoped_lock lock(mutex_);
    if (calls_++ == 0) since_ = Clock::now();
}

void ServerWatch::EndCall() {
    const std::scoped_lock lock(mutex_);
    if (--calls_ == 0 && !sockets_) sockets_ = NewSockets();
}

std::string ServerWatch::Fault() {
    const std::scoped_lock lock(mutex_);
    if (!isSilent_) return {};
    const auto seconds = limit_.count();
    return "the server did not answer for " + std::to_string(seconds) +
           (seconds == 1 ? " second" : " seconds") + " (" + kVariable +
           " sets how long it may take)";
}

// Wakes when the call that is pending, or else one that begins now, would have lasted too long.
void ServerWatch::Watch() {
    std::unique_lock lock(mutex_);
    while (!isEnding_ && !isSilent_) {
        const auto due = (calls_ > 0 ? since_ : Clock::now()) + limit_;
        isSilent_ = calls_ > 0 && Clock::now() >= due;
        if (isSilent_) ShutDown();
        change_.wait_until(lock, due, [this] { return isEnding_; });
    }
}

// Descriptors of which another socket took the number since then are left alone.
void ServerWatch::ShutDown() const {
    const auto now = OpenSockets();
    for (const auto& [descriptor, name] : sockets_ ? *sockets_ : NewSockets())
        if (const auto found = now.find(descriptor); found != now.end() && found->second == name)
            ::shutdown(descriptor, SHUT_RDWR);
}

ServerWatch::Sockets ServerWatch::NewSockets() const {
    auto sockets = OpenSockets();
    std::erase_if(sockets, [this](const auto& socket) {
        const auto found = before_.find(socket.first);
        return (found != before_.end() && found->second == socket.second) ||
               !MayBeServer(socket.first);
    });
    return sockets;
}

// Each link has the kind and the number of what is open, as in "socket:[4711]".
ServerWatch::Sockets ServerWatch::OpenSockets() {
    namespace fs = std::filesystem;
    Sockets sockets;
    std::error_code ignored;
    for (fs::directory_iterator entry("/proc/self/fd", ignored), end; !ignored && entry != end;
         entry.increment(ignored)) {
        std::error_code isGone;
        const auto name = fs::read_symlink(entry->path(), isGone).string();
        if (!isGone && name.starts_with("socket:"))
            sockets.emplace(std::stoi(entry->path().filename().string()), name);
    }
    return sockets;
}

}  // namespace gis
