// quorvelin-service: the online service on the local machine, for using and testing every online feature
// of Quorvelin without an outside service.
#include "command_line.h"
#include "core/database.h"
#include "http_server.h"
#include "service.h"
#include "store.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <pthread.h>
#include <thread>

using namespace qv::service;

int main(int argc, char* argv[])
{
    const CommandLine line = parse_command_line(argc, argv);
    if (line.help) {
        std::cout << usage();
        return 0;
    }
    if (!line.error.empty()) {
        std::cerr << line.error << "\n\n" << usage();
        return 2;
    }

    // The signals wait for the one thread that asks for them; the server's threads never see them.
    sigset_t stop_signals;
    sigemptyset(&stop_signals);
    sigaddset(&stop_signals, SIGINT);
    sigaddset(&stop_signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stop_signals, nullptr);

    try {
        Store store(line.data);
        for (const auto& account : line.accounts)
            store.add_account(account);
        if (line.ftp)
            store.set_ftp(*line.ftp);

        Service service(store, line.options);
        HttpServer server(service, line.log);
        const int port = server.bind(line.port);
        if (port < 0) {
            std::cerr << "cannot listen on 127.0.0.1:" << line.port << "\n";
            return 1;
        }
        std::cout << "listening on http://127.0.0.1:" << port << HttpServer::end_point << std::endl;

        // A stop asked for before the server runs waits until it does, or until serving has failed.
        std::atomic<bool> finished = false;
        std::thread waiter([&] {
            int signal = 0;
            sigwait(&stop_signals, &signal);
            while (!finished) {
                if (server.is_running()) {
                    server.stop();
                    return;
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        });
        const bool served = server.run();
        finished = true;
        if (!served) // the waiter may still wait for a signal: give it one
            pthread_kill(waiter.native_handle(), SIGTERM);
        waiter.join();
        return served ? 0 : 1;
    } catch (const qv::DbError& error) {
        std::cerr << "database: " << error.what() << "\n";
        return 1;
    }
}
