#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qwidget.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace Velmora::Framework {

class PropertyModel;
class PropertyWindowPrivate;
class TypeRegistrar;
class ViewItem;

// Shows the selected item's properties (its property bag, named by its payload) as a tree of
// typed editors; edits go straight into the bag.
class VELMORA_FRAMEWORK_EXPORT PropertyWindow : public QWidget
{
    Q_OBJECT

public:
    explicit PropertyWindow(QWidget *parent = nullptr);
    ~PropertyWindow() override;

    ViewItem *item() const;
    PropertyModel *model() const;
    QTreeView *treeView() const;
    // Opens the window whenever a type of registrar asks for it (borrowed).
    void watch(TypeRegistrar *registrar);

public Q_SLOTS:
    // Borrowed; null shows nothing.
    void setItem(ViewItem *item);
    // Shows and raises the window, and asks the host to show the panel it sits in.
    void open();

Q_SIGNALS:
    void openRequested();
    void propertyChanged(ViewItem *item, const QString &key);

private:
    std::unique_ptr<PropertyWindowPrivate> const d;
};

} // namespace Velmora::Framework
