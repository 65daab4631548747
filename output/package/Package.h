// A package of the Open Packaging Conventions (ECMA-376 part 2): parts, their kinds, the relations between
// them.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

namespace package {

class Package {
public:
    // A part of XML under its name without a leading slash. Each name once.
    void Add(const QString &name, const QString &contentType, const QByteArray &bytes);
    // A picture or the like, whose kind follows from the ending of its name.
    void AddMedia(const QString &name, const QString &contentType, const QByteArray &bytes);
    // Adds a relation from a part, or from the package itself when `from` is empty, to another part; gives
    // its identity, "rId1" and so on. `kind` is the last part of the name that office documents have for it,
    // or a whole name, which has a slash.
    QString Relate(const QString &from, const QString &kind, const QString &to);
    bool Has(const QString &name) const { return names_.contains(name); }

    // The zip file. Errors as ZipFile's.
    QByteArray File() const;

private:
    struct Part {
        QString name, contentType;
        QByteArray bytes;
        bool isMedia = false;
    };
    struct Relation {
        QString kind, to;
    };
    void Add(Part part);
    QByteArray ContentTypes() const;
    QByteArray RelationsOf(const QString &from) const;

    std::vector<Part> parts_;
    QSet<QString> names_;
    QHash<QString, std::vector<Relation>> relations_;
};

// What leads from the folder of the part `from` to the part `to`.
QString RelativeName(const QString &from, const QString &to);

} // namespace package
