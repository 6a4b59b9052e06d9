#include <csignal>

#include "app/commands/Commands.h"

int main(int argc, char** argv) {
    // A file that would grow beyond the user's limit is a failed write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    return app::Run(argc, argv);
}
