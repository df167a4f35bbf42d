#include "types/xmltree_p.h"

#include "core/logging_p.h"

#include <QtCore/qiodevice.h>
#include <QtCore/qxmlstream.h>

#include <algorithm>
#include <iterator>

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

// Follows the markup of the raw bytes just far enough to count what the XML reader would
// spend unbounded time or memory on, before it sees them. Only ASCII bytes matter, which UTF-8
// never uses inside other characters; documents in UTF-16 or UTF-32, whose markup holds NUL
// bytes that XML never allows, are refused as malformed.
class XmlScanner
{
public:
    enum Verdict { Fine, Malformed, TooManyAttributes, TooMuchExpansion, LargeDoctype,
                   AttributeLists };

    Verdict scan(const QByteArray &chunk)
    {
        for (const char c : chunk) {
            if (c == '\0')
                return Malformed;
            if (m_inDoctype && ++m_doctypeBytes > maxDoctypeBytes)
                return LargeDoctype;
            const Verdict verdict = step(c);
            if (verdict != Fine)
                return verdict;
        }
        return Fine;
    }

private:
    enum State { Text, Open, StartTag, EndTag, Quoted, Bang, Comment, CData, Pi, Doctype,
                 Subset, SubsetOpen, Reference };

    Verdict step(char c)
    {
        switch (m_state) {
        case Text:
            if (c == '<')
                m_state = Open;
            else if (c == '&')
                startReference(Text);
            return Fine;
        case Open:
            m_attributes = 0;
            if (c == '!' || c == '?')
                markup(c, Text);
            else if (c == '/')
                m_state = EndTag;
            else {
                m_state = StartTag;
                return step(c);
            }
            return Fine;
        case StartTag:
            if (c == '"' || c == '\'')
                quote(c, StartTag);
            else if (c == '=' && ++m_attributes > maxXmlAttributes)
                return TooManyAttributes;
            else if (c == '>')
                m_state = Text;
            return Fine;
        case EndTag:
            if (c == '>')
                m_state = Text;
            return Fine;
        case Quoted:
            if (c == m_quote)
                m_state = m_return;
            else if (c == '&' || (c == '%' && m_return != StartTag))
                startReference(Quoted);
            return Fine;
        case Bang:
            return bang(c);
        case Comment:
            if (c == '>' && m_marks >= 2)
                m_state = m_return;
            m_marks = c == '-' ? m_marks + 1 : 0;
            return Fine;
        case CData:
            if (c == '>' && m_marks >= 2)
                m_state = Text;
            m_marks = c == ']' ? m_marks + 1 : 0;
            return Fine;
        case Pi:
            if (c == '>' && m_marks > 0)
                m_state = m_return;
            m_marks = c == '?' ? 1 : 0;
            return Fine;
        case Doctype:
            if (c == '"' || c == '\'')
                quote(c, Doctype);
            else if (c == '[')
                m_state = Subset;
            else if (c == '>') {
                m_state = Text;
                m_inDoctype = false;
            }
            return Fine;
        case Subset:
            if (c == '"' || c == '\'')
                quote(c, Subset);
            else if (c == '<')
                m_state = SubsetOpen;
            else if (c == ']')
                m_state = Doctype;
            else if (c == '&' || c == '%')
                startReference(Subset);
            return Fine;
        case SubsetOpen:
            if (c == '!' || c == '?')
                markup(c, Subset);
            else {
                m_state = Subset;
                return step(c);
            }
            return Fine;
        case Reference:
            return reference(c);
        }
        return Fine;
    }

    // After "<!" or "<?".
    void markup(char c, State back)
    {
        m_pending.clear();
        m_marks = 0;
        m_return = back;
        m_state = c == '!' ? Bang : Pi;
    }

    void quote(char c, State back)
    {
        m_quote = c;
        m_return = back;
        m_state = Quoted;
    }

    void startReference(State back)
    {
        m_pending.clear();
        m_referenceReturn = back;
        m_state = Reference;
    }

