// The text box that stands on a node or link while its text is edited in place.
#pragma once

#include "diagram/interaction/EditText.h"

#include <functional>
#include <QTextEdit>

namespace diagram {

class Viewport;

// Looks like the text that it stands for and grows with what is typed. Escape gives up; Ctrl+Enter, Tab and
// losing the focus keep.
class InPlaceEditor : public QTextEdit {
public:
    // `finished` is called once with true to keep.
    InPlaceEditor(const QString &text, QWidget *parent, std::function<void(bool keep)> finished);

    // Takes over look and place; call it again after a scroll, a zoom or a change of the item.
    void Show(const TextPlace &place, const Viewport &viewport, const QColor &behind);
    // Ends without calling back.
    void Forget() { finished_ = nullptr; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    // Pastes as plain text, as much as there is room for.
    void insertFromMimeData(const QMimeData *source) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void Finish(bool keep);
    void FinishAndHandOn(QKeyEvent *event);
    void SetLook(const TextPlace &place, double pointScale, const QColor &behind);
    void Fit();
    void Uncover(const QSizeF &text);

    std::function<void(bool)> finished_;
    QSizeF painted_; // extent of the text below the box, pixels
    QRectF area_;    // pixels of the viewport
    int alignment_ = 7;
    bool wraps_ = true;
};

} // namespace diagram
