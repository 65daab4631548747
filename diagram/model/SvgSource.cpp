#include "diagram/model/SvgSource.h"

#include <QBuffer>
#include <QImageReader>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace diagram {

namespace {

// A picture that is no drawing itself, whatever type it claims: a drawing within the drawing could refer to
// anything in turn.
bool IsPlainPicture(const QByteArray &data) {
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    return !format.isEmpty() && !format.startsWith("svg");
}

// A part of the drawing, or a picture that it carries.
bool IsInside(const QString &target) {
    if (target.startsWith(u'#')) return true;
    const qsizetype comma = target.indexOf(u',');
    const QString head = target.left(comma);
    return comma > 0 && head.startsWith(QLatin1String("data:image/")) &&
           head.endsWith(QLatin1String(";base64")) &&
           IsPlainPicture(QByteArray::fromBase64(target.mid(comma + 1).toLatin1()));
}

bool IsReference(const QString &attribute) {
    return attribute == QLatin1String("href") || attribute.endsWith(QLatin1String(":href"));
}

void CopyElement(const QXmlStreamReader &reader, QXmlStreamWriter &writer) {
    writer.writeStartElement(reader.qualifiedName().toString());
    for (const QXmlStreamAttribute &attribute : reader.attributes()) {
        const QString name = attribute.qualifiedName().toString(), value = attribute.value().toString();
        if (!IsReference(name) || IsInside(value.trimmed())) writer.writeAttribute(name, value);
    }
}

} // namespace

QByteArray WithoutReferences(const QByteArray &svg) {
    QXmlStreamReader reader(svg);
    reader.setNamespaceProcessing(false); // prefixes stay as they are
    QByteArray copy;
    QXmlStreamWriter writer(&copy);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            CopyElement(reader, writer);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            writer.writeCharacters(reader.text().toString());
            break;
        default:
            break;
        }
    }
    return copy;
}

} // namespace diagram