    // After "<!": a comment, a CDATA section, or a declaration (the document type at the top,
    // entities and attribute lists inside it).
    Verdict bang(char c)
    {
        m_pending += c;
        m_marks = 0;
        if (m_pending == "--") {
            m_state = Comment;
            return Fine;
        }
        if (m_return == Text && m_pending == "[CDATA[") {
            m_state = CData;
            return Fine;
        }
        if (m_return == Subset && m_pending == "ATTLIST")
            return AttributeLists;
        const QByteArray candidate = m_pending.startsWith('-') ? QByteArray("--")
            : m_return == Text                                 ? QByteArray("[CDATA[")
                                                               : QByteArray("ATTLIST");
        if (candidate.startsWith(m_pending))
            return Fine;
        // Anything else is a declaration; inside the document type its quotes still count.
        m_inDoctype = true;
        m_state = m_return == Text ? Doctype : Subset;
        return Fine;
    }

    // After "&" (or "%" inside the document type): the five predefined entities and character
    // references expand to one character; any other reference is counted at the most that
    // the XML reader lets one entity expand to.
    Verdict reference(char c)
    {
        if (c != ';' && (QChar::isLetterOrNumber(uchar(c)) || c == '#' || c == '_' || c == '-'
                         || c == '.' || c == ':' || uchar(c) >= 0x80)) {
            if (m_pending.size() < 8)
                m_pending += c;
            return Fine;
        }
        m_state = m_referenceReturn;
        if (c != ';')
            return step(c); // not a reference; the XML reader reports it
        static const QByteArray predefined[] = {"amp", "lt", "gt", "apos", "quot"};
        if (m_pending.startsWith('#')
            || std::find(std::begin(predefined), std::end(predefined), m_pending)
                != std::end(predefined))
            return Fine;
        m_expansion += maxEntityExpansion;
        return m_expansion > maxDocumentExpansion ? TooMuchExpansion : Fine;
    }

    State m_state = Text;
    State m_return = Text; // where a quoted value, comment, processing instruction goes back
    State m_referenceReturn = Text;
    char m_quote = 0;
    int m_marks = 0; // closing characters seen in a row: "--", "]]" or "?"
    QByteArray m_pending; // characters after "<!" or "&" not yet recognised
    int m_attributes = 0;
    qint64 m_expansion = 0;
    bool m_inDoctype = false;
    int m_doctypeBytes = 0;
};

XmlReader::XmlReader(QIODevice *device, const char *caller)
    : m_device(device)
    , m_caller(caller)
    , m_scanner(std::make_unique<XmlScanner>())
{
    m_reader.setEntityExpansionLimit(maxEntityExpansion);
    // These files use no namespaces, and resolving a prefix searches every declaration in
    // scope, which a hostile file can make thousands long.
    m_reader.setNamespaceProcessing(false);
}

XmlReader::~XmlReader() = default;

void XmlReader::fail(Failure failure)
{
    if (m_failure != Failure::None)
        return;
    m_failure = failure;
    switch (failure) {
    case Failure::None:
    case Failure::Malformed:
        break;
    case Failure::TooLarge:
        qCWarning(Internal::lcTypes,
                  "%s: the document is larger than %lld bytes; nothing is loaded", m_caller,
                  maxXmlBytes);
        break;
    case Failure::TooDeep:
        qCWarning(Internal::lcTypes,
                  "%s: the document is nested deeper than %d levels; nothing is loaded", m_caller,
                  maxXmlDepth);
        break;
    case Failure::TooManyAttributes:
        qCWarning(Internal::lcTypes,
                  "%s: an element has more than %d attributes; nothing is loaded", m_caller,
                  maxXmlAttributes);
        break;
    case Failure::TooMuchExpansion:
        qCWarning(Internal::lcTypes,
                  "%s: entity references may expand to more than %d characters; nothing is "
                  "loaded",
                  m_caller, maxDocumentExpansion);
        break;
    case Failure::LargeDoctype:
        qCWarning(Internal::lcTypes,
                  "%s: the document type is larger than %d bytes; nothing is loaded", m_caller,
                  maxDoctypeBytes);
        break;
    case Failure::AttributeLists:
        qCWarning(Internal::lcTypes,
                  "%s: the document type declares attribute lists; nothing is loaded", m_caller);
        break;
    case Failure::TooLong:
        qCWarning(Internal::lcTypes, "%s: a value is longer than %d characters; nothing is loaded",
                  m_caller, maxXmlValueLength);
        break;
    }
}

