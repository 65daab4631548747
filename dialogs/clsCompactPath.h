// Paths shortened in their middle, so that the folders they start in and the file's name are seen.
#pragma once

#include <QLabel>

namespace dialogs {

// `path` with as many of its folders as fit into `width` pixels, "..." in the place of the others. A name
// that does not fit alone is cut in its middle. What would break the line is shown as a blank.
QString CompactPath(const QString &path, const QFontMetrics &metrics, int width);

// The text, with "..." for its middle where it has more than `most` characters: texts of a map can be of any
// length.
QString WithoutMiddle(const QString &text, qsizetype most);

// The path as the rich text of a tool tip, without its middle where it is very long.
QString TipOf(const QString &path);

// A label of one path, shortened to fit wherever it stands. It never asks for more room than its name's
// beginning takes, and shows the whole path as its tip.
class PathLabel : public QLabel {
public:
    explicit PathLabel(QWidget *parent);

    const QString &Tag() const { return tag_; } // the whole path
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class clsCompactPath;
    void Compact();

    QString tag_;
};

class clsCompactPath {
public:
    void CompactPathIntoControl(const QString &path, PathLabel &control) const;
};

} // namespace dialogs
