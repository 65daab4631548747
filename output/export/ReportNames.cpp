#include "output/export/ReportNames.h"

namespace output {

QString PageName(const QString &Filename, int number) {
    constexpr int kEnding = 4;
    return QStringLiteral("%1_%2.%3")
        .arg(Filename.chopped(std::min<qsizetype>(kEnding, Filename.size())), QString::number(number),
             Filename.right(kEnding - 1));
}

QString PicturePrefix(support::Desktop &desktop, int index) {
    desktop.random.Seed(desktop.clock.Timer());
    const QString random = QString::number(desktop.random.Next(), 'g', 7);
    return QString::number(index).rightJustified(2, u'0') + random.right(2);
}

bool IsRichText(const QString &Filename) { return Filename.right(3).toUpper() == QLatin1String("RTF"); }

} // namespace output
