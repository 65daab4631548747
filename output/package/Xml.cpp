#include "output/package/Xml.h"

namespace package {

namespace {

bool IsWritable(QChar character) {
    const char16_t code = character.unicode();
    if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
    return code < 0xFFFE;
}

} // namespace

QString XmlText(const QString &text) {
    QString kept;
    kept.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        if (character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            kept += character, kept += text[++i];
        else if (!character.isSurrogate() && IsWritable(character))
            kept += character;
    }
    return kept;
}

Xml::Xml() : writer_(&bytes_) {
    writer_.device()->write("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
}

void Xml::Write(Attributes attributes) {
    for (const Attribute &attribute : attributes) Add(attribute);
}

Xml &Xml::Open(const char *element, Attributes attributes) {
    writer_.writeStartElement(QLatin1String(element));
    Write(attributes);
    return *this;
}

Xml &Xml::Add(const Attribute &attribute) {
    writer_.writeAttribute(QLatin1String(attribute.name), XmlText(attribute.value));
    return *this;
}

Xml &Xml::Close(int elements) {
    for (int i = 0; i < elements; ++i) writer_.writeEndElement();
    return *this;
}

Xml &Xml::Empty(const char *element, Attributes attributes) {
    writer_.writeEmptyElement(QLatin1String(element));
    Write(attributes);
    return *this;
}

Xml &Xml::Text(const QString &text) {
    writer_.writeCharacters(XmlText(text));
    return *this;
}

Xml &Xml::Leaf(const char *element, const QString &text, Attributes attributes) {
    return Open(element, attributes).Text(text).Close();
}

Xml &Xml::Raw(const QByteArray &elements) {
    writer_.writeCharacters(QString()); // ends the tag that is open
    writer_.device()->write(elements);
    return *this;
}

QByteArray Xml::Document() {
    writer_.writeEndDocument();
    return bytes_;
}

} // namespace package
