// Fills the bars of templates with what their folders hold, a few files at a time.
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

    // Fills the bar with that key from now on, after those that were begun before.
    void Begin(const QString &key, const QString &folder, const QStringList &files);
    bool IsFilling(const QString &key) const;
    bool IsBusy() const { return !jobs_.empty(); }
    // Leaves all bars as they are.
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

// Writes beside the bar's heading how many items it holds.
void ShowCount(ListBar &list, int bar);

} // namespace mainwindow
