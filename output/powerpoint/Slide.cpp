#include "output/powerpoint/Slide.h"

namespace powerpoint {

namespace {

QString OneLine(const QString &text) { return text.simplified(); }

QStringList TextsOf(const output::SliceOutput &slice) {
    QStringList texts;
    for (const output::NodeOutput &node : slice.nodes) {
        const QString text = OneLine(node.text);
        if (!node.hidden && !text.isEmpty()) texts << text;
    }
    return texts;
}

} // namespace

QString NotesOf(const output::SliceOutput &slice) { return TextsOf(slice).join(u'\n'); }

QString DescriptionOf(const output::SliceOutput &slice) {
    constexpr qsizetype kLongest = 1000;
    const QString caption = OneLine(slice.caption), texts = TextsOf(slice).join(QStringLiteral(", "));
    const QString all =
        caption.isEmpty() || texts.isEmpty() ? caption + texts : caption + QStringLiteral(": ") + texts;
    if (all.size() <= kLongest) return all;
    return all.left(kLongest - 1) + QChar(0x2026);
}

} // namespace powerpoint
