// Work in the main thread that may take long: the window is painted meanwhile, and Escape gives the work up.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

namespace mainwindow {

class frmMain;

// The work asks GoOn often. For a quarter of a second that does nothing. From then on it lets events run:
// windows are painted, but no input reaches them while the work lasts, except Escape. After half a second the
// status bar says what is being done and that Escape gives it up.
class LongTask : public QObject {
public:
    // What moves the progress bar: the time, more and more slowly, where nobody knows the end; or the work,
    // by GoOn(done) or by itself.
    enum class Bar { ByTime, ByWork };
    // `doing` is what the status bar says, such as "Laying out".
    LongTask(frmMain &window, const QString &doing, Bar bar = Bar::ByTime);
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
