// Small pictures of maps and templates, made while nothing else is to be done.
#pragma once

#include <deque>
#include <memory>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>
#include <QTimer>

namespace diagram {
class Surface;
}
namespace support {
struct Desktop;
}

namespace mainwindow {

// What is to be painted, and how large, in pixels.
struct ThumbnailOrder {
    enum class Kind { Map, Template };
    Kind kind = Kind::Map;
    QString file;
    QSize pixels;
    double ratio = 1; // device pixels a pixel of the screen
};

// A slice read for its picture, with whatever it lives in.
class ThumbnailSlice {
public:
    virtual ~ThumbnailSlice() = default;
    virtual diagram::Surface &Surface() = 0;
};

// Null for what can't be read, and for what would take long: a file of more than 5 MB or a map of more than
// 2000 nodes, one on another machine, one of the old form, one whose last change still waits in a journal.
// The file is copied and the copy read: it is neither locked nor changed.
std::unique_ptr<ThumbnailSlice> ReadForThumbnail(support::Desktop &desktop, const ThumbnailOrder &order);

// All of the slice in the middle of the picture, on its background; never larger than at zoom 100.
QImage PaintThumbnail(diagram::Surface &surface, const QSize &pixels, double ratio = 1);

// The pictures that were made before, as files in a folder that only the user may look into. What can't be
// read or written there is made again.
class ThumbnailCache {
public:
    explicit ThumbnailCache(QString folder) : folder_(std::move(folder)) {}
    // Below the platform's folder for such files, for the edition that Terms() names.
    static QString UsualFolder();
    // Of all windows; empty, as it is at first, where nothing is kept.
    static void SetFolder(const QString &folder);
    static QString Folder();

    // The picture of the file as it is now, in that size; null for none.
    QImage Find(const ThumbnailOrder &order) const;
    // Keeps the picture; the oldest ones go when there are many.
    void Keep(const ThumbnailOrder &order, const QImage &picture) const;

private:
    QString PathOf(const ThumbnailOrder &order) const;
    void RemoveOldest() const;

    QString folder_;
};

// Works through orders one at a time, a step each time that the event loop has nothing else to do.
class ThumbnailMaker : public QObject {
    Q_OBJECT
public:
    ThumbnailMaker(support::Desktop &desktop, QString cacheFolder, QObject *parent = nullptr);
    ~ThumbnailMaker() override;

    void Order(ThumbnailOrder order);
    bool IsDone() const { return orders_.empty(); }

Q_SIGNALS:
    // Of the file; null where there is none.
    void Made(const QString &file, const QImage &picture);

private:
    void Step();
    void Finish(const QImage &picture);

    support::Desktop &desktop_;
    ThumbnailCache cache_;
    std::deque<ThumbnailOrder> orders_;
    std::unique_ptr<ThumbnailSlice> read_; // of the first order, once its slice was read
    QTimer idle_;
};

} // namespace mainwindow
