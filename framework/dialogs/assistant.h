#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qurl.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Framework {

class AssistantPrivate;

// The help browser: the pages of a compiled help collection (".qhc") with contents, index
// and search beside them. A missing or unreadable collection is reported once; the window
// then says so instead of showing pages.
class VELMORA_FRAMEWORK_EXPORT Assistant : public QWidget
{
    Q_OBJECT

public:
    explicit Assistant(const QString &collectionFile, QWidget *parent = nullptr);
    ~Assistant() override;

    // Whether the collection opened and holds documentation.
    bool isReady() const;
    QUrl currentUrl() const;
    // The page that opens first: "index.html" of the first documentation, if any.
    QUrl homePage() const;
    // The page for key: a qthelp URL, an identifier, a keyword of the index or a page's file
    // name, tried in that order; an invalid URL when nothing matches.
    QUrl pageFor(const QString &key) const;

public Q_SLOTS:
    // Shows and raises the window on the page for key, or on the home page for an empty key.
    // A key without a page opens the index filtered by it. false when no page was found.
    bool showAssistant(const QString &key = QString());
    void showPage(const QUrl &url);

private:
    std::unique_ptr<AssistantPrivate> const d;
};

} // namespace Velmora::Framework
