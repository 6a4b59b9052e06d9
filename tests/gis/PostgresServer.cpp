#include "gis/PostgresServer.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <pwd.h>
#include <stdexcept>
#include <unistd.h>

#include "support/Output.h"

namespace tests {
namespace {

bool IsRoot() {
    return ::geteuid() == 0;
}

std::string NewFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "postgres-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no temporary folder could be made");
    // A server does not run as root.
    const passwd* const user = ::getpwnam("postgres");
    if (IsRoot() && (user == nullptr || ::chown(pattern.c_str(), user->pw_uid, user->pw_gid) != 0))
        throw std::runtime_error("there is no user postgres, whom the package postgresql makes");
    return pattern;
}

std::string ProgramFolder() {
    std::string folder = support::Output("pg_config --bindir");
    return folder.substr(0, folder.find('\n'));
}

}  // namespace

PostgresServer::PostgresServer() : folder_(NewFolder()) {
    RunProgram("initdb -D '" + folder_ + "/data' -U postgres -A trust -E UTF8 --locale=C.UTF-8 -N");
    RunProgram("pg_ctl -D '" + folder_ + "/data' -w -l '" + folder_ + "/server.log' -o \"-F -k '" +
               folder_ + "' -c listen_addresses=''\" start");
    runs_ = true;
    Run("CREATE EXTENSION postgis");
}

PostgresServer::~PostgresServer() {
    std::error_code ignored;
    try {
        Stop();
    } catch (const std::exception&) {
        // The test has ended.
    }
    std::filesystem::remove_all(folder_, ignored);
}

std::string PostgresServer::Connection() const {
    return "PG:host=" + folder_ + " user=postgres dbname=postgres";
}

void PostgresServer::Run(const std::string& sql) const {
    RunProgram("psql -q -v ON_ERROR_STOP=1 -h '" + folder_ + "' -U postgres -c \"" + sql + '"');
}

void PostgresServer::Stop() {
    if (!runs_) return;
    runs_ = false;
    RunProgram("pg_ctl -D '" + folder_ + "/data' -w -m immediate stop");
}

bool PostgresServer::IsRead() const {
    try {
        Run("SELECT 1 / count(*) FROM pg_stat_activity WHERE query LIKE 'FETCH%'"
            " AND pid <> pg_backend_pid()");
        return true;
    } catch (const std::runtime_error&) {
        return false;  // Division by zero.
    }
}

void PostgresServer::Signal(const std::string& name) const {
    Run("COPY (SELECT pid FROM pg_stat_activity WHERE backend_type = 'client backend' AND "
        "pid <> pg_backend_pid()) TO PROGRAM 'xargs -r kill -" +
        name + " || true'");
}

void PostgresServer::RunProgram(const std::string& commandLine) const {
    const std::string told = folder_ + "/told";
    const std::string command = (IsRoot() ? "cd / && runuser -u postgres -- " : "") +
                                ProgramFolder() + '/' + commandLine + " > '" + told + "' 2>&1";
    if (std::system(command.c_str()) == 0) return;
    std::ifstream file(told);
    throw std::runtime_error(command + ":\n" +
                             std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace tests
