#include "diagram/view/TextInPlace.h"

#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceGuard.h"
#include "diagram/view/SurfaceView.h"
#include "diagram/view/Viewport.h"

namespace diagram {

TextInPlace::TextInPlace(SurfaceView &view, Scene &scene, const Viewport &viewport, SurfaceGuard &guard)
    : view_(view), scene_(scene), viewport_(viewport), guard_(guard) {}

bool TextInPlace::Begin(Item &item, const QString *typed) {
    edit_.emplace(scene_.Model(), item);
    if (edit_->Text().size() > kLongestInPlace) {
        edit_.reset();
        return false;
    }
    const std::optional<TextPlace> place = edit_->Place(scene_);
    if (place) view_.EnsureVisible(place->area);
    editor_ = new InPlaceEditor(edit_->Text(), view_.viewport(), [this](bool keep) { End(keep); });
    Place();
    editor_->selectAll();
    if (typed) editor_->textCursor().insertText(*typed);
    editor_->setFocus(Qt::OtherFocusReason);
    return true;
}

// Commits a copy, as a listener that is told of the change may end the editing.
void TextInPlace::Keep() {
    if (!edit_) return;
    EditText edit = *edit_;
    guard_.Run("KeepText", [&] { edit.Commit(editor_->toPlainText()); });
    if (edit_) edit_.emplace(edit);
}

void TextInPlace::End(bool keep) {
    if (!edit_) return;
    EditText edit = std::move(*edit_);
    edit_.reset();
    const QString text = editor_->toPlainText();
    InPlaceEditor *ended = std::exchange(editor_, nullptr);
    ended->Forget();
    if (ended->hasFocus()) view_.setFocus(Qt::OtherFocusReason);
    ended->hide();
    ended->deleteLater();
    Q_EMIT view_.HintShown(Hint::Nothing);
    justEnded_ = true;
    QMetaObject::invokeMethod(
        &view_, [this] { justEnded_ = false; }, Qt::QueuedConnection);
    if (keep) guard_.Run("EndEdit", [&] { edit.Commit(text); });
    view_.viewport()->update();
}

std::optional<std::pair<ItemId, QString>> TextInPlace::Typed() const {
    if (!edit_ || !editor_) return std::nullopt;
    const std::optional<QString> text = edit_->Changed(editor_->toPlainText());
    return text ? std::optional(std::pair(edit_->Item(), *text)) : std::nullopt;
}

void TextInPlace::Place() {
    if (!edit_ || !editor_) return;
    if (const std::optional<TextPlace> place = edit_->Place(scene_))
        editor_->Show(*place, viewport_, support::ToQColor(scene_.Model().BackColor()));
    else
        End(false);
}

} // namespace diagram
