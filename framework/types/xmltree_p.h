#pragma once

// Reading and writing the small XML documents of solutions and projects.

#include <QtCore/qbytearray.h>
#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Velmora::Framework::Internal {

// Documents nested deeper than this are refused whole: the tree built from them is destroyed
// recursively, and no solution or project of the workbench comes near it.
constexpr int maxXmlDepth = 512;

// One element with its attributes, in document order.
struct XmlElement
{
    QString tag;
    QList<std::pair<QString, QString>> attributes;
    std::vector<XmlElement> children;

    // The attribute's value; empty when missing.
    QString attribute(const QString &name) const;
    bool hasAttribute(const QString &name) const;
};

enum class XmlStatus { Ok, Malformed, TooDeep };

// Reads the whole document into root; on failure root is left empty.
XmlStatus readXml(QIODevice *device, XmlElement &root);

enum class RootReading { Failed, OtherRoot, Read };

// Reads the document of an item's file whose root must be tagged rootTag. A document nested
// too deep is refused with a warning that begins with caller.
RootReading readRoot(QIODevice *device, const char *caller, const QString &rootTag,
                     XmlElement &root);
// The item name a root carries: its "name" attribute, "default" when it has none.
QString rootName(const XmlElement &root);

// Writes a document in the form the DOM gives with an indent of 4: the xml declaration, the
// document type, then the elements, with attributes in the order they were given.
class XmlWriter
{
public:
    explicit XmlWriter(const QString &doctype);

    void startElement(const QString &tag, const QList<std::pair<QString, QString>> &attributes);
    void endElement();
    // The document so far, once every element is ended.
    QByteArray bytes() const { return m_bytes; }

private:
    void closeStartTag();

    QByteArray m_bytes;
    // Open elements, and whether each has children yet.
    std::vector<std::pair<QString, bool>> m_open;
};

} // namespace Velmora::Framework::Internal
