#include "mainwindow/edits/ItemDescription.h"

#include "diagram/model/Node.h"
#include "document/clsfrmMain.h"
#include "document/Tags.h"
#include "timeline/Folding.h"
#include "timeline/Span.h"

#include <QCoreApplication>
#include <QStringList>

namespace mainwindow {

QString ItemDescription(const diagram::Item &item, document::clsfrmMain &settings) {
    const diagram::Node *node = item.AsNode();
    if (!node) return {};
    const QString level = settings.Levels().LevelNameForKey(document::GetTag(*node, document::tags::kLevel));
    const QString groups = settings.Groups().GroupNameForKey(document::GetTag(*node, document::tags::kGroup));
    QStringList parts;
    if (!level.isEmpty()) parts << QCoreApplication::translate("frmMain", "Level %1").arg(level);
    if (!groups.isEmpty())
        parts << QCoreApplication::translate("frmMain", "groups %1").arg(QString(groups).replace(',', ", "));
    if (const auto span = timeline::SpanOfNode(*node)) parts << timeline::InFull(*span);
    if (const auto fold = timeline::FoldOf(*node)) parts << timeline::FoldInWords(node->Owner(), *fold);
    return parts.join(QStringLiteral(", "));
}

} // namespace mainwindow
