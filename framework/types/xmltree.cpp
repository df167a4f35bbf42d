#include "types/xmltree_p.h"

#include <QtCore/qiodevice.h>
#include <QtCore/qxmlstream.h>

namespace Velmora::Framework::Internal {

namespace {

// Escapes as the DOM does in attribute values: markup characters, quotes, and line breaks
// and tabs as character references so that they survive attribute normalisation.
QString escaped(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '<': result += QLatin1String("&lt;"); break;
        case '&': result += QLatin1String("&amp;"); break;
        case '"': result += QLatin1String("&quot;"); break;
        case '>':
            // Only "]]>" needs it, and that is what the DOM escapes.
            if (result.endsWith(QLatin1String("]]")))
                result += QLatin1String("&gt;");
            else
                result += c;
            break;
        case '\n': result += QLatin1String("&#xa;"); break;
        case '\r': result += QLatin1String("&#xd;"); break;
        case '\t': result += QLatin1String("&#x9;"); break;
        default: result += c;
        }
    }
    return result;
}

} // namespace

QString XmlElement::attribute(const QString &name) const
{
    for (const auto &[key, value] : attributes) {
        if (key == name)
            return value;
    }
    return QString();
}

bool XmlElement::hasAttribute(const QString &name) const
{
    for (const auto &attribute : attributes) {
        if (attribute.first == name)
            return true;
    }
    return false;
}

XmlStatus readXml(QIODevice *device, XmlElement &root)
{
    root = XmlElement();
    QXmlStreamReader reader(device);
    XmlElement document;
    // The chain of open elements; each is the last child of the one before.
    std::vector<XmlElement *> open{&document};
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            if (int(open.size()) > maxXmlDepth)
                return XmlStatus::TooDeep;
            XmlElement &element = open.back()->children.emplace_back();
            element.tag = reader.name().toString();
            const QXmlStreamAttributes attributes = reader.attributes();
            element.attributes.reserve(attributes.size());
            for (const QXmlStreamAttribute &attribute : attributes)
                element.attributes.append({attribute.qualifiedName().toString(),
                                           attribute.value().toString()});
            open.push_back(&element);
            break;
        }
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        default:
            break;
        }
    }
    if (reader.hasError() || document.children.size() != 1)
        return XmlStatus::Malformed;
    root = std::move(document.children.front());
    return XmlStatus::Ok;
}

RootReading readRoot(QIODevice *device, const char *caller, const QString &rootTag,
                     XmlElement &root)
{
    switch (readXml(device, root)) {
    case XmlStatus::Malformed:
        return RootReading::Failed;
    case XmlStatus::TooDeep:
        qWarning("%s: the document is nested deeper than %d levels; nothing is loaded", caller,
                 maxXmlDepth);
        return RootReading::Failed;
    case XmlStatus::Ok:
        break;
    }
    return root.tag == rootTag ? RootReading::Read : RootReading::OtherRoot;
}

QString rootName(const XmlElement &root)
{
    const QString name = QStringLiteral("name");
    return root.hasAttribute(name) ? root.attribute(name) : QStringLiteral("default");
}

XmlWriter::XmlWriter(const QString &doctype)
{
    m_bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE " + doctype.toUtf8() + ">\n";
}

void XmlWriter::closeStartTag()
{
    if (!m_open.empty() && !m_open.back().second) {
        m_bytes += ">\n";
        m_open.back().second = true;
    }
}

void XmlWriter::startElement(const QString &tag,
                             const QList<std::pair<QString, QString>> &attributes)
{
    closeStartTag();
    QString line(int(m_open.size()) * 4, QLatin1Char(' '));
    line += QLatin1Char('<') + tag;
    for (const auto &[name, value] : attributes)
        line += QLatin1Char(' ') + name + QLatin1String("=\"") + escaped(value) + QLatin1Char('"');
    m_bytes += line.toUtf8();
    m_open.emplace_back(tag, false);
}

void XmlWriter::endElement()
{
    if (m_open.empty())
        return;
    const auto [tag, hasChildren] = m_open.back();
    m_open.pop_back();
    if (!hasChildren) {
        m_bytes += "/>\n";
        return;
    }
    m_bytes += QString(int(m_open.size()) * 4, QLatin1Char(' ')).toUtf8() + "</" + tag.toUtf8()
        + ">\n";
}

} // namespace Velmora::Framework::Internal
