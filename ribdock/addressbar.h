#pragma once

#include "ribdock_global.h"

#include <QtWidgets/qwidget.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace Velmora::Ribdock {

class AddressBarPrivate;

// The current folder, shown as a breadcrumb that turns into an editable path on a click, with
// back, forward, one-level-up and browse buttons and a drop-down tree of the folder. The tree
// shows sub-folders and the files whose suffix was registered with addSuffix().
class RIBDOCK_EXPORT AddressBar : public QWidget
{
    Q_OBJECT

public:
    explicit AddressBar(QWidget *parent = nullptr);
    ~AddressBar() override;

    // An absolute path with '/' separators; the user's home folder at first.
    QString path() const;

    // A suffix without its dot ("qprj"), compared case-sensitively.
    void addSuffix(const QString &suffix);
    QStringList suffixes() const;

    // The drop-down tree, owned by the bar; made on first use.
    QTreeView *treeView() const;

    // Back and forward remember at most historyLimit() folders each.
    static int historyLimit();
    bool canGoBack() const;
    bool canGoForward() const;

public slots:
    // Refuses, leaving everything as it was, a path that is not an existing folder.
    bool setPath(const QString &path);
    // Each answers whether the folder changed; folders that vanished are skipped.
    bool back();
    bool forward();
    bool up();
    // Asks the user for a folder.
    void browse();

signals:
    void pathChanged(const QString &path);
    // A file with a registered suffix was activated in the tree.
    void signalFileOpen(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<AddressBarPrivate> const d;
};

} // namespace Velmora::Ribdock
