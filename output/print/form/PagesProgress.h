// What is seen of a long print: how far it is, and Escape or Cancel to give it up. Comes once the print has
// taken half a second.
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

namespace print {

class PagesProgress {
public:
    explicit PagesProgress(QWidget *owner);

    // Before each page; the first one starts the clock, so that nobody's choosing of a printer counts. False
    // once the user has given up.
    bool GoOn(int done, int of);

private:
    QProgressDialog dialog_;
    QElapsedTimer running_;
};

} // namespace print
