#pragma once
#include "Db.h"
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

// Runs `work` on `workers` threads that start at the same moment, each with its own connection
// to the database of `config`, as cashiers on separate workstations would. Numbered from 1.
inline void together(const DbConfig& config, int workers, const std::function<void(Db&, int)>& work) {
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    for (int n = 1; n <= workers; ++n)
        threads.emplace_back([&, n] {
            Db db(QStringLiteral("workstation%1").arg(n));
            db.open(config);
            ++ready;
            while (ready < workers)
                std::this_thread::yield();
            work(db, n);
            db.close();
        });
    for (std::thread& t : threads)
        t.join();
}
