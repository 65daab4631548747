// Bars of templates filled with what their folders hold, a few files at a time.
#pragma once

#include "templates/BarDetails.h"

#include <deque>
#include <QObject>
#include <QTimer>

namespace support {
struct Desktop;
}

namespace mainwindow {

class ListBar;

class BarFilling : public QObject {
    Q_OBJECT
public:
    BarFilling(ListBar &bar, support::Desktop &desktop);

    // The bar with that key is filled from now on, once those begun before are.
    void Begin(const QString &key, const QString &folder, const QStringList &files);
    bool IsFilling(const QString &key) const;
    bool IsBusy() const { return !jobs_.empty(); }
    // Nothing is filled any further.
    void Stop() { jobs_.clear(); }

private:
    void FillOn();
    void Finish();

    struct Job {
        QString key;
        templates::BarFiller filler;
    };
    ListBar &bar_;
    support::Desktop &desktop_;
    std::deque<Job> jobs_;
    QTimer next_;
};

// Beside the heading: how many items the bar holds.
void ShowCount(ListBar &list, int bar);

} // namespace mainwindow
