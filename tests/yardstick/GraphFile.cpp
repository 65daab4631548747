#include "tests/yardstick/GraphFile.h"

#include "diagram/model/Surface.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>

using namespace diagram;

namespace yardstick {

namespace {

constexpr support::Colour kFills[] = {support::Rgb(220, 230, 241), support::Rgb(235, 241, 222),
                                      support::Rgb(253, 233, 217), support::Rgb(228, 223, 236),
                                      support::Rgb(255, 242, 204), support::Rgb(242, 220, 219)};

QDir Folder() { return QDir(QStringLiteral(VELMORA_GRAPHS)); }

class Reader {
public:
    Reader(Surface &surface, GraphFile &file) : surface_(surface), file_(file) {}

    void Take(const QString &line) {
        static const QRegularExpression link(QStringLiteral("^(\\S+) > (\\S+)(?: : (.*))?$"));
        static const QRegularExpression node(QStringLiteral("^(\\S+) (.+)$"));
        if (line.isEmpty()) return;
        if (line.startsWith(QLatin1String("# ")))
            file_.title = line.mid(2);
        else if (line.startsWith(u'['))
            file_.levels.append(line.mid(1).chopped(1));
        else if (line.startsWith(QLatin1String("style ")))
            style_ = line.mid(6).toInt();
        else if (const auto joined = link.match(line); joined.hasMatch())
            AddLink(joined);
        else if (const auto named = node.match(line); named.hasMatch())
            AddNode(named.captured(1), named.captured(2));
        else
            qFatal("not understood: %s", qPrintable(line));
    }

private:
    void AddNode(const QString &name, const QString &text) {
        constexpr float kWidth = 1650, kHeight = 675, kAcross = 2400, kDown = 1350;
        const auto at = int(nodes_.size());
        Node &node =
            surface_.Nodes().Add(150 + float(at % 6) * kAcross, 150 + float(at / 6) * kDown, kWidth, kHeight);
        node.SetText(text);
        node.SetFillColor(kFills[std::size_t(std::max<qsizetype>(0, file_.levels.size() - 1)) % 6]);
        if (!file_.levels.isEmpty()) node.SetTag(QString::number(file_.levels.size() - 1));
        if (text.endsWith(u'?')) {
            constexpr int kDecision = 52;
            node.SetShape(kDecision);
            node.SetBounds(node.Left(), node.Top(), 1950, 1050);
        }
        nodes_.insert(name, &node);
    }
    void AddLink(const QRegularExpressionMatch &joined) {
        Node *from = nodes_.value(joined.captured(1)), *to = nodes_.value(joined.captured(2));
        if (!from || !to) qFatal("no such node: %s", qPrintable(joined.captured(0)));
        Link &link = from->Links().Add(*to);
        link.SetStyle(style_);
        link.SetText(joined.captured(3));
    }

    Surface &surface_;
    GraphFile &file_;
    QHash<QString, Node *> nodes_;
    int style_ = 0;
};

} // namespace

QStringList GraphNames() {
    QStringList names = Folder().entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    for (QString &name : names) name.chop(4);
    return names;
}

GraphFile GraphFile::Read(const QString &name, Surface &surface) {
    QFile text(Folder().filePath(name + QStringLiteral(".txt")));
    if (!text.open(QIODevice::ReadOnly)) qFatal("cannot be read: %s", qPrintable(text.fileName()));
    GraphFile file;
    Reader reader(surface, file);
    for (const QString &line : QString::fromUtf8(text.readAll()).split(u'\n')) reader.Take(line.trimmed());
    return file;
}

int GraphFile::LevelOf(const Node &node) { return node.Tag().isEmpty() ? -1 : node.Tag().toInt(); }

} // namespace yardstick
