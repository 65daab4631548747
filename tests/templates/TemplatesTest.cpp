#include "tests/templates/TemplatesTest.h"

#include "diagram/format/SurfaceFile.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "templates/SaveAsTemplate.h"
#include "templates/TemplateDb.h"
#include "timeline/PrepFileForImport.h"
#include "timeline/TimelineNodes.h"

#include <QBuffer>
#include <QImageWriter>

namespace templates::testing {

TemplatesTest::TemplatesTest() : window(NewWindow()) {
    settings::ProductTerms terms = settings::Terms();
    terms.TEMPLATE = QStringLiteral("TEM");
    settings::SetTerms(terms);
    QDir().mkpath(ProgramFile(QStringLiteral("Templates")));
}

TemplatesTest::~TemplatesTest() {
    QFile::setPermissions(ProgramFile(QStringLiteral("Templates")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QString TemplatesTest::InTemplates(const QString &name) const { return settings::TemplatesFolder() + name; }

QString TemplatesTest::Write(const QString &path, const QByteArray &bytes) const {
    QDir().mkpath(QFileInfo(path).absolutePath());
    support::AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
    return path;
}

QString TemplatesTest::FlatTemplate(const QString &name, const QString &text) const {
    diagram::Surface surface;
    surface.Nodes().Add(0, 0, 1500, 900).SetText(text);
    return Write(InTemplates(name), diagram::SaveBytes(surface));
}

QString TemplatesTest::Template(const QString &name, const QString &text) const {
    diagram::Surface surface;
    surface.Nodes().Add(0, 0, 1500, 900).SetText(text);
    return TemplateOf(name, diagram::SaveBytes(surface), Icon());
}

QString TemplatesTest::TemplateOf(const QString &name, const QByteArray &map, const QByteArray &image) const {
    const QString mapFile = Write(MapFile(QStringLiteral("map.bytes")), map);
    const QString iconFile = Write(MapFile(QStringLiteral("image.bytes")), image);
    QDir().mkpath(QFileInfo(InTemplates(name)).absolutePath());
    CreateTemplate(mapFile, iconFile, InTemplates(name));
    QFile::remove(mapFile), QFile::remove(iconFile);
    return InTemplates(name);
}

QStringList TemplatesTest::FilesIn(const QString &folder) const {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

const diagram::Node *TemplatesTest::DiagramNode(diagram::Surface &surface) const {
    return timeline::LocateTimelineNode(surface, timeline::kDiagramDate, false);
}

diagram::Node &TemplatesTest::AddNode(const QString &text) {
    diagram::Node &node = Flow().Nodes().Add(0, 0, 1500, 900);
    node.SetText(text);
    return node;
}

// Qt's writer of icons doesn't give the same bytes twice, so each icon is made once.
QByteArray Icon(QRgb colour) {
    static QHash<QRgb, QByteArray> made;
    QByteArray &bytes = made[colour];
    if (!bytes.isEmpty()) return bytes;
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(colour);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, "ico").write(image);
    return bytes;
}

QStringList Texts(const diagram::Surface &surface) {
    QStringList texts;
    for (const diagram::Node &node : surface.Nodes())
        if (!node.Hidden()) texts << node.Text();
    return texts;
}

QByteArray ContentOf(const diagram::Surface &surface) {
    diagram::Surface copy;
    diagram::LoadBytes(copy, diagram::SaveBytes(surface));
    return diagram::SaveBytes(copy) + surface.Picture().Bytes() +
           QByteArray::number(qulonglong(surface.BackColor()));
}

} // namespace templates::testing
