// A limit on the size of files, which stands in for a disk without room. Only for POSIX systems.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tests {

// While it lives, no file of the process can grow beyond so many bytes: writes fail instead.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

} // namespace tests
