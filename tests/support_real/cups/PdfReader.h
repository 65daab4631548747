// What other programs read from a PDF, and a disk that is too small for one.
#pragma once

#include <csignal>
#include <QImage>
#include <QString>
#include <QStringList>
#include <sys/resource.h>
#include <vector>

namespace cups_test {

constexpr int kDotsPerInch = 254; // ten to a millimetre

// The pages in colours, at kDotsPerInch; made in `folder`.
std::vector<QImage> PagesOf(const QString &pdf, const QString &folder);
// The page turned so that it has that size, if one of the quarter turns does that: a printer turns sheets
// that lie across its paper.
QImage Upright(const QImage &page, QSize size);
// The texts without spaces at their ends; a form feed ends each page.
QString TextOf(const QString &pdf);
// Of the first page, "595 x 842" in points.
QString SizeOf(const QString &pdf);

// A limit on the size of files stands in for a disk without room.
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

} // namespace cups_test
