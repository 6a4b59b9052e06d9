#include <csignal>

#include "app/commands/Commands.h"

int main(int argc, char** argv) {
    // Makes a write beyond the file size limit fail instead of ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    return app::Run(argc, argv);
}
