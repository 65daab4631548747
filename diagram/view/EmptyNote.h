// What an empty page says to whoever doesn't know yet how to begin.
#pragma once

#include <QColor>
#include <QString>

class QPainter;
class QWidget;

namespace diagram {

class Surface;

// On the screen alone, in letters of the same size at every zoom, in the middle of what is seen.
class EmptyNote {
public:
    // Both must live longer. Without words it is never shown.
    EmptyNote(QWidget &canvas, const Surface &surface) : canvas_(canvas), surface_(surface) {}

    void SetWords(const QString &words) { words_ = words; }
    const QString &Words() const { return words_; }
    // Looks whether it stands there now, and has the canvas painted when that has changed; `drawing`: a first
    // node is just being drawn. True when it has.
    bool Update(bool drawing);
    bool IsShown() const { return shown_; }
    void Paint(QPainter &painter) const;

private:
    QWidget &canvas_;
    const Surface &surface_;
    QString words_;
    bool shown_ = false;
};

// Whether a surface has nothing that is seen, or would be without the filter.
bool IsEmptyPage(const Surface &surface);
// The ink that is quiet on that paper, and has a contrast of at least 4.5 to 1 on it where any ink has.
QColor QuietInk(const QColor &paper);

} // namespace diagram
