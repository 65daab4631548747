// Work of the one thread that may take long: soon the window is painted meanwhile, and Escape gives the work
// up; after half a second the status bar says so.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

namespace mainwindow {

class frmMain;

// Asked often by the work. For a quarter of a second it does nothing. From then on it lets events run:
// windows are painted, but no other input reaches them while the work lasts.
class LongTask : public QObject {
public:
    // What the progress bar shows: that something goes on, or how far the work itself says that it is.
    enum class Bar { Runs, IsTheWorks };
    // `doing` is what the status bar says, such as "Laying out".
    LongTask(frmMain &window, const QString &doing, Bar bar = Bar::Runs);
    ~LongTask() override;

    // False once the user has pressed Escape, or the window is gone.
    bool GoOn();
    // The same for work that knows how much of it is done, 0 to 1: the progress bar never runs backwards.
    bool GoOn(double done);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Tell();
    void Listen();

    QPointer<frmMain> window_;
    QString doing_;
    Bar bar_;
    QElapsedTimer running_;
    int percent_ = 0;
    bool listens_ = false, told_ = false;
    bool givenUp_ = false;
};

} // namespace mainwindow
