#pragma once

// Reading and writing the small XML documents of solutions and projects.

#include <QtCore/qbytearray.h>
#include <QtCore/qlist.h>
#include <QtCore/qstring.h>
#include <QtCore/qxmlstream.h>

#include <memory>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Velmora::Framework::Internal {

// The element and attribute names of solution and project files.
namespace XmlName {
constexpr QLatin1String solution("solution");
constexpr QLatin1String project("project");
constexpr QLatin1String item("item");
constexpr QLatin1String typeId("typeid");
constexpr QLatin1String name("name");
constexpr QLatin1String path("path");
} // namespace XmlName

// Limits that keep a hostile file from taking unbounded memory or time. No file the workbench
// writes comes near them; a document beyond one is refused whole, with one warning.
//
// Size: the XML reader takes seconds for every hundred megabytes, even of elements that are
// skipped. A 100,000-item project takes some 6 MB.
constexpr qint64 maxXmlBytes = 64 * 1024 * 1024;
// Nesting: the tree built from a document is destroyed recursively.
constexpr int maxXmlDepth = 512;
// Attributes of one element: the XML reader compares each with all before it.
constexpr int maxXmlAttributes = 32;
// Characters one entity reference may expand to (the XML reader's own limit), and characters
// that all references to declared entities together may add to a document.
constexpr int maxEntityExpansion = 4096;
constexpr int maxDocumentExpansion = 1 << 20;
// Bytes of the document type: the XML reader keeps every declaration in it. These files carry
// none.
constexpr int maxDoctypeBytes = 64 * 1024;
// Characters of a type id, name or path: the longest path that Windows accepts.
constexpr int maxXmlValueLength = 32767;

class XmlScanner;

// Reads a solution or project file element by element as it streams by, keeping nothing of
// what it skips. The device is read in chunks, each checked against the limits before the XML
// reader sees it. Attribute-list declarations, which would add attributes to every element,
// are refused: these files never carry them.
class XmlReader
{
public:
    // caller begins the warnings, such as "ItemTypeProject::deserialize()".
    XmlReader(QIODevice *device, const char *caller);
    ~XmlReader();

    // Moves to the document element and answers whether it is tagged tag. Any other root is
    // skipped, so that finish() tells whether the rest of the document reads.
    bool readRoot(QLatin1String tag);
    // Moves to the next child element of the current one; false at its end or on failure.
    bool readNextChild();
    // Moves past the end of the current element and everything inside it.
    void skipElement();
    // Reads the rest of the document: true when all of it was well formed and within limits.
    bool finish();

    QStringView tag() const { return m_reader.name(); }
    // The current element's attribute; empty when missing or longer than the limit (which
    // fails the document).
    QString attribute(QLatin1String name);
    // The item name a root carries: its "name" attribute, "default" when it has none.
    QString rootName();
    // Where the reader stands, counted from 1, and what failed there; empty when nothing has.
    qint64 lineNumber() const { return m_reader.lineNumber(); }
    qint64 columnNumber() const { return m_reader.columnNumber(); }
    QString errorString() const;

private:
    enum class Failure { None, Malformed, TooLarge, TooDeep, TooManyAttributes,
                         TooMuchExpansion, LargeDoctype, AttributeLists, TooLong };

    QXmlStreamReader::TokenType next();
    bool feed();
    void fail(Failure failure);

    QIODevice *m_device;
    const char *m_caller;
    QXmlStreamReader m_reader;
    std::unique_ptr<XmlScanner> m_scanner;
    qint64 m_read = 0;
    int m_depth = 0;
    Failure m_failure = Failure::None;
};

// Writes a document in the form the DOM gives with an indent of 4: the xml declaration, the
// document type, then the elements, with attributes in the order they were given.
class XmlWriter
{
public:
    explicit XmlWriter(QLatin1String doctype);

    void startElement(QLatin1String tag, const QList<std::pair<QLatin1String, QString>> &attributes);
    void endElement();
    // The document so far, once every element is ended.
    QByteArray bytes() const { return m_bytes; }

private:
    void closeStartTag();

    QByteArray m_bytes;
    // Open elements, and whether each has children yet.
    std::vector<std::pair<QLatin1String, bool>> m_open;
};

} // namespace Velmora::Framework::Internal
