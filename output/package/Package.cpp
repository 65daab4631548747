#include "output/package/Package.h"

#include "output/package/Xml.h"
#include "output/package/Zip.h"

#include <map>
#include <utility>

namespace package {

namespace {

const QString kOfficeKinds =
    QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships/");

QString RelationsName(const QString &part) {
    const qsizetype slash = part.lastIndexOf(u'/') + 1;
    return part.left(slash) + QStringLiteral("_rels/") + part.mid(slash) + QStringLiteral(".rels");
}

QString EndingOf(const QString &name) { return name.mid(name.lastIndexOf(u'.') + 1); }

// Pictures in packed formats gain nothing.
bool IsWorthPacking(const QString &name) {
    static const QStringList packed{QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("gif")};
    return !packed.contains(EndingOf(name));
}

} // namespace

QString RelativeName(const QString &from, const QString &to) {
    QStringList source = from.split(u'/'), target = to.split(u'/');
    source.removeLast();
    while (!source.isEmpty() && target.size() > 1 && source.first() == target.first())
        source.removeFirst(), target.removeFirst();
    return QStringLiteral("../").repeated(source.size()) + target.join(u'/');
}

void Package::Add(const QString &name, const QString &contentType, const QByteArray &bytes) {
    Add({name, contentType, bytes, false});
}

void Package::AddMedia(const QString &name, const QString &contentType, const QByteArray &bytes) {
    Add({name, contentType, bytes, true});
}

void Package::Add(Part part) {
    names_.insert(part.name);
    parts_.push_back(std::move(part));
}

QString Package::Relate(const QString &from, const QString &kind, const QString &to) {
    std::vector<Relation> &relations = relations_[from];
    relations.push_back({kind.contains(u'/') ? kind : kOfficeKinds + kind, to});
    return QStringLiteral("rId%1").arg(relations.size());
}

QByteArray Package::ContentTypes() const {
    Xml xml;
    xml.Open("Types", {{"xmlns", "http://schemas.openxmlformats.org/package/2006/content-types"}});
    std::map<QString, QString> byEnding{
        {QStringLiteral("rels"), QStringLiteral("application/vnd.openxmlformats-package.relationships+xml")},
        {QStringLiteral("xml"), QStringLiteral("application/xml")}};
    for (const Part &part : parts_)
        if (part.isMedia) byEnding[EndingOf(part.name)] = part.contentType;
    for (const auto &[ending, type] : byEnding)
        xml.Empty("Default", {{"Extension", ending}, {"ContentType", type}});
    for (const Part &part : parts_)
        if (!part.isMedia)
            xml.Empty("Override", {{"PartName", u'/' + part.name}, {"ContentType", part.contentType}});
    return xml.Document();
}

QByteArray Package::RelationsOf(const QString &from) const {
    Xml xml;
    xml.Open("Relationships", {{"xmlns", "http://schemas.openxmlformats.org/package/2006/relationships"}});
    int number = 0;
    for (const Relation &relation : relations_.value(from))
        xml.Empty("Relationship", {{"Id", QStringLiteral("rId%1").arg(++number)},
                                   {"Type", relation.kind},
                                   {"Target", RelativeName(from, relation.to)}});
    return xml.Document();
}

QByteArray Package::File() const {
    std::vector<ZipEntry> entries{{QStringLiteral("[Content_Types].xml"), ContentTypes()},
                                  {RelationsName(QString()), RelationsOf(QString())}};
    for (const Part &part : parts_) {
        entries.push_back({part.name, part.bytes, IsWorthPacking(part.name)});
        if (relations_.contains(part.name))
            entries.push_back({RelationsName(part.name), RelationsOf(part.name)});
    }
    return ZipFile(entries);
}

} // namespace package
