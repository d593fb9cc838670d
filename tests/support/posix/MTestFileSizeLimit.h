#pragma once

#include <csignal>
#include <sys/resource.h>

/// A disk that is full: no file of the process may grow beyond a size in bytes, as long as the object lives.
class MTestFileSizeLimit {
public:
    explicit MTestFileSizeLimit(rlim_t size) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit = {size, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    MTestFileSizeLimit(const MTestFileSizeLimit&) = delete;
    MTestFileSizeLimit& operator=(const MTestFileSizeLimit&) = delete;
    ~MTestFileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    void (*handler)(int);
    rlimit before;
};
