// Pictures of what templates hold, painted while nothing else is to be done.
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace mainwindow {

class TemplatePreviews : public QObject {
    Q_OBJECT
public:
    explicit TemplatePreviews(QObject *parent = nullptr);

    // The picture of the file as it is now, if it was painted already; null otherwise, and for a file of
    // which none can be painted.
    QImage Ready(const QString &file) const;
    // Paints it soon, unless that was done; Made follows when there is one.
    void Prepare(const QString &file);
    // What was asked for and not yet painted is not wanted any more.
    void Forget() { wanted_.clear(); }

Q_SIGNALS:
    void Made(const QString &file);

private:
    void PaintNext();

    QCache<QString, QImage> made_; // by name and state of the file
    QStringList wanted_;
    QTimer idle_;
};

// Of the content of the template on its background, the longest side that many pixels long; null where there
// is nothing to be seen or the file can't be read.
QImage PreviewOf(const QString &file, int pixels);

} // namespace mainwindow
