#pragma once

#include <string>

namespace tests {

/// A PostGIS server of its own in a temporary folder, reached by a socket in it, that ends with the
/// test. Throws if it cannot be started: the package list has all it needs.
class PostgresServer {
public:
    PostgresServer();
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    /// Such as "PG:host=/tmp/... user=postgres dbname=postgres".
    std::string Connection() const;
    /// Runs statements; throws if one fails.
    void Run(const std::string& sql) const;
    /// Whether another connection has begun to read a table.
    bool IsRead() const;
    /// Stops all connections where they are, as seen from them: nothing is answered, nothing
    /// closed.
    void Pause() const { Signal("STOP"); }
    void Resume() const { Signal("CONT"); }
    /// Ends the server as if it had crashed.
    void Stop();

private:
    /// Sends a signal to the processes of all other connections.
    void Signal(const std::string& name) const;
    /// Runs a program of the server as a user who is not root; throws if it fails.
    void RunProgram(const std::string& commandLine) const;

    std::string folder_;
    bool runs_ = false;
};

}  // namespace tests
