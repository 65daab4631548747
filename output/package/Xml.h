// XML as the parts of packages hold it.
#pragma once

#include <initializer_list>
#include <QByteArray>
#include <QString>
#include <QXmlStreamWriter>

namespace package {

// `text` without what XML 1.0 has no place for: control characters but tab and line ends, halves of
// characters that stand alone, and what is no character.
QString XmlText(const QString &text);

struct Attribute {
    Attribute(const char *of, const QString &text) : name(of), value(text) {}
    Attribute(const char *of, const char *text) : name(of), value(QLatin1String(text)) {}
    Attribute(const char *of, qint64 number) : name(of), value(QString::number(number)) {}
    Attribute(const char *of, int number) : name(of), value(QString::number(number)) {}
    const char *name;
    QString value;
};
using Attributes = std::initializer_list<Attribute>;

// Writes one document from its beginning to its end; names carry their prefix. Texts may hold anything.
class Xml {
public:
    Xml();
    Xml(const Xml &) = delete;
    Xml &operator=(const Xml &) = delete;

    Xml &Open(const char *element, Attributes attributes = {});
    // An attribute of the element opened last, before anything stands in it.
    Xml &Add(const Attribute &attribute);
    Xml &Close(int elements = 1);
    // An element without content.
    Xml &Empty(const char *element, Attributes attributes = {});
    Xml &Text(const QString &text);
    // An element that holds just the text.
    Xml &Leaf(const char *element, const QString &text, Attributes attributes = {});
    // Whole elements as they are, of names that the document knows.
    Xml &Raw(const QByteArray &elements);
    // Closes what is open.
    QByteArray Document();

private:
    void Write(Attributes attributes);

    QByteArray bytes_;
    QXmlStreamWriter writer_;
};

} // namespace package