bool XmlReader::feed()
{
    static constexpr qint64 chunkSize = 64 * 1024;
    // A file too large is refused before its first byte is read.
    const bool tooLarge = m_read == 0 && !m_device->isSequential()
        && m_device->size() - m_device->pos() > maxXmlBytes;
    const QByteArray chunk = tooLarge ? QByteArray() : m_device->read(chunkSize);
    m_read += chunk.size();
    if (tooLarge || m_read > maxXmlBytes) {
        fail(Failure::TooLarge);
        return false;
    }
    if (chunk.isEmpty())
        return false;
    switch (m_scanner->scan(chunk)) {
    case XmlScanner::Fine:
        m_reader.addData(chunk);
        return true;
    case XmlScanner::Malformed:
        fail(Failure::Malformed);
        break;
    case XmlScanner::TooManyAttributes:
        fail(Failure::TooManyAttributes);
        break;
    case XmlScanner::TooMuchExpansion:
        fail(Failure::TooMuchExpansion);
        break;
    case XmlScanner::LargeDoctype:
        fail(Failure::LargeDoctype);
        break;
    case XmlScanner::AttributeLists:
        fail(Failure::AttributeLists);
        break;
    }
    return false;
}

QXmlStreamReader::TokenType XmlReader::next()
{
    while (m_failure == Failure::None) {
        const QXmlStreamReader::TokenType token = m_reader.readNext();
        if (m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError && feed())
            continue;
        if (m_reader.hasError()) {
            fail(Failure::Malformed);
        } else if (token == QXmlStreamReader::StartElement && ++m_depth > maxXmlDepth) {
            fail(Failure::TooDeep);
        } else {
            if (token == QXmlStreamReader::EndElement)
                --m_depth;
            return token;
        }
    }
    return QXmlStreamReader::Invalid;
}

bool XmlReader::readRoot(QLatin1String tag)
{
    if (!readNextChild())
        return false;
    if (this->tag() == tag)
        return true;
    skipElement();
    return false;
}

bool XmlReader::readNextChild()
{
    for (;;) {
        switch (next()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            return false;
        default:
            break;
        }
    }
}

void XmlReader::skipElement()
{
    const int depth = m_depth;
    while (m_depth >= depth && next() != QXmlStreamReader::Invalid) {
    }
}

bool XmlReader::finish()
{
    while (m_reader.tokenType() != QXmlStreamReader::EndDocument
           && next() != QXmlStreamReader::Invalid) {
    }
    return m_failure == Failure::None;
}

QString XmlReader::attribute(QLatin1String name)
{
    const QStringView value = m_reader.attributes().value(name);
    if (value.size() <= maxXmlValueLength)
        return value.toString();
    fail(Failure::TooLong);
    return QString();
}

QString XmlReader::rootName()
{
    return m_reader.attributes().hasAttribute(XmlName::name) ? attribute(XmlName::name)
                                                             : QStringLiteral("default");
}

QString XmlReader::errorString() const
{
    switch (m_failure) {
    case Failure::None:
        return QString();
    case Failure::Malformed:
        return m_reader.hasError() ? m_reader.errorString()
                                   : QStringLiteral("the document is not well formed");
    case Failure::TooLarge:
        return QStringLiteral("the document is larger than %1 bytes").arg(maxXmlBytes);
    case Failure::TooDeep:
        return QStringLiteral("the document is nested deeper than %1 levels").arg(maxXmlDepth);
    case Failure::TooManyAttributes:
        return QStringLiteral("an element has more than %1 attributes").arg(maxXmlAttributes);
    case Failure::TooMuchExpansion:
        return QStringLiteral("entity references may expand to more than %1 characters")
            .arg(maxDocumentExpansion);
    case Failure::LargeDoctype:
        return QStringLiteral("the document type is larger than %1 bytes").arg(maxDoctypeBytes);
    case Failure::AttributeLists:
        return QStringLiteral("the document type declares attribute lists");
    case Failure::TooLong:
        return QStringLiteral("a value is longer than %1 characters").arg(maxXmlValueLength);
    }
    return QString();
}

XmlWriter::XmlWriter(QLatin1String doctype)
{
    m_bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE " + QByteArray(doctype.data(), doctype.size()) + ">\n";
}

void XmlWriter::closeStartTag()
{
    if (!m_open.empty() && !m_open.back().second) {
        m_bytes += ">\n";
        m_open.back().second = true;
    }
}

void XmlWriter::startElement(QLatin1String tag,
                             const QList<std::pair<QLatin1String, QString>> &attributes)
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
    m_bytes += QString(int(m_open.size()) * 4, QLatin1Char(' ')).toUtf8() + "</"
        + QByteArray(tag.data(), tag.size()) + ">\n";
}

} // namespace Velmora::Framework::Internal
